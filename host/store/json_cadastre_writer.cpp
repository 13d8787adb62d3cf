#include "host/store/json_cadastre_writer.h"

#include "host/store/cadastre_records.h"

namespace {

std::string TextList(const std::vector<std::string>& texts) {
  std::string list = "[";
  for (const std::string& text : texts) {
    if (list.size() > 1) list += ", ";
    AppendJson(list, text);
  }
  return list += ']';
}

template <class List, class WriteElement>
void WriteList(JsonWriter& json, std::string_view key, const List& list,
               const WriteElement& writeElement) {
  json.NextMember(key);
  json.BeginList();
  for (const auto& element : list) writeElement(element);
  json.EndList();
}

}  // namespace

void WriteCadastreJson(JsonWriter& json, const CCts& cadastre) {
  if (cadastre.IsEmpty()) return;
  const cadastre::Survey& survey = cadastre.Survey();
  json.NextMember("cadastral");
  json.BeginObject();
  json.WriteMembers(CadastreRecord{survey.heading});
  json.WriteRawMember("parcels", TextList(survey.parcels));
  WriteList(json, "traverses", survey.traverses,
            [&](const auto& traverse) { json.WriteRawElement(TextList(traverse)); });
  const auto all = [](std::string_view) { return true; };
  WriteList(json, "contours", survey.contours, [&](const cadastre::Contour& contour) {
    json.WriteLine(ContourLineRecord{contour.type}, all,
                   ", \"points\": " + TextList(contour.points));
  });
  WriteList(json, "fiducials", survey.fiducials,
            [&](const cadastre::Fiducial& point) { json.WriteLine(FiducialRecord{point}); });
  json.EndObject();
}
