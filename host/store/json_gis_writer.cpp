#include "host/store/json_gis_writer.h"

#include "host/store/gis_records.h"

namespace {

void AppendVertex(std::string& text, const gis::Vertex& vertex) {
  std::string_view before = "[";
  for (const double number : {vertex.x, vertex.y, vertex.z}) {
    text += before;
    AppendJson(text, number);
    before = ", ";
  }
  if (IsDefined(vertex.m)) {
    text += before;
    AppendJson(text, vertex.m);
  }
  text += ']';
}

void AppendParts(std::string& text, const gis::CTheme& theme, int feature) {
  text += '[';
  for (int part = 0; part < theme.GetNumParts(feature); ++part) {
    text += part == 0 ? "[" : ", [";
    const gis::VertexRange vertices = theme.GetPart(feature, part);
    for (std::size_t v = vertices.first; v < vertices.last; ++v) {
      if (v != vertices.first) text += ", ";
      AppendVertex(text, theme.GetVertex(v));
    }
    text += ']';
  }
  text += ']';
}

void AppendValue(std::string& text, const gis::Value& value) {
  if (gis::IsNull(value)) text += "null";
  if (const auto* given = std::get_if<std::string_view>(&value)) {
    AppendJson(text, std::string(*given));
  }
  if (const auto* whole = std::get_if<std::int64_t>(&value)) AppendJson(text, *whole);
  if (const auto* real = std::get_if<double>(&value)) AppendJson(text, *real);
  if (const auto* date = std::get_if<gis::Date>(&value)) AppendJson(text, DateText(*date));
  if (const auto* flag = std::get_if<bool>(&value)) AppendJson(text, *flag);
}

// What most themes have not is left out.
bool IsWritten(const ThemeRecord& record, std::string_view key) {
  if (key == "table") return !record.table.empty();
  if (key == "referenceSystem") return !record.referenceSystem.empty();
  return key != "targetDrawing" || record.targetDrawing != 0;
}

}  // namespace

void JsonGisWriter::Write() {
  if (library_.GetNumThemes() == 0) return;
  json_.NextMember("gis");
  json_.BeginObject();
  json_.NextMember("themes");
  json_.BeginList();
  for (int i = 0; i < library_.GetNumThemes(); ++i) WriteTheme(*library_.GetTheme(i));
  json_.EndList();
  json_.EndObject();
}

void JsonGisWriter::WriteTheme(const gis::CTheme& theme) {
  json_.NextElement();
  json_.BeginObject();
  const ThemeRecord record = RecordOf(library_, theme);
  ForEachField<ThemeRecord>([&](const auto& field) {
    if (IsWritten(record, field.key)) json_.WriteMember(field.key, record.*field.member);
  });
  json_.NextMember("fields");
  json_.BeginList();
  const gis::CTable* const table = theme.GetTable();
  for (int i = 0; table != nullptr && i < table->GetNumFields(); ++i) {
    json_.WriteLine(RecordOf(table->GetField(i)));
  }
  json_.EndList();
  json_.NextMember("features");
  json_.BeginList();
  for (int i = 0; i < theme.GetNumFeatures(); ++i) WriteFeature(theme, i);
  json_.EndList();
  json_.EndObject();
}

void JsonGisWriter::WriteFeature(const gis::CTheme& theme, int feature) {
  line_ = "{\"parts\": ";
  AppendParts(line_, theme, feature);
  line_ += ", \"values\": [";
  const gis::CTable* const table = theme.GetTable();
  for (int i = 0; table != nullptr && i < table->GetNumFields(); ++i) {
    if (i > 0) line_ += ", ";
    AppendValue(line_, table->GetValue(feature, i));
  }
  json_.WriteRawElement(line_ + "]}");
  progress_.Step();
}
