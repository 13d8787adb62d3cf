#include "host/cad/dwg/write_plan.h"

#include <algorithm>

#include "host/cad/writing/text.h"

namespace dwg {
namespace {

using cad_writer::TextForm;

constexpr std::size_t kLongestText = 0x7FFF;      // bytes that all readers take
constexpr std::size_t kMostBytesOfCharacter = 8;  // of one byte of UTF-8
constexpr Handle kRecordsOfBlock = 3;

Version VersionOf(const CadSave& how) {
  return how.version == TCAD_DWG_R14 ? Version::kR14 : Version::k2000;
}

bool HasRoom(std::string_view utf8) {
  return utf8.size() * kMostBytesOfCharacter <= kLongestText ||
         MultiText(utf8).size() <= kLongestText;
}

bool Fits(const cad::Shape& shape) {
  if (const auto* const text = std::get_if<cad::TextShape>(&shape)) return HasRoom(text->text);
  const auto* const insert = std::get_if<cad::InsertShape>(&shape);
  return insert == nullptr ||
         std::all_of(insert->attributes.begin(), insert->attributes.end(),
                     [](const auto& it) { return HasRoom(it.text) && HasRoom(it.tag); });
}

cad_writer::PlanRules RulesOf(Version version) {
  const bool isLong = version == Version::k2000;
  return {isLong ? cad_writer::NameRule::kLong : cad_writer::NameRule::kShort, &PlainText, &Fits};
}

}  // namespace

FilePlan::FilePlan(const CadSave& how, const CTcadEng& engine)
    : cad_writer::Plan(how, engine, RulesOf(VersionOf(how))), version_(VersionOf(how)) {}

BlockHandles FilePlan::HandlesOf(const cad_writer::PlannedBlock& block) const {
  const Handle record = fixed::kFirstOfOwn + Layers().size() - 1 + kRecordsOfBlock * block.rank;
  return {record, record + 1, record + 2};
}

Handle FilePlan::FirstEntity() const {
  return fixed::kFirstOfOwn + Layers().size() - 1 + kRecordsOfBlock * BlockOrder().size();
}

std::string PlainText(std::string_view utf8) {
  std::string bytes;
  cad_writer::AppendText(bytes, utf8, TextForm::kPlain);
  return bytes;
}

std::string MultiText(std::string_view utf8) {
  std::string bytes;
  cad_writer::LineSplitter splitter(utf8);
  std::string_view line;
  for (bool isFirst = true; splitter.Next(line); isFirst = false) {
    if (!isFirst) bytes += "\\P";
    cad_writer::AppendText(bytes, line, TextForm::kMultiLine);
  }
  return bytes;
}

}  // namespace dwg
