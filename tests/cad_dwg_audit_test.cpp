// What other programs make of our DWG files.
#include <filesystem>

#include "run_kalvio.h"
#include "support/dwg_drawings.h"
#include "support/dxf_audit.h"

using namespace dwg_test;

namespace {

const char* const kChecker = KALVIO_REAL_DATA "/../tools/dwgcheck.py";

class DwgAudit : public DwgFiles, public testing::WithParamInterface<enumTCAD_DXFDWG_VER> {
 protected:
  /// What a strict checker says of a file: every checksum, and that every record ends at its bit.
  static std::string Check(const std::string& path) {
    const e2e::Outcome run = e2e::RunProgram("python3", {"-B", kChecker, path});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
  }
  static void ExpectSound(const std::string& said) {
    for (const char* const wrong : {"BAD", "MISMATCH", "False", "unknown:", "EXC"}) {
      EXPECT_EQ(said.find(wrong), std::string::npos) << wrong << " in\n" << said;
    }
    EXPECT_NE(said.find("unknown {}"), std::string::npos) << said;
    EXPECT_NE(said.find("crcs True"), std::string::npos) << said;
  }
};

#define KALVIO_NEEDS_CHECKER() \
  if (!std::filesystem::exists(kChecker)) GTEST_SKIP() << "there is no checker"

TEST_P(DwgAudit, EveryKindIsInOrder) {
  KALVIO_NEEDS_CHECKER();
  const FullDrawing drawing(engine);
  const std::string said = Check(Write(GetParam()));
  ExpectSound(said);
  EXPECT_NE(said.find("'POINT': 3"), std::string::npos) << said;
  EXPECT_NE(said.find("'INSERT': 5"), std::string::npos) << said;
}

TEST_P(DwgAudit, AnEmptyDrawingIsInOrder) {
  KALVIO_NEEDS_CHECKER();
  const std::string said = Check(Write(GetParam()));
  ExpectSound(said);
  EXPECT_NE(said.find(GetParam() == TCAD_DWG_2000 ? "objects 34 " : "objects 28 "),
            std::string::npos)
      << said;
}

TEST_P(DwgAudit, ManyEntitiesAreInOrder) {
  KALVIO_NEEDS_CHECKER();
  cad::Block block;
  block.name = "B";
  cad::InsertShape insert;
  insert.block = engine.AddBlock(block);
  for (int i = 0; i < 3000; ++i) {
    insert.at = {i * 1.1, i * 2.2, i * 3.3};
    insert.attributes = {{"A", std::to_string(i)}};
    engine.Add(MakeEntity(insert));
  }
  ExpectSound(Check(Write(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Versions, DwgAudit, testing::Values(TCAD_DWG_R14, TCAD_DWG_2000),
                         [](const auto& version) {
                           return version.param == TCAD_DWG_R14 ? "R14" : "V2000";
                         });

class DwgGeometry : public DwgFiles {};

TEST_F(DwgGeometry, IsReadWhereItWas) {
  if (!dxf_writer_test::HasGeometryReader()) GTEST_SKIP() << "there is no ogrinfo";
  const FullDrawing drawing(engine);
  const e2e::Outcome run = e2e::RunProgram("ogrinfo", {"-ro", "-al", "-q", Write(TCAD_DWG_2000)});
  EXPECT_EQ(run.status, 0) << run.err;
  for (const char* const wkt : {"POINT Z (1680000.125 4900000.5 312.75)", "POINT Z (1.0 -0.25 1)",
                                "LINESTRING Z (0 0 5,10 0 6,10 10 7", "text (String) = caf"}) {
    EXPECT_NE(run.out.find(wkt), std::string::npos) << wkt << "\n" << run.out;
  }
}

}  // namespace
