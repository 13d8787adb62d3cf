#include "host/store/folder_design.h"

#include "host/store/folder_rows.h"

namespace {

using tdk::geom::PNT_3D;

std::array<double, 3> Parts(const PNT_3D& point) {
  return {point.getX(), point.getY(), point.getZ()};
}
PNT_3D Point(const std::array<double, 3>& parts) { return {parts[0], parts[1], parts[2]}; }

StoredVertexRecord Stored(const TAltiVrt& vertex) {
  StoredVertexRecord record;
  static_cast<VertexRecord&>(record) = RecordOf(vertex);
  record.hasCurve = vertex.curve.has_value();
  if (vertex.curve) {
    record.curveStart = vertex.curve->start;
    record.curveEnd = vertex.curve->end;
  }
  return record;
}

TAltiVrt Vertex(const StoredVertexRecord& record) {
  std::optional<TRaccVert> curve;
  if (record.hasCurve) curve = TRaccVert{record.curveStart, record.curveEnd};
  return VertexOf(record, curve);
}

class TerrainWriter {
 public:
  TerrainWriter(const Database& database, PointProgress& progress)
      : models_(database, kTerrainTable),
        contours_(database, kContourTable),
        contourPoints_(database, kContourPointTable),
        breaklines_(database, kBreaklineTable),
        vertices_(database, kVertexTable),
        triangles_(database, kTriangleTable),
        progress_(progress) {}

  void Write(const CDtmPrj& model, int position) {
    models_.Add({model.GetName().ToUtf8()});
    int contour = 0;
    WriteContours(model.GetOuterCnts(), /*island=*/false, position, contour);
    WriteContours(model.GetIslandCnts(), /*island=*/true, position, contour);
    for (int i = 0; i < model.GetVncs().GetNoVncs(); ++i) {
      const tdk::geom::LINE_3D& line = model.GetVncs().GetVncAt(i).GetCoords();
      breaklines_.Add({Parts(line.getStart()), Parts(line.getEnd())}, position);
    }
    WriteTriangulation(model.GetTris(), position);
  }

 private:
  // `contour`: how many were written before, of both kinds.
  void WriteContours(const CCnts& contours, bool island, int position, int& contour) {
    for (int i = 0; i < contours.GetNoCnts(); ++i, ++contour) {
      contours_.Add({island}, position);
      const CCnt& one = contours.GetCntAt(i);
      for (int v = 0; v < one.GetNoVrts(); ++v) {
        contourPoints_.Add({Parts(one.GetVrt(v))}, position, contour);
      }
    }
  }

  void WriteTriangulation(const CTris& triangulation, int position) {
    for (int i = 0; i < triangulation.GetNoTriVrts(); ++i) {
      vertices_.Add({Parts(triangulation.GetTriVrtAt(i))}, position);
      progress_.Step();
    }
    for (int i = 0; i < triangulation.GetNoTris(); ++i) {
      const CTri& triangle = triangulation.GetTriAt(i);
      triangles_.Add({{triangle.GetVerIndex(0), triangle.GetVerIndex(1), triangle.GetVerIndex(2)}},
                     position);
      progress_.Step();
    }
  }

  Inserter<TerrainRecord> models_;
  Inserter<ContourRecord> contours_;
  Inserter<SpacePointRecord> contourPoints_;
  Inserter<BreaklineRecord> breaklines_;
  Inserter<SpacePointRecord> vertices_;
  Inserter<TriangleRecord> triangles_;
  PointProgress& progress_;
};

class RoadWriter {
 public:
  explicit RoadWriter(const Database& database)
      : roads_(database, kRoadTable),
        elements_(database, kElementTable),
        codes_(database, kCodeTable),
        sections_(database, kSectionTable),
        terrain_(database, kSectionTerrainTable),
        lines_(database, kLineTable),
        vertices_(database, kLineVertexTable) {}

  void Write(const CRoad& road, int position) {
    roads_.Add(RecordOf(road));
    std::vector<const CPlaniElem*> elements;
    road.RetrieveLinkedPlaniElems(elements);
    for (const CPlaniElem* const element : elements) elements_.Add(RecordOf(*element), position);
    for (const TProfileAltiCode& code : road.ProfileCodes().Codes()) {
      codes_.Add({code.code, code.name.ToUtf8()}, position);
    }
    const CProfile& profile = *road.GetRoadProfile();
    if (const CProfileAlti* const main = profile.GetMainPrjAlti()) {
      WriteLine(*main, position, kNoSection, 0);
    }
    for (int i = 0; i < profile.GetNumSections(); ++i) {
      WriteSection(profile.GetSection(i), position, i);
    }
  }

 private:
  void WriteSection(const CProfile& section, int road, int position) {
    sections_.Add(RecordOf(section), road);
    for (int i = 0; i < section.GetNumTerrVrts(); ++i) {
      terrain_.Add(RecordOf(section.GetTerrVrt(i)), road, position);
    }
    for (int i = 0; i < section.GetNumProfileAlti(); ++i) {
      WriteLine(section.GetProfileAlti(i), road, position, i);
    }
  }

  void WriteLine(const CProfileAlti& line, int road, int section, int position) {
    lines_.Add({line.GetCode(), line.IsTerr()}, road, section);
    for (int i = 0; i < line.GetNumVrts(); ++i) {
      vertices_.Add(Stored(line.GetVrt(i)), road, section, position);
    }
  }

  Inserter<RoadRecord> roads_;
  Inserter<ElementRecord> elements_;
  Inserter<CodeRecord> codes_;
  Inserter<SectionRecord> sections_;
  Inserter<VertexRecord> terrain_;
  Inserter<LineRecord> lines_;
  Inserter<StoredVertexRecord> vertices_;
};

// Rows name the positions of what they belong to; who finds nothing there is told.
class DesignReader {
 public:
  DesignReader(const Database& database, HostDocument& document, PointProgress& progress)
      : database_(database), document_(document), progress_(progress) {}

  void ReadTerrain() {
    CLibDtm& models = *document_.GetLibDtm();
    ForEachRow(database_, kTerrainTable, [&](const auto& row, const RowParents&) {
      Checked(models.AddPrj(false)).SetName(tdk::WString(std::string_view(row.name)));
    });
    ReadContours();
    ForEachRow(database_, kBreaklineTable, [&](const auto& row, const RowParents& parents) {
      Model(parents).GetVncs().AddVnc({Point(row.start), Point(row.end)});
    });
    ForEachRow(database_, kVertexTable, [&](const auto& row, const RowParents& parents) {
      Model(parents).GetTris().AddTriVrt(Point(row.place));
      progress_.Step();
    });
    ForEachRow(database_, kTriangleTable, [&](const auto& row, const RowParents& parents) {
      const auto& [a, b, c] = row.vertices;
      if (!Model(parents).GetTris().AddTri(a, b, c)) FailAsDamaged();
      progress_.Step();
    });
  }

  void ReadRoads() {
    CLibRoad& roads = *document_.GetLibRoad();
    ForEachRow(database_, kRoadTable, [&](const auto& row, const RowParents&) {
      Store(row, Checked(roads.AddRoad(false)));
    });
    ForEachRow(database_, kElementTable, [&](const auto& row, const RowParents& parents) {
      std::unique_ptr<CPlaniElem> element = MakeElement(row);
      Checked(element.get());
      Road(parents).AddElement(std::move(element));
    });
    ForEachRow(database_, kCodeTable, [&](const auto& row, const RowParents& parents) {
      Road(parents).ProfileCodes().AddSectionAltiCode(row.code,
                                                      tdk::WString(std::string_view(row.name)));
    });
    ForEachRow(database_, kSectionTable, [&](const auto& row, const RowParents& parents) {
      Store(row, Road(parents).GetRoadProfile()->AddSection());
    });
    ForEachRow(database_, kSectionTerrainTable, [&](const auto& row, const RowParents& parents) {
      Section(parents).AddTerrVrt(VertexOf(row, std::nullopt));
    });
    ReadLines();
  }

 private:
  void ReadContours() {
    std::vector<std::vector<CCnt*>> contours;  // of each model, in the order of their rows
    std::vector<std::vector<bool>> kinds(
        static_cast<std::size_t>(document_.GetLibDtm()->GetPrjArSize()));
    ForEachRow(database_, kContourTable, [&](const auto& row, const RowParents& parents) {
      Model(parents);
      kinds[static_cast<std::size_t>(parents[0])].push_back(row.island);
    });
    for (int model = 0; model < document_.GetLibDtm()->GetPrjArSize(); ++model) {
      contours.push_back(MadeContours(*document_.GetLibDtm()->GetPrjAt(model),
                                      kinds[static_cast<std::size_t>(model)]));
    }
    ForEachRow(database_, kContourPointTable, [&](const auto& row, const RowParents& parents) {
      Model(parents);
      const auto& ofModel = contours[static_cast<std::size_t>(parents[0])];
      if (parents[1] < 0 || static_cast<std::size_t>(parents[1]) >= ofModel.size()) FailAsDamaged();
      ofModel[static_cast<std::size_t>(parents[1])]->AddVrt(Point(row.place));
    });
  }

  // All contours of a model, empty. They stay where they are once all are there.
  static std::vector<CCnt*> MadeContours(CDtmPrj& model, const std::vector<bool>& areIslands) {
    for (const bool isIsland : areIslands) {
      (isIsland ? model.GetIslandCnts() : model.GetOuterCnts()).AddCnt();
    }
    std::vector<CCnt*> made;
    int outer = 0;
    int islands = 0;
    for (const bool isIsland : areIslands) {
      made.push_back(isIsland ? &model.GetIslandCnts().GetCntAt(islands++)
                              : &model.GetOuterCnts().GetCntAt(outer++));
    }
    return made;
  }

  void ReadLines() {
    ForEachRow(database_, kLineTable, [&](const auto& row, const RowParents& parents) {
      if (parents[1] == kNoSection) {
        Road(parents).GetRoadProfile()->MakeMainPrjAlti();
      } else {
        Section(parents).AddProfileAlti(row.code, row.terrain);
      }
    });
    ForEachRow(database_, kLineVertexTable, [&](const auto& row, const RowParents& parents) {
      Line(parents).AddVrt(Vertex(row));
    });
  }

  CDtmPrj& Model(const RowParents& parents) {
    return Checked(document_.GetLibDtm()->GetPrjAt(parents[0]));
  }
  CRoad& Road(const RowParents& parents) {
    return Checked(document_.GetLibRoad()->GetRoadAt(parents[0]));
  }
  CProfile& Section(const RowParents& parents) {
    const CProfile& profile = *Road(parents).GetRoadProfile();
    if (parents[1] < 0 || parents[1] >= profile.GetNumSections()) FailAsDamaged();
    return profile.GetSection(parents[1]);
  }
  CProfileAlti& Line(const RowParents& parents) {
    if (parents[1] == kNoSection) return Checked(Road(parents).GetRoadProfile()->GetMainPrjAlti());
    const CProfile& section = Section(parents);
    if (parents[2] < 0 || parents[2] >= section.GetNumProfileAlti()) FailAsDamaged();
    return section.GetProfileAlti(parents[2]);
  }

  template <class Object>
  Object& Checked(Object* object) const {
    if (object == nullptr) FailAsDamaged();
    return *object;
  }
  [[noreturn]] void FailAsDamaged() const {
    database_.Fail("the job is damaged: a record belongs to nothing");
  }

  const Database& database_;
  HostDocument& document_;
  PointProgress& progress_;
};

}  // namespace

void WriteDesign(const Database& database, HostDocument& document, PointProgress& progress) {
  TerrainWriter terrain(database, progress);
  const CLibDtm& models = *document.GetLibDtm();
  for (int i = 0; i < models.GetPrjArSize(); ++i) terrain.Write(*models.GetPrjAt(i), i);
  RoadWriter writer(database);
  const CLibRoad& roads = *document.GetLibRoad();
  for (int i = 0; i < roads.GetRoadArSize(); ++i) writer.Write(*roads.GetRoadAt(i), i);
}

void ReadDesign(const Database& database, HostDocument& document, PointProgress& progress) {
  DesignReader reader(database, document, progress);
  reader.ReadTerrain();
  reader.ReadRoads();
}
