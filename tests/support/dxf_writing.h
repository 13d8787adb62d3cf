// Drawings written as DXF, and what is in them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "host/cad/dxf/dxf_writer.h"
#include "support/temporary_folder.h"

namespace dxf_writer_test {

inline cad::Entity MakeEntity(cad::Shape shape, int drawing = 1,
                              std::uint16_t color = cad::kByLayer) {
  cad::Entity entity;
  entity.drawing = drawing;
  entity.color = color;
  entity.shape = std::move(shape);
  return entity;
}

inline cad::Entity MakePrivate(cad::Shape shape) {
  cad::Entity entity = MakeEntity(std::move(shape));
  entity.isPrivate = true;
  return entity;
}

/// Each pair of a file as a line, with a blank after the group code.
inline std::string PairLines(std::string_view text) {
  std::string lines(text);
  bool isCode = true;
  for (char& c : lines) {
    if (c != '\n') continue;
    if (isCode) c = ' ';
    isCode = !isCode;
  }
  EXPECT_TRUE(isCode) << "a group code without value";
  return lines;
}

/// What stands between two texts; empty, and a failure, when they are not there.
inline std::string TextBetween(const std::string& text, std::string_view start,
                               std::string_view end) {
  const std::size_t from = text.find(start);
  const std::size_t to = from == std::string::npos ? from : text.find(end, from + start.size());
  EXPECT_NE(to, std::string::npos) << start << " ... " << end << " in\n" << text;
  if (to == std::string::npos) return {};
  return text.substr(from + start.size(), to - from - start.size());
}

class DxfWriting : public testing::Test {
 protected:
  int AddLayer(const char* name, bool isVisible = true) {
    return engine.AddDrawing(0, name, isVisible, /*locked=*/false, /*isPrivate=*/false);
  }
  void Add(cad::Shape shape, int drawing = 1, std::uint16_t color = cad::kByLayer) {
    engine.Add(MakeEntity(std::move(shape), drawing, color));
  }
  int AddBlock(std::string name, std::vector<cad::Entity> entities) {
    cad::Block block;
    block.name = std::move(name);
    block.entities = std::move(entities);
    return engine.AddBlock(std::move(block));
  }

  CadSave HowTo(enumTCAD_DXFDWG_VER version) const {
    CadSave how;
    how.path = tdk::WString(folder.File("drawing.dxf"));
    how.version = version;
    how.flags[1] = onlyVisible;
    return how;
  }
  /// The whole file, as pair lines.
  std::string Write(enumTCAD_DXFDWG_VER version) {
    written = WriteDxfCounting(HowTo(version), engine);
    EXPECT_TRUE(written.isWritten);
    return PairLines(ReadBytes(folder.File("drawing.dxf")));
  }
  std::string Entities(enumTCAD_DXFDWG_VER version) {
    return TextBetween(Write(version), "0 SECTION\n2 ENTITIES\n", "0 ENDSEC\n");
  }
  std::string R12() { return Entities(TCAD_DXF_R12); }
  std::string V2000() { return Entities(TCAD_DXF_2000); }
  std::string Table(enumTCAD_DXFDWG_VER version, const std::string& name) {
    return TextBetween(Write(version), "0 TABLE\n2 " + name + "\n", "0 ENDTAB\n");
  }
  std::string Blocks(enumTCAD_DXFDWG_VER version) {
    return TextBetween(Write(version), "0 SECTION\n2 BLOCKS\n", "0 ENDSEC\n");
  }

  TemporaryFolder folder;
  CTcadEng engine{0, nullptr, true};
  bool onlyVisible = false;
  CadWritten written;
};

}  // namespace dxf_writer_test
