#include "host/cad/reading/notes.h"

#include "platform/code_page.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace cad_reader {
namespace {

constexpr std::size_t kMostKinds = 50;
constexpr std::size_t kLongestKind = 40;

// In the order of the notes; {1} is how many.
constexpr const char* kTexts[] = {
    ToXlate("entities of the paper space are left out ({1})"),
    ToXlate("invisible entities are left out ({1})"),
    ToXlate("layers and entities whose lines are dashed or the like become continuous ({1})"),
    ToXlate("layers and entities lose thickness, width, line weight, true colour or text style "
            "({1})"),
    ToXlate("splines became lines of points ({1})"),
    ToXlate("circles, ellipses and arcs that do not lie flat became lines of points ({1})"),
    ToXlate("texts that do not lie flat are laid flat ({1})"),
    ToXlate("inserts that do not lie flat are laid flat ({1})"),
    ToXlate("inserts of blocks that are not in the file are left out ({1})"),
    ToXlate("inserts of blocks that contain themselves are left out ({1})"),
    ToXlate("inserts that are nested too deep are left out ({1})"),
    ToXlate("inserts in rows and columns beyond the largest number are left out ({1})"),
    ToXlate("blocks whose names are taken stay as they are in the drawing ({1})"),
    ToXlate("faces of points that are not there are left out ({1})"),
    ToXlate("entities whose numbers make no shape are left out ({1})"),
    ToXlate("entities whose layer is not in the file lie on layer 0 ({1})"),
    ToXlate("entities whose owner is not in the file are left out ({1})"),
    ToXlate("damaged records are left out ({1})"),
    ToXlate("checksums do not fit, so that values may be wrong ({1})"),
};
static_assert(std::size(kTexts) == static_cast<std::size_t>(Note::kCount));

tdk::WString InWords(std::uint64_t number) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(number));
  return tdk::WString(text);
}

}  // namespace

void Notes::CountNotRead(std::string_view kind) {
  auto found = notRead_.find(kind);
  if (found == notRead_.end()) {
    if (notRead_.size() >= kMostKinds || kind.size() > kLongestKind) {
      ++otherKinds_;
      return;
    }
    found = notRead_.emplace(kind, 0).first;
  }
  ++found->second;
}

std::vector<tdk::WString> Notes::Lines() const {
  std::vector<tdk::WString> lines = lines_;
  for (const auto& [kind, count] : notRead_) {
    std::string name;
    platform::AppendUtf8FromCodePage(name, kind);
    lines.push_back(Fill(Xlate("{1} is not read ({2})"), {tdk::WString(name), InWords(count)}));
  }
  if (otherKinds_ > 0) {
    lines.push_back(
        Fill(Xlate("other kinds of entities are not read ({1})"), {InWords(otherKinds_)}));
  }
  for (std::size_t i = 0; i < counts_.size(); ++i) {
    if (counts_[i] > 0) lines.push_back(Fill(Xlate(kTexts[i]), {InWords(counts_[i])}));
  }
  return lines;
}

}  // namespace cad_reader
