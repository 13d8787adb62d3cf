#include "host/cad/dwg/read_drawing.h"

#include <algorithm>
#include <iterator>

#include "platform/code_page.h"
#include "platform/numbers.h"

namespace dwg {
namespace {

using cad_reader::BlockKind;
using cad_reader::Note;

struct CodePageName {
  unsigned number;
  const char* name;
};
// As headers number them, and as text files name them.
constexpr CodePageName kCodePages[] = {
    {2, "ISO8859-1"},  {3, "ISO8859-2"},  {4, "ISO8859-3"},  {5, "ISO8859-4"},  {6, "ISO8859-5"},
    {7, "ISO8859-6"},  {8, "ISO8859-7"},  {9, "ISO8859-8"},  {10, "ISO8859-9"}, {11, "DOS437"},
    {12, "DOS850"},    {13, "DOS852"},    {14, "DOS855"},    {15, "DOS857"},    {16, "DOS860"},
    {17, "DOS861"},    {18, "DOS863"},    {19, "DOS864"},    {20, "DOS865"},    {21, "DOS869"},
    {22, "DOS932"},    {23, "MACINTOSH"}, {24, "BIG5"},      {25, "KSC5601"},   {26, "JOHAB"},
    {27, "DOS866"},    {28, "ANSI_1250"}, {29, "ANSI_1251"}, {30, "ANSI_1252"}, {31, "GB2312"},
    {32, "ANSI_1253"}, {33, "ANSI_1254"}, {34, "ANSI_1255"}, {35, "ANSI_1256"}, {36, "ANSI_1257"},
    {37, "ANSI_874"},  {38, "ANSI_932"},  {39, "ANSI_936"},  {40, "ANSI_949"},  {41, "ANSI_950"},
    {42, "ANSI_1361"}, {44, "ANSI_1258"}};
constexpr unsigned kAscii = 1;

bool IsPartOrMark(unsigned type) {
  return type == kAttribute || type == kSequenceEnd || type == kBlockBegin || type == kBlockEnd ||
         (type >= kFlatVertex && type <= kPolyfaceFace);
}

}  // namespace

using R = DrawingReader;
const DrawingReader::Rule DrawingReader::kRules[] = {
    {kText, &R::TakeText},
    {kPoint, &R::TakePoint},
    {kLine, &R::TakeLine},
    {kLightPolyline, &R::TakeLightPolyline},
    {kFlatPolyline, &R::TakeFlatPolyline},
    {kSpacePolyline, &R::TakeSpacePolyline},
    {kInsert, &R::TakeInsert},
    {kFace, &R::TakeFace},
    {kArc, &R::TakeArc},
    {kCircle, &R::TakeCircle},
    {kMultiText, &R::TakeMultiText},
    {kSolid, &R::TakeSolid},
    {kTrace, &R::TakeSolid},
    {kEllipse, &R::TakeEllipse},
    {kSpline, &R::TakeSpline},
    {kMesh, &R::TakeMesh},
    {kPolyface, &R::TakePolyface},
    {kInsertArray, &R::TakeInsertArray},
    {kAttributeDefinition, &R::TakeDefinition},
};

DrawingReader::DrawingReader(File& file, CTcadEng& engine, cad_reader::Notes& notes)
    : file_(file),
      engine_(engine),
      notes_(notes),
      layers_(engine, text_),
      blockTable_(engine, text_, notes),
      sink_(engine, blockTable_, notes),
      index_(file, notes) {}

void DrawingReader::Read() {
  SetCodePage();
  ReadTables();
  ProgressSteps progress(index_.Records().size());
  ReadEntities(/*isModel=*/false, progress);
  for (auto& [handle, each] : blocks_) {
    if (each.id >= 0) blockTable_.Define(each.id, std::move(each.block));
  }
  blockTable_.Deliver();
  ReadEntities(/*isModel=*/true, progress);
  sink_.AddWaiting();
}

void DrawingReader::SetCodePage() {
  text_.SetPlainCarets();
  const unsigned number = file_.CodePage();
  if (number <= kAscii) return;
  const auto* const found = std::find_if(std::begin(kCodePages), std::end(kCodePages),
                                         [&](const auto& each) { return each.number == number; });
  if (found != std::end(kCodePages) && text_.SetCodePage(found->name)) return;
  std::string words;
  platform::AppendWhole(words, number);
  notes_.Add(Fill(Xlate("code page \"{1}\" is not known; Windows-1252 is assumed"),
                  {tdk::WString(words)}));
}

// ---- Tables ----

void DrawingReader::ReadTables() {
  ReadAll(kLayer, &DrawingReader::ReadLayer);
  ReadAll(kBlockBegin, &DrawingReader::ReadBlockName);
  ReadAll(kBlockRecord, &DrawingReader::ReadBlock);
}

void DrawingReader::ReadAll(Type type, void (DrawingReader::*read)(OpenRecord& open)) {
  for (const IndexedRecord& record : index_.Records()) {
    if (record.type != type) continue;
    try {
      OpenRecord open = index_.Open(record);
      (this->*read)(open);
    } catch (const Damage& damage) {
      index_.TellDamage(record, damage);
    }
  }
}

void DrawingReader::ReadLayer(OpenRecord& open) {
  TakeRecord<ObjectHead>(open);
  const auto record = TakeRecord<LayerRecord>(open);
  const int color = static_cast<std::int16_t>(record.color);
  drawings_[open.own] = layers_.Take(record.name, {!record.isOff && !record.isFrozen && color >= 0,
                                                   record.isLocked, color < 0 ? -color : color});
  cad_reader::LostLooks looks;
  looks.TakeLineType(NameOf(record.lineType, kLineType));
  looks.TakeLineWeight(WeightOf(record.lineWeight));
  looks.CountInto(notes_);
}

void DrawingReader::ReadBlock(OpenRecord& open) {
  TakeRecord<ObjectHead>(open);
  const auto record = TakeRecord<BlockRecord>(open);
  const auto named = blockNames_.find(open.own);
  const std::string& name = named == blockNames_.end() ? record.name : named->second;
  FileBlock& block = blocks_[open.own];
  block.kind = cad_reader::KindOf(name);
  if (block.kind != BlockKind::kUser) return;
  if (record.isOtherFile || record.isOverlaid) notes_.CountNotRead("XREF");
  block.id = blockTable_.IdOf(name);
  block.block.name = text_.Name(name);
  if (cad_reader::IsFinite(cad::Point(record.base))) {
    block.block.base = record.base;
  } else {
    notes_.Count(Note::kNoShape);
  }
}

// Records of nameless blocks have only the beginning of the name.
void DrawingReader::ReadBlockName(OpenRecord& open) {
  const auto head = TakeRecord<EntityHead>(open);
  auto name = TakeRecord<BlockBeginRecord>(open).name;
  if (head.space == Space::kOwner && !name.empty()) {
    blockNames_.emplace(head.owner, std::move(name));
  }
}

// ---- Entities ----

void DrawingReader::ReadEntities(bool isModel, ProgressSteps& progress) {
  const auto isWanted = [&](const IndexedRecord& record) {
    return record.isEntity && !IsPartOrMark(record.type) &&
           (record.space == Space::kOwner) != isModel;
  };
  const auto records = index_.Records();
  if (isModel) {
    const auto count = std::count_if(records.begin(), records.end(), isWanted);
    engine_.Reserve(engine_.Entities().size() + static_cast<std::size_t>(count));
  }
  for (const IndexedRecord& record : records) {
    if (!isWanted(record)) continue;
    progress.Step();
    try {
      ReadEntity(record);
    } catch (const Damage& damage) {
      index_.TellDamage(record, damage);
    }
  }
}

void DrawingReader::ReadEntity(const IndexedRecord& record) {
  OpenRecord open = index_.Open(record);
  const auto head = TakeRecord<EntityHead>(open);
  if (!Aim(head)) return;
  const std::uint16_t color = head.color <= cad::kByLayer ? head.color : cad::kByLayer;
  sink_.SetLook(DrawingOf(head.layer), color);
  TakeLooks(head);
  Take(record.type, open);
}

bool DrawingReader::Aim(const EntityHead& head) {
  cad::Block* target = nullptr;
  bool isPaper = head.space == Space::kPaper;
  if (head.space == Space::kOwner) {
    const auto found = blocks_.find(head.owner);
    if (found == blocks_.end()) {
      notes_.Count(Note::kNoOwner);
      return false;
    }
    isPaper = found->second.kind == BlockKind::kPaperSpace;
    if (found->second.kind == BlockKind::kUser) target = &found->second.block;
  }
  const bool isInvisible = (head.invisible & 1) != 0;
  if (isPaper) notes_.Count(Note::kPaperSpace);
  if (!isPaper && isInvisible) notes_.Count(Note::kInvisible);
  sink_.Into(target);
  return !isPaper && !isInvisible;
}

int DrawingReader::DrawingOf(Handle layer) {
  if (layer == lastLayer_) return lastDrawing_;
  const auto found = drawings_.find(layer);
  if (found == drawings_.end()) {
    notes_.Count(Note::kNoLayer);
    return 1;
  }
  lastLayer_ = layer;
  lastDrawing_ = found->second;
  return lastDrawing_;
}

void DrawingReader::Take(unsigned type, OpenRecord& open) {
  const Rule* const rule = std::find_if(std::begin(kRules), std::end(kRules),
                                        [&](const Rule& each) { return each.type == type; });
  if (rule == std::end(kRules)) {
    notes_.CountNotRead(index_.NameOf(type));
    return;
  }
  (this->*rule->take)(open);
  looks_.CountInto(notes_);
}

}  // namespace dwg
