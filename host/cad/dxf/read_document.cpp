#include "host/cad/dxf/read_document.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "platform/code_page.h"
#include "services/translate.h"

namespace dxf_reader {
namespace {

// Of a block.
constexpr int kInOtherFile = 4 | 8;
// Of a layer.
constexpr int kFrozen = 1;
constexpr int kLocked = 4;
constexpr int kWhite = 7;

LayerState StateOf(const Fields& layer) {
  const int color = layer.Whole(62, kWhite);
  return {color >= 0 && !layer.HasFlag(70, kFrozen), layer.HasFlag(70, kLocked), std::abs(color)};
}

}  // namespace

using D = DocumentReader;
const DocumentReader::Section DocumentReader::kSections[] = {
    {"HEADER", &D::ReadHeader},
    {"TABLES", &D::ReadTables},
    {"BLOCKS", &D::ReadBlocks},
    {"ENTITIES", &D::ReadEntities},
};

void DocumentReader::Read() {
  if (pairs_.HasByteOrderMark()) context_.text.SetUtf8();
  if (!pairs_.Next()) pairs_.FailAsNoDxf();
  if (!pairs_.Is(0, "SECTION") && !pairs_.Is(0, "EOF")) pairs_.FailAsNoDxf();
  while (GoToSection()) ReadSection();
  entities_.AddWaiting();
}

// False at the end of the drawing. Without the mark that ends a file, one cannot know whether more
// sections were there.
bool DocumentReader::GoToSection() {
  while (!pairs_.Is(0, "SECTION")) {
    if (pairs_.Is(0, "EOF")) return false;
    if (!pairs_.Is(0, "ENDSEC")) pairs_.Fail(Xlate("a section must begin here"));
    if (!pairs_.Next()) {
      context_.notes.Add(Xlate("the file has no end mark, so parts of it may be missing"));
      return false;
    }
  }
  return true;
}

void DocumentReader::ReadSection() {
  pairs_.Advance();
  if (pairs_.Code() != 2) pairs_.Fail(Xlate("the section has no name"));
  const std::string_view name = pairs_.Text();
  const Section* const section =
      std::find_if(std::begin(kSections), std::end(kSections),
                   [&](const Section& each) { return each.name == name; });
  pairs_.Advance();
  if (section != std::end(kSections)) (this->*section->read)();
  while (!IsAtSectionEnd()) pairs_.Advance();
}

bool DocumentReader::IsAtSectionEnd() const {
  return pairs_.Is(0, "ENDSEC") || pairs_.Is(0, "EOF") || pairs_.Is(0, "SECTION");
}

void DocumentReader::ReadHeader() {
  std::string name;
  for (; pairs_.Code() != 0; pairs_.Advance()) {
    if (pairs_.Code() == 9) {
      name = pairs_.Text();
    } else {
      TakeVariable(name);
    }
  }
}

void DocumentReader::TakeVariable(std::string_view name) {
  if (name == "$ACADVER") {
    context_.text.SetVersion(pairs_.Text());
  } else if (name == "$DWGCODEPAGE" && !context_.text.SetCodePage(pairs_.Text())) {
    std::string page;
    platform::AppendUtf8FromCodePage(page, pairs_.Text().substr(0, 40));
    context_.notes.Add(Fill(Xlate("code page \"{1}\" is not known; Windows-1252 is assumed"),
                            {tdk::WString(page)}));
  }
}

// Records of layers stand in their own table only.
void DocumentReader::ReadTables() {
  while (!IsAtSectionEnd()) {
    if (pairs_.Is(0, "LAYER")) {
      record_.Read(pairs_);
      context_.layers.Take(record_.Text(2), StateOf(record_));
      record_.Looks().CountInto(context_.notes);
    } else {
      pairs_.Advance();
    }
  }
}

void DocumentReader::ReadBlocks() {
  while (!IsAtSectionEnd()) {
    if (pairs_.Is(0, "BLOCK")) {
      ReadBlock();
    } else {
      pairs_.Advance();
    }
  }
  context_.blocks.Deliver();
}

void DocumentReader::ReadBlock() {
  record_.Read(pairs_);
  const BlockKind kind = KindOf(record_.Text(2));
  if (kind == BlockKind::kModelSpace) {
    entities_.ReadIntoEngine();
  } else if (kind == BlockKind::kPaperSpace) {
    entities_.ReadPaper();
  } else {
    if (record_.HasFlag(70, kInOtherFile)) context_.notes.CountNotRead("XREF");
    const int id = context_.blocks.IdOf(record_.Text(2));
    cad::Block block;
    block.name = context_.text.Name(record_.Text(2));
    block.base = record_.PointAt(10);
    entities_.ReadIntoBlock(block);
    context_.blocks.Define(id, std::move(block));
  }
}

void DocumentReader::ReadEntities() {
  // What stands before the first entity is nothing that is known.
  while (pairs_.Code() != 0) pairs_.Advance();
  entities_.ReadIntoEngine();
}

}  // namespace dxf_reader
