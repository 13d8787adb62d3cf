// What other programs find in a job that is drawn and written as DXF.
#include <gmock/gmock.h>

#include "host/cad/dxf/dxf_writer.h"
#include "tests/support/displayed.h"
#include "tests/support/dxf_audit.h"
#include "tests/support/exchange_files.h"

using dxf_writer_test::Python;
using namespace display_test;
using nlohmann::json;

namespace {

class DisplayAudit : public Displayed, public testing::WithParamInterface<bool> {
 protected:
  DisplayAudit() {
    AddStation("S1", 10, 20, 3);
    AddPoint("P1", "TREE", 11.5, 21.25, 4.126);
    AddPoint("K1", "", 100, 200, 9);
    AddKnownGroup("K");
    AddKnown("K1", 100, 200, 9);
    CGrpGps* const group = document.GetLibGps()->AddGrp(false);
    group->SetNomeGrp("G");
    Fill(group, "BASE", "", 50, 60);
    Fill(document.GetLibGps()->AddPun(0, false), "G1", "", 70, 80, 5);
    AddModelAndRoad();
  }

  void AddModelAndRoad() {
    CDtmPrj* const model = document.GetLibDtm()->AddPrj(false);
    model->SetName("HILL");
    for (const cad::Point& vertex : {cad::Point(0, 0, 1), {10, 0, 2}, {0, 10, 3}}) {
      model->GetTris().AddTriVrt(vertex);
    }
    model->GetTris().AddTri(0, 1, 2);
    model->GetVncs().AddVnc({{0, 0, 1}, {10, 0, 2}});
    CRoad& road = AddRoad("A1");
    exchange_test::AddStraight(road);
    exchange_test::AddElement<CArcPlaniElem>(road, 100.0, tdk::geom::PNT_2D(1100, 2000),
                                             tdk::geom::VECTOR_2D(1, 0), 50.0, 1.0, true);
    exchange_test::AddMainLine(road, {{100, 12}, {120, 11}});
  }

  std::string Write(enumTCAD_DXFDWG_VER version) {
    EXPECT_EQ(display::DrawAll(document, engine, symbols, /*explode=*/GetParam()), 0U);
    CadSave how;
    how.path = tdk::WString(folder.Path("plan.dxf"));
    how.version = version;
    EXPECT_TRUE(WriteDxf(how, engine));
    return folder.Path("plan.dxf");
  }
  /// How many entities the engine has.
  std::size_t Drawn() const { return engine.Entities().size(); }

  exchange_test::TempFolder folder;
};

TEST_P(DisplayAudit, DrawnJobIsInOrderAndWhole) {
  if (Python().empty()) GTEST_SKIP() << "python3 has no ezdxf";
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
    engine.RemoveIf([](const cad::Entity&) { return true; });
    const json found = dxf_writer_test::Audit(Write(version), "strict");
    std::size_t count = 0;
    for (const auto& [kind, number] : found["kinds"].items()) count += number.get<std::size_t>();
    EXPECT_EQ(count, Drawn());
    EXPECT_EQ(found["kinds"]["3DFACE HILL_TRIANGLES"], 1);
    EXPECT_EQ(found["kinds"]["LINE J_ORIENTATIONS"], 1);
    EXPECT_EQ(found["kinds"]["ARC A1_AXIS"], 1);
  }
}

TEST_P(DisplayAudit, DrawnJobHasItsPlacesForAGeometryReader) {
  if (!dxf_writer_test::HasGeometryReader()) GTEST_SKIP() << "there is no ogrinfo";
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
    engine.RemoveIf([](const cad::Entity&) { return true; });
    const e2e::Outcome run = e2e::RunProgram("ogrinfo", {"-ro", "-al", "-q", Write(version)});
    EXPECT_EQ(run.status, 0) << run.err;
    const std::string at = GetParam() ? "POINT Z (11.5 21.25 4.126)" : "11.5 21.25 4.126";
    for (const std::string& wkt : {at, std::string("LINESTRING Z (10 20 3,100 200 9)"),
                                   std::string("LINESTRING Z (0 0 1,10 0 2)")}) {
      EXPECT_NE(run.out.find(wkt), std::string::npos) << wkt << '\n' << run.out;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, DisplayAudit, testing::Bool(),
                         [](const auto& it) { return it.param ? "PlainEntities" : "Blocks"; });

}  // namespace
