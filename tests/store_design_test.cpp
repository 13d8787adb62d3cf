// Terrain models and roads of a job: what each key means, and that nothing changes on the way.
#include <gtest/gtest.h>

#include "support/stored_designs.h"

namespace {

using stored_designs::kDesign;
using stored_jobs::JobWith;
using stored_jobs::JsonOf;
using stored_jobs::JsonOfStored;
using stored_jobs::Read;

struct StoreDesign : testing::Test {
  HostDocument document;

  void ReadDesign() { Read(JobWith(kDesign), document); }
  const CDtmPrj& Model() { return *document.GetLibDtm()->GetPrjAt(0); }
  const CRoad& Road(int i = 0) { return *document.GetLibRoad()->GetRoadAt(i); }
  std::vector<const CPlaniElem*> Elements() {
    std::vector<const CPlaniElem*> elements;
    Road().RetrieveLinkedPlaniElems(elements);
    return elements;
  }
};

void ExpectAt(const tdk::geom::PNT_2D& place, double x, double y) {
  EXPECT_EQ(place.getX(), x);
  EXPECT_EQ(place.getY(), y);
}
void ExpectAt(const tdk::geom::PNT_3D& place, double x, double y, double z) {
  ExpectAt(place, x, y);
  EXPECT_EQ(place.getZ(), z);
}
void ExpectVertex(const TAltiVrt& vertex, double distance, double height, bool principal) {
  EXPECT_EQ(vertex.distance, distance);
  EXPECT_EQ(vertex.height, height);
  EXPECT_EQ(vertex.isPrincipal, principal);
}

TEST_F(StoreDesign, IsWrittenAsItWasReadByteForByte) {
  ReadDesign();
  EXPECT_EQ(JsonOf(document), JobWith(kDesign));
}

TEST_F(StoreDesign, ReadsATerrainModel) {
  ReadDesign();
  ASSERT_EQ(document.GetLibDtm()->GetPrjArSize(), 2);
  EXPECT_EQ(Model().GetName(), "Hill");
  ASSERT_EQ(Model().GetOuterCnts().GetNoCnts(), 2);
  ASSERT_EQ(Model().GetOuterCnts().GetCntAt(0).GetNoVrts(), 3);
  ExpectAt(Model().GetOuterCnts().GetCntAt(0).GetVrt(1), 4.5, 5.5, UndefinedValue);
  ASSERT_EQ(Model().GetOuterCnts().GetCntAt(1).GetNoVrts(), 1);
  ExpectAt(Model().GetOuterCnts().GetCntAt(1).GetVrt(0), 10, 20, 30);
  ASSERT_EQ(Model().GetIslandCnts().GetNoCnts(), 1);
  ExpectAt(Model().GetIslandCnts().GetCntAt(0).GetVrt(1), 14, 15, 16);
  ASSERT_EQ(Model().GetVncs().GetNoVncs(), 2);
  ExpectAt(Model().GetVncs().GetVncAt(0).GetCoords().getStart(), 1, 2, 3);
  ExpectAt(Model().GetVncs().GetVncAt(0).GetCoords().getEnd(), 4, 5, 6);
}

TEST_F(StoreDesign, ReadsATriangulation) {
  ReadDesign();
  const CTris& triangulation = Model().GetTris();
  ASSERT_EQ(triangulation.GetNoTriVrts(), 5);
  ExpectAt(triangulation.GetTriVrtAt(1), 10, 0, 2);
  ExpectAt(triangulation.GetTriVrtAt(3), UndefinedValue, UndefinedValue, UndefinedValue);
  ASSERT_EQ(triangulation.GetNoTris(), 2);
  EXPECT_EQ(triangulation.GetTriAt(0).GetVerIndex(0), 4);
  EXPECT_EQ(triangulation.GetTriAt(0).GetVerIndex(1), 0);
  EXPECT_EQ(triangulation.GetTriAt(0).GetVerIndex(2), 2);
}

TEST_F(StoreDesign, ReadsARoad) {
  ReadDesign();
  ASSERT_EQ(document.GetLibRoad()->GetRoadArSize(), 3);
  EXPECT_EQ(Road().GetName(), "Via Roma");
  EXPECT_EQ(Road().GetStartProg(), 100);
  EXPECT_EQ(Road().GetEndProg(), 350.5);
  EXPECT_EQ(Road().GetTargetDrawing(), 3);
  EXPECT_FALSE(Road().IsEmpty());
  EXPECT_TRUE(Road(1).IsEmpty());
  EXPECT_NE(Road(1).GetFirstRoadPlaniElem(), nullptr);
  EXPECT_EQ(Road(1).GetRoadProfile()->GetMainPrjAlti(), nullptr);
  EXPECT_TRUE(Road(2).IsEmpty());
  ASSERT_NE(Road(2).GetRoadProfile()->GetMainPrjAlti(), nullptr);
  EXPECT_TRUE(Road(2).GetRoadProfile()->GetMainPrjAlti()->IsEmpty());
}

TEST_F(StoreDesign, ReadsStraights) {
  ReadDesign();
  ASSERT_EQ(Elements().size(), 4u);
  const CPlaniElem& line = *Elements()[0];
  EXPECT_EQ(line.GetType(), CPlaniElem::kStraight);
  EXPECT_EQ(line.GetProg(), 100);
  ExpectAt(line.GetStartPnt(), 1000, 2000);
  tdk::geom::PNT_2D end;
  line.GetEndPnt(end);
  ExpectAt(end, 1100, 2000);
  const CPlaniElem& other = *Elements()[3];
  EXPECT_EQ(other.GetType(), CPlaniElem::kOther);
  other.GetEndPnt(end);
  ExpectAt(end, 1190, 1970);
}

TEST_F(StoreDesign, ReadsAClothoid) {
  ReadDesign();
  const auto* const clothoid = dynamic_cast<const CClotPlaniElem*>(Elements()[1]);
  ASSERT_NE(clothoid, nullptr);
  EXPECT_EQ(clothoid->GetProg(), 200);
  ExpectAt(clothoid->GetStartPnt(), 1100, 2000);
  EXPECT_EQ(clothoid->GetStartTg().getX(), 1);
  EXPECT_EQ(clothoid->GetStartTg().getY(), 0);
  EXPECT_EQ(clothoid->GetLength(), 50);
  EXPECT_EQ(clothoid->GetClotoide().GetA(), 60);
  EXPECT_TRUE(clothoid->IsEntrance());
  EXPECT_FALSE(clothoid->IsCcw());
}

TEST_F(StoreDesign, ReadsAnArc) {
  ReadDesign();
  const auto* const arc = dynamic_cast<const CArcPlaniElem*>(Elements()[2]);
  ASSERT_NE(arc, nullptr);
  EXPECT_EQ(arc->GetProg(), 250);
  ExpectAt(arc->GetStartPnt(), 1150, 1990);
  EXPECT_EQ(arc->GetStartTg().getX(), 0.8);
  EXPECT_EQ(arc->GetStartTg().getY(), -0.6);
  EXPECT_EQ(arc->GetRadius(0), 72);
  EXPECT_EQ(arc->GetAngle(), 0.5);
  EXPECT_TRUE(arc->IsCcw());
}

TEST_F(StoreDesign, ReadsAMainLine) {
  ReadDesign();
  const CProfileAlti& main = *Road().GetRoadProfile()->GetMainPrjAlti();
  ASSERT_EQ(main.GetNumVrts(), 4);
  ExpectVertex(main.GetVrt(0), 100, 10, true);
  EXPECT_FALSE(main.GetVrt(0).curve.has_value());
  ExpectVertex(main.GetVrt(1), 150, 12.5, true);
  ASSERT_TRUE(main.GetVrt(1).curve.has_value());
  EXPECT_EQ(main.GetVrt(1).curve->start, 120);
  EXPECT_EQ(main.GetVrt(1).curve->end, 180);
  ExpectVertex(main.GetVrt(2), 170, UndefinedValue, false);
}

TEST_F(StoreDesign, ReadsSectionsAndTheirCodes) {
  ReadDesign();
  ASSERT_EQ(Road().ProfileCodes().Codes().size(), 2u);
  ASSERT_NE(Road().ProfileCodes().FindSectionAltiCode(-2), nullptr);
  EXPECT_EQ(Road().ProfileCodes().FindSectionAltiCode(-2)->name, "Ditch");
  ASSERT_EQ(Road().GetRoadProfile()->GetNumSections(), 2);
  const CProfile& section = Road().GetRoadProfile()->GetSection(0);
  EXPECT_EQ(section.GetName(), "S1");
  EXPECT_EQ(section.GetSectionProg(), 125);
  ASSERT_EQ(section.GetNumTerrVrts(), 4);
  ExpectVertex(section.GetTerrVrt(1), -5, UndefinedValue, true);
  ASSERT_EQ(section.GetNumProfileAlti(), 2);
  EXPECT_EQ(section.GetProfileAlti(0).GetCode(), 7);
  EXPECT_FALSE(section.GetProfileAlti(0).IsTerr());
  ASSERT_EQ(section.GetProfileAlti(0).GetNumVrts(), 2);
  ExpectVertex(section.GetProfileAlti(0).GetVrt(1), UndefinedValue, 10.25, false);
  EXPECT_TRUE(section.GetProfileAlti(1).IsTerr());
}

TEST_F(StoreDesign, HasADefaultForWhatIsLeftOut) {
  Read(R"({"terrain":[{}],"roads":[{"elements":[{"type":"line"},{"type":"arc"},
           {"type":"clothoid"},{"type":"other"}],"profile":{"main":{"vertices":[{}]},"codes":[{}],
           "sections":[{"lines":[{"vertices":[{"curve":{}}]}]}]}}]})",
       document);
  EXPECT_EQ(JsonOf(document), JobWith(R"(  "terrain": [
    {
      "name": "",
      "outer": [],
      "islands": [],
      "breaklines": [],
      "vertices": [],
      "triangles": []
    }
  ],
  "roads": [
    {
      "name": "",
      "start": 0,
      "end": 0,
      "empty": false,
      "targetDrawing": 0,
      "elements": [
        {"type": "line", "prog": 0, "start": [0, 0], "end": [0, 0]},
        {"type": "arc", "prog": 0, "start": [0, 0], "tangent": [0, 0], "radius": 0, "angle": 0, "ccw": false},
        {"type": "clothoid", "prog": 0, "start": [0, 0], "tangent": [0, 0], "length": 0, "a": 0, "entrance": false, "ccw": false},
        {"type": "other", "prog": 0, "start": [0, 0], "end": [0, 0]}
      ],
      "profile": {
        "main": {
          "vertices": [
            {"distance": null, "height": null, "principal": true}
          ]
        },
        "codes": [
          {"code": 0, "name": ""}
        ],
        "sections": [
          {
            "name": "",
            "prog": 0,
            "terrain": [],
            "lines": [
              {
                "code": 0,
                "terrain": false,
                "vertices": [
                  {"distance": null, "height": null, "principal": true, "curve": {"start": 0, "end": 0}}
                ]
              }
            ]
          }
        ]
      }
    }
  ],
)"));
}

TEST_F(StoreDesign, TakesMembersInAnyOrder) {
  Read(R"({"terrain":[{"triangles":[[2,1,0]],"vertices":[[0,0,0],[1,0,0],[0,1,0]],
           "islands":[[[1,1,1]]],"outer":[[[2,2,2]]],"name":"after all"}]})",
       document);
  EXPECT_EQ(Model().GetName(), "after all");
  ASSERT_EQ(Model().GetTris().GetNoTris(), 1);
  EXPECT_EQ(Model().GetTris().GetTriAt(0).GetVerIndex(0), 2);
  ExpectAt(Model().GetOuterCnts().GetCntAt(0).GetVrt(0), 2, 2, 2);
  ExpectAt(Model().GetIslandCnts().GetCntAt(0).GetVrt(0), 1, 1, 1);
}

TEST_F(StoreDesign, KeepsWhatOneObjectHoldsFromTheNext) {
  Read(R"({"terrain":[{"name":"a","vertices":[[0,0,0]],"triangles":[[0,0,0]]},{}],
           "roads":[{"name":"b","empty":true,"elements":[{"type":"line","prog":5,"end":[1,1]},
           {"type":"line"}],"profile":{"main":{"vertices":[{"distance":1,"principal":false,
           "curve":{"end":4}},{}]}}},{}]})",
       document);
  EXPECT_EQ(document.GetLibDtm()->GetPrjAt(1)->GetName(), "");
  EXPECT_EQ(document.GetLibDtm()->GetPrjAt(1)->GetTris().GetNoTris(), 0);
  EXPECT_FALSE(Road(1).IsMarkedEmpty());
  EXPECT_EQ(Elements()[1]->GetProg(), 0);
  EXPECT_EQ(Elements()[1]->GetLength(), 0);
  const TAltiVrt& second = Road().GetRoadProfile()->GetMainPrjAlti()->GetVrt(1);
  ExpectVertex(second, UndefinedValue, UndefinedValue, true);
  EXPECT_FALSE(second.curve.has_value());
}

TEST_F(StoreDesign, HasNoMainLineOrCurveForNull) {
  Read(R"({"roads":[{"profile":null},{"profile":{"main":null}},
           {"profile":{"main":{"vertices":[{"curve":null}]}}}]})",
       document);
  EXPECT_EQ(Road(0).GetRoadProfile()->GetMainPrjAlti(), nullptr);
  EXPECT_EQ(Road(1).GetRoadProfile()->GetMainPrjAlti(), nullptr);
  EXPECT_FALSE(Road(2).GetRoadProfile()->GetMainPrjAlti()->GetVrt(0).curve.has_value());
}

TEST_F(StoreDesign, KeepsAPlaceUndefined) {
  document.GetLibRoad()->AddRoad(true)->AddElement(std::make_unique<CLinePlaniElem>(
      0, tdk::geom::PNT_2D(UndefinedValue, UndefinedValue), tdk::geom::PNT_2D(3, UndefinedValue)));
  HostDocument copy;
  Read(JsonOf(document), copy);
  EXPECT_EQ(JsonOf(copy), JsonOf(document));
  std::vector<const CPlaniElem*> elements;
  copy.GetLibRoad()->GetRoadAt(0)->RetrieveLinkedPlaniElems(elements);
  ExpectAt(elements.front()->GetStartPnt(), UndefinedValue, UndefinedValue);
}

TEST_F(StoreDesign, AtRandomComesBackAsItWas) {
  const TemporaryFolder folder;
  Random random;
  for (int i = 0; i < 30; ++i) {
    HostDocument job;
    stored_designs::FillAtRandom(job, random);
    HostDocument copy;
    Read(JsonOf(job), copy);
    ASSERT_EQ(JsonOf(copy), JsonOf(job));
    SaveJob(folder.Path(), job);
    ASSERT_EQ(JsonOfStored(folder.Path()), JsonOf(job));
  }
}

}  // namespace
