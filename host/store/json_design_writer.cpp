#include "host/store/json_design_writer.h"

#include "host/store/road_records.h"

namespace {

std::array<double, 3> Row(const tdk::geom::PNT_3D& point) {
  return {point.getX(), point.getY(), point.getZ()};
}

std::string CurveMember(const TAltiVrt& vertex) {
  if (!vertex.curve) return {};
  std::string member = ", \"curve\": {\"start\": ";
  AppendJson(member, vertex.curve->start);
  member += ", \"end\": ";
  AppendJson(member, vertex.curve->end);
  return member += '}';
}

}  // namespace

template <class WriteElement>
void JsonDesignWriter::WriteList(std::string_view key, int size, const WriteElement& writeElement) {
  json_.NextMember(key);
  json_.BeginList();
  for (int i = 0; i < size; ++i) writeElement(i);
  json_.EndList();
}

void JsonDesignWriter::Write(HostDocument& document) {
  const CLibDtm& models = *document.GetLibDtm();
  WriteList("terrain", models.GetPrjArSize(), [&](int i) { WriteModel(*models.GetPrjAt(i)); });
  const CLibRoad& roads = *document.GetLibRoad();
  WriteList("roads", roads.GetRoadArSize(), [&](int i) { WriteRoad(*roads.GetRoadAt(i)); });
}

void JsonDesignWriter::WriteModel(const CDtmPrj& model) {
  json_.NextElement();
  json_.BeginObject();
  json_.WriteMembers(TerrainRecord{model.GetName().ToUtf8()});
  WriteContours("outer", model.GetOuterCnts());
  WriteContours("islands", model.GetIslandCnts());
  const CVncs& breaklines = model.GetVncs();
  WriteList("breaklines", breaklines.GetNoVncs(), [&](int i) {
    const tdk::geom::LINE_3D& line = breaklines.GetVncAt(i).GetCoords();
    json_.NextElement();
    json_.BeginList();
    json_.WriteRow(Row(line.getStart()));
    json_.WriteRow(Row(line.getEnd()));
    json_.EndList();
  });
  WriteTriangulation(model.GetTris());
  json_.EndObject();
}

void JsonDesignWriter::WriteContours(std::string_view key, const CCnts& contours) {
  WriteList(key, contours.GetNoCnts(), [&](int i) {
    const CCnt& contour = contours.GetCntAt(i);
    json_.NextElement();
    json_.BeginList();
    for (int v = 0; v < contour.GetNoVrts(); ++v) json_.WriteRow(Row(contour.GetVrt(v)));
    json_.EndList();
  });
}

void JsonDesignWriter::WriteTriangulation(const CTris& triangulation) {
  WriteList("vertices", triangulation.GetNoTriVrts(), [&](int i) {
    json_.WriteRow(Row(triangulation.GetTriVrtAt(i)));
    progress_.Step();
  });
  WriteList("triangles", triangulation.GetNoTris(), [&](int i) {
    const CTri& triangle = triangulation.GetTriAt(i);
    json_.WriteRow(std::array<int, 3>{triangle.GetVerIndex(0), triangle.GetVerIndex(1),
                                      triangle.GetVerIndex(2)});
    progress_.Step();
  });
}

void JsonDesignWriter::WriteRoad(const CRoad& road) {
  json_.NextElement();
  json_.BeginObject();
  json_.WriteMembers(RecordOf(road));
  std::vector<const CPlaniElem*> elements;
  road.RetrieveLinkedPlaniElems(elements);
  WriteList("elements", static_cast<int>(elements.size()), [&](int i) {
    const ElementRecord record = RecordOf(*elements[static_cast<std::size_t>(i)]);
    json_.WriteLine(record, [&](std::string_view key) { return ElementHas(record.type, key); });
  });
  json_.NextMember("profile");
  json_.BeginObject();
  WriteProfile(*road.GetRoadProfile());
  json_.EndObject();
  json_.EndObject();
}

void JsonDesignWriter::WriteProfile(const CProfile& profile) {
  if (const CProfileAlti* const main = profile.GetMainPrjAlti()) {
    json_.NextMember("main");
    json_.BeginObject();
    WriteVertices(*main);
    json_.EndObject();
  }
  const auto& codes = profile.GetLibProfile()->Codes();
  WriteList("codes", static_cast<int>(codes.size()), [&](int i) {
    const TProfileAltiCode& code = codes[static_cast<std::size_t>(i)];
    json_.WriteLine(CodeRecord{code.code, code.name.ToUtf8()});
  });
  WriteList("sections", profile.GetNumSections(),
            [&](int i) { WriteSection(profile.GetSection(i)); });
}

void JsonDesignWriter::WriteSection(const CProfile& section) {
  json_.NextElement();
  json_.BeginObject();
  json_.WriteMembers(RecordOf(section));
  WriteList("terrain", section.GetNumTerrVrts(), [&](int i) {
    const TAltiVrt& vertex = section.GetTerrVrt(i);
    json_.WriteRow(std::array<double, 2>{vertex.distance, vertex.height});
  });
  WriteList("lines", section.GetNumProfileAlti(), [&](int i) {
    const CProfileAlti& line = section.GetProfileAlti(i);
    json_.NextElement();
    json_.BeginObject();
    json_.WriteMembers(LineRecord{line.GetCode(), line.IsTerr()});
    WriteVertices(line);
    json_.EndObject();
  });
  json_.EndObject();
}

void JsonDesignWriter::WriteVertices(const CProfileAlti& line) {
  WriteList("vertices", line.GetNumVrts(), [&](int i) {
    const TAltiVrt& vertex = line.GetVrt(i);
    json_.WriteLine(
        RecordOf(vertex), [](std::string_view) { return true; }, CurveMember(vertex));
  });
}
