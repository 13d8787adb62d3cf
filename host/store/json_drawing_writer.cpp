#include "host/store/json_drawing_writer.h"

namespace {

// Appends a list of what `append` writes of each element.
template <class List, class Append>
void AppendList(std::string& text, const List& list, const Append& append) {
  text += '[';
  bool isFirst = true;
  for (const auto& element : list) {
    if (!isFirst) text += ", ";
    isFirst = false;
    append(element);
  }
  text += ']';
}

// Unlike a list of a field, one of which nothing is defined is no null.
void AppendPoints(std::string& text, const std::vector<cad::Point>& points) {
  AppendList(text, points, [&](const cad::Point& point) {
    AppendList(text, Parts(point), [&](double part) { AppendJson(text, part); });
  });
}

void AppendAttributes(std::string& text, const std::vector<cad::Attribute>& attributes) {
  text += '{';
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    if (i > 0) text += ", ";
    AppendJson(text, attributes[i].tag);
    text += ": ";
    AppendJson(text, attributes[i].text);
  }
  text += '}';
}

bool TypeHasPoints(std::string_view type) {
  return type == "polyline" || type == "face" || type == "solid";
}

// The members that are lists.
std::string ListsOf(const EntityRecord& record) {
  std::string text;
  if (TypeHasPoints(record.type)) {
    text += ", \"points\": ";
    AppendPoints(text, record.points);
  }
  if (!record.bulges.empty()) {
    text += ", \"bulges\": ";
    AppendList(text, record.bulges, [&](double bulge) { AppendJson(text, bulge); });
  }
  if (!record.attributes.empty()) {
    text += ", \"attributes\": ";
    AppendAttributes(text, record.attributes);
  }
  return text;
}

}  // namespace

void JsonDrawingWriter::Write() {
  if (!HasDrawing(engine_)) return;
  json_.NextMember("drawing");
  json_.BeginObject();
  WriteLayers();
  json_.NextMember("blocks");
  json_.BeginList();
  for (const cad::Block& block : engine_.Blocks()) {
    if (!block.isPrivate) WriteBlock(block);
  }
  json_.EndList();
  WriteEntities(engine_.Entities());
  json_.EndObject();
}

void JsonDrawingWriter::WriteLayers() {
  json_.NextMember("layers");
  json_.BeginList();
  for (int id = 1; id <= engine_.GetNoDrawings(); ++id) json_.WriteLine(LayerOf(engine_, id));
  json_.EndList();
}

void JsonDrawingWriter::WriteBlock(const cad::Block& block) {
  json_.NextElement();
  json_.BeginObject();
  json_.WriteMembers(RecordOf(block));
  if (!block.attributes.empty()) {
    json_.NextMember("attributes");
    json_.BeginList();
    for (const cad::AttributeDefinition& definition : block.attributes) {
      json_.WriteLine(RecordOf(definition));
    }
    json_.EndList();
  }
  WriteEntities(block.entities);
  json_.EndObject();
}

void JsonDrawingWriter::WriteEntities(const std::vector<cad::Entity>& entities) {
  json_.NextMember("entities");
  json_.BeginList();
  for (const cad::Entity& entity : entities) {
    if (IsStored(engine_, entity)) WriteEntity(entity);
  }
  json_.EndList();
}

void JsonDrawingWriter::WriteEntity(const cad::Entity& entity) {
  const EntityRecord record = RecordOf(engine_, entity);
  const bool hasColor = record.color != cad::kByLayer;
  const auto wants = [&](std::string_view key) {
    return key == "color" ? hasColor : EntityHas(record.type, key);
  };
  json_.WriteLine(record, wants, ListsOf(record));
  progress_.Step();
}
