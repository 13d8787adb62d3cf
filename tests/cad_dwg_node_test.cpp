// What a DWG reader for Node makes of our files, where it is there. To have it:
//   npm install --ignore-scripts --prefix build/dev/node @mlightcad/libredwg-web
#include <filesystem>
#include <nlohmann/json.hpp>

#include "run_kalvio.h"
#include "support/dwg_drawings.h"

using namespace dwg_test;
using nlohmann::json;

namespace {

const char* const kPackage = KALVIO_NODE_MODULES "/@mlightcad/libredwg-web";

const char* const kLook = R"(
import { readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';
const [folder, file] = process.argv.slice(1);
const { LibreDwg, Dwg_File_Type } = await import(pathToFileURL(folder + '/dist/libredwg-web.js'));
const reader = await LibreDwg.create(folder + '/wasm/');
const bytes = readFileSync(file);
const data = bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length);
const found = reader.convert(reader.dwg_read_data(data, Dwg_File_Type.DWG));
const kinds = {};
for (const it of found.entities) {
  const kind = it.type + ' ' + it.layer;
  kinds[kind] = (kinds[kind] ?? 0) + 1;
}
console.log(JSON.stringify({
  kinds,
  layers: found.tables.LAYER.entries.map((it) => [it.name, it.colorIndex]),
  blocks: found.tables.BLOCK_RECORD.entries.map((it) => it.name),
  points: found.entities.filter((it) => it.type == 'POINT').map(
      (it) => [it.position.x, it.position.y, it.position.z]),
  texts: found.entities.filter((it) => it.type == 'TEXT').map((it) => it.text),
}));
)";

class DwgInNode : public DwgFiles, public testing::WithParamInterface<enumTCAD_DXFDWG_VER> {
 protected:
  static json Look(const std::string& path) {
    const e2e::Outcome run =
        e2e::RunProgram("node", {"--input-type=module", "-e", kLook, kPackage, path});
    EXPECT_EQ(run.status, 0) << run.err;
    // It says more before.
    const std::size_t at = run.out.find("{\"kinds\"");
    json found = json::parse(at == std::string::npos ? "" : run.out.substr(at), nullptr, false);
    EXPECT_TRUE(found.is_object()) << run.out;
    return found.is_object() ? found : json::object();
  }
};

TEST_P(DwgInNode, LayersBlocksAndEntitiesAreThere) {
  if (e2e::RunProgram("sh", {"-c", "command -v node"}).status != 0 ||
      !std::filesystem::exists(kPackage)) {
    GTEST_SKIP() << "there is no node, or not its package";
  }
  const FullDrawing drawing(engine);
  const json found = Look(Write(GetParam()));
  EXPECT_EQ(found["layers"],
            json::parse(R"([["0", 7], ["WALLS", 3], ["HIDDEN", 200], ["LOCKED", 255]])"));
  for (const char* const name : {"INNER", "OUTER", "EMPTY", "DEFINED"}) {
    EXPECT_THAT(found["blocks"], testing::Contains(json(name)));
  }
  const json& kinds = found["kinds"];
  EXPECT_EQ(kinds["POINT WALLS"], 1);
  EXPECT_EQ(kinds["POINT 0"], 2);
  EXPECT_EQ(kinds["LINE WALLS"], 1);
  EXPECT_EQ(kinds["LINE HIDDEN"], 1);
  EXPECT_EQ(kinds["POLYLINE3D WALLS"], 2);
  EXPECT_EQ(kinds["CIRCLE HIDDEN"], 1);
  EXPECT_EQ(kinds["ARC WALLS"], 1);
  EXPECT_EQ(kinds["ELLIPSE WALLS"], 2);
  EXPECT_EQ(kinds["3DFACE WALLS"], 2);
  EXPECT_EQ(kinds["SOLID WALLS"], 2);
  EXPECT_EQ(kinds["TEXT WALLS"], 3);
  EXPECT_EQ(kinds["MTEXT WALLS"], 1);
  EXPECT_EQ(kinds["INSERT WALLS"], 1);
  EXPECT_EQ(kinds["INSERT HIDDEN"], 2);
  EXPECT_THAT(found["points"], testing::Contains(json::parse("[1680000.125, 4900000.5, 312.75]")));
}

INSTANTIATE_TEST_SUITE_P(Versions, DwgInNode, testing::Values(TCAD_DWG_R14, TCAD_DWG_2000),
                         [](const auto& version) {
                           return version.param == TCAD_DWG_R14 ? "R14" : "V2000";
                         });

}  // namespace
