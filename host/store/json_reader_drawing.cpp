// What becomes of the drawing of a JSON job.
#include "host/store/json_reader.h"

namespace {

constexpr double kFullTurn = 360;

}  // namespace

// The shape of the drawing, from the inside out.
struct JsonJobReader::DrawingLevels {
  using R = JsonJobReader;
  static constexpr Form kList = Form::kListOfObjects;
  static constexpr Form kLists = Form::kListOfLists;

  static constexpr Level kPoint[] = {{"", Form::kRow, nullptr, nullptr, &R::EndEntityPoint, {}, 3}};
  static constexpr Level kEntity[] = {
      {"points", kLists, nullptr, nullptr, nullptr, kPoint},
      {"bulges", Form::kNumbers, nullptr, nullptr, &R::EndBulge},
      {"attributes", Form::kObject, &R::SelectAttribute, nullptr, nullptr}};
  static constexpr Level kBlock[] = {
      {"attributes", kList, &R::Select<&R::definition_>, &R::BeginDefinition, &R::EndDefinition},
      {"entities", kList, &R::SelectEntity, &R::BeginEntity, &R::EndEntityOfBlock, kEntity}};
};

constinit const JsonJobReader::Level JsonJobReader::kDrawing[3] = {
    {"layers", DrawingLevels::kList, &JsonJobReader::Select<&JsonJobReader::layer_>,
     &JsonJobReader::BeginLayer, &JsonJobReader::EndLayer},
    {"blocks", DrawingLevels::kList, &JsonJobReader::Select<&JsonJobReader::blockRecord_>,
     &JsonJobReader::BeginBlock, &JsonJobReader::EndBlock, DrawingLevels::kBlock},
    {"entities", DrawingLevels::kList, &JsonJobReader::SelectEntity, &JsonJobReader::BeginEntity,
     &JsonJobReader::EndEntity, DrawingLevels::kEntity}};

JsonJobReader::Slot JsonJobReader::SelectEntity(std::string_view key) {
  endIsGiven_ = endIsGiven_ || key == "end";
  return Select<&JsonJobReader::entity_>(key);
}

// The keys are the tags.
JsonJobReader::Slot JsonJobReader::SelectAttribute(std::string_view key) {
  entity_.attributes.push_back({std::string(key), {}});
  return &entity_.attributes.back().text;
}

void JsonJobReader::EndLayer() {
  if (drawing_.AddLayer(layer_)) return;
  place_.SetKey("name");
  Fail("there is a layer of that name already");
}

void JsonJobReader::BeginBlock() {
  blockRecord_ = {};
  block_ = {};
}

void JsonJobReader::EndBlock() {
  block_.name = blockRecord_.name;
  block_.base = PointOf(blockRecord_.at);
  if (drawing_.AddBlock(std::move(block_))) return;
  place_.SetKey("name");
  Fail("there is a block of that name already");
}

void JsonJobReader::BeginEntity() {
  entity_.Reset();
  endIsGiven_ = false;
}

cad::Entity JsonJobReader::MadeEntity() {
  if (!endIsGiven_ && entity_.type == "ellipse") entity_.end = kFullTurn;
  cad::Entity entity;
  if (const std::optional<EntityTrouble> trouble = drawing_.Make(entity_, entity)) {
    place_.SetKey(trouble->key);
    Fail("expected " + trouble->expected);
  }
  if (drawing_.InsertedBlocks().size() > blockPlaces_.size()) {
    place_.SetKey("block");
    blockPlaces_.push_back(place_.Text());
  }
  CountPoint();
  return entity;
}

// Blocks may be listed after what they are inserted in.
void JsonJobReader::FinishDrawing() {
  const std::optional<std::size_t> missing = drawing_.Finish();
  if (!missing) return;
  const std::string& name = drawing_.InsertedBlocks()[*missing];
  throw JobError(path_ + ": " + blockPlaces_[*missing] + ": there is no block " + InWords(&name));
}
