// DXF files for the tests of the reader: written as "CODE VALUE" lines, read, and what came of it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "host/cad/dxf/dxf_reader.h"
#include "tests/support/exchange_files.h"

namespace dxf_test {

/// Each line "CODE VALUE" as the two lines of a file.
inline std::string Pairs(std::string_view lines) {
  std::string text;
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(std::min(lines.size(), line.size() + 1));
    const std::size_t blank = line.find(' ');
    text += std::string(line.substr(0, blank)) + '\n';
    if (blank != line.npos) text += line.substr(blank + 1);
    text += '\n';
  }
  return text;
}

inline std::string Section(const std::string& name, const std::string& lines) {
  return "0 SECTION\n2 " + name + '\n' + lines + "0 ENDSEC\n";
}
inline std::string Header(const std::string& version, const std::string& codePage = "") {
  std::string lines = "9 $ACADVER\n1 " + version + '\n';
  if (!codePage.empty()) lines += "9 $DWGCODEPAGE\n3 " + codePage + '\n';
  return Section("HEADER", lines);
}
inline std::string Block(const std::string& name, const std::string& lines) {
  return "0 BLOCK\n8 0\n2 " + name + "\n70 0\n10 0\n20 0\n30 0\n3 " + name + '\n' + lines +
         "0 ENDBLK\n8 0\n";
}
inline const std::string kEnd = "0 EOF\n";

class DxfReading : public testing::Test {
 protected:
  /// Reads these bytes as a file.
  void ReadBytes(std::string_view bytes) {
    exchange_test::WriteFile(Path(), bytes);
    load = ReadDxf(tdk::WString(Path()), engine);
  }
  /// Reads sections, written as "CODE VALUE" lines, with the end mark behind them.
  void Read(const std::string& sections) { ReadBytes(Pairs(sections + kEnd)); }
  /// The same with entities alone; they begin on line 5 of the file.
  void ReadEntities(const std::string& lines) {
    Read(Section("ENTITIES", lines));
    EXPECT_TRUE(load.isLoaded) << load.errorLine << ' ' << load.errorText.ToUtf8();
  }
  std::string Path() const { return folder.Path("in.dxf"); }

  /// The shape of the only entity; a failure and an empty one when there is no such.
  template <class Shape>
  Shape Only() const {
    EXPECT_EQ(engine.Entities().size(), 1U) << testing::PrintToString(Notes());
    return engine.Entities().empty() ? Shape() : ShapeOf<Shape>(engine.Entities()[0]);
  }
  template <class Shape>
  static Shape ShapeOf(const cad::Entity& entity) {
    const Shape* const shape = std::get_if<Shape>(&entity.shape);
    EXPECT_NE(shape, nullptr) << "the kind is " << entity.shape.index();
    return shape == nullptr ? Shape() : *shape;
  }
  template <class Shape>
  int Count() const {
    int count = 0;
    for (const cad::Entity& entity : engine.Entities()) {
      count += std::holds_alternative<Shape>(entity.shape) ? 1 : 0;
    }
    return count;
  }
  std::string DrawingOf(std::size_t entity) const {
    return engine.GetDrawingName(engine.Entities().at(entity).drawing).ToUtf8();
  }

  std::vector<std::string> Notes() const {
    std::vector<std::string> notes;
    for (const tdk::WString& note : load.notes) notes.push_back(note.ToUtf8());
    return notes;
  }
  std::string Error() const { return load.errorText.ToUtf8(); }

  exchange_test::TempFolder folder;
  CTcadEng engine{0, nullptr, false};
  CadLoad load;
};

inline void ExpectAt(const cad::Point& point, double x, double y, double z, double near = 1e-9) {
  EXPECT_NEAR(point.getX(), x, near);
  EXPECT_NEAR(point.getY(), y, near);
  EXPECT_NEAR(point.getZ(), z, near);
}

}  // namespace dxf_test
