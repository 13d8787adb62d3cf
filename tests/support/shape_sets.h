// Sets of Shape files for the tests: themes to write, files made byte by byte, what came back.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/gis/shape_files.h"
#include "model/gis.h"
#include "tests/support/temporary_folder.h"

namespace shape_sets {

using gis::EntityType;
using gis::FieldType;
using gis::Value;

inline std::string Text(const Value& value) {
  const auto* text = std::get_if<std::string_view>(&value);
  return text == nullptr ? std::string("(no text)") : std::string(*text);
}

inline std::vector<std::string> Texts(const std::vector<tdk::WString>& notes) {
  std::vector<std::string> texts;
  for (const tdk::WString& note : notes) texts.push_back(note.ToUtf8());
  return texts;
}

inline std::vector<std::string> Lines(const std::vector<ShapeFiles::Note>& notes) {
  std::vector<std::string> lines;
  for (const ShapeFiles::Note& note : notes) lines.push_back(note.Line());
  return lines;
}

/// A library with one theme, put together piece by piece.
class ThemeMaker {
 public:
  explicit ThemeMaker(const char* name = "theme", EntityType type = EntityType::kPoint,
                      bool is3D = false, bool hasMeasures = false)
      : theme_(
            library.AddTheme(std::make_unique<gis::CTheme>(name, type, is3D, hasMeasures), false)) {
    theme_->SetTable(library.AddTable(std::make_unique<gis::CTable>(name), false));
  }

  gis::CTheme& Theme() { return *theme_; }
  gis::CTable& Table() { return *theme_->GetTable(); }
  ThemeMaker& Field(const char* name, FieldType type, int width = 0, int decimals = 0) {
    Table().AddField({name, type, width, decimals});
    return *this;
  }
  /// A feature of these parts.
  ThemeMaker& Feature(const std::vector<std::vector<gis::Vertex>>& parts,
                      const std::vector<Value>& values = {}) {
    theme_->AddFeature();
    for (const auto& part : parts) {
      theme_->AddPart();
      for (const gis::Vertex& vertex : part) theme_->AddVertex(vertex);
    }
    Table().AddRow(values);
    return *this;
  }
  ThemeMaker& Row(const std::vector<Value>& values) { return Feature({{{1, 2}}}, values); }

  gis::CLibGis library;

 private:
  gis::CTheme* theme_;
};

class Answer : public IExportFileCallback {
 public:
  explicit Answer(bool yes = true) : yes_(yes) {}
  bool OnOverwriteFile(const tdk::WString& path) override {
    asked.push_back(path.ToUtf8());
    return yes_;
  }
  std::vector<std::string> asked;

 private:
  bool yes_;
};

/// A square whose lower left corner is at (x, y), closed; clockwise unless said otherwise.
inline std::vector<gis::Vertex> Square(double x, double y, double side, bool isClockwise = true) {
  std::vector<gis::Vertex> ring = {
      {x, y}, {x, y + side}, {x + side, y + side}, {x + side, y}, {x, y}};
  if (!isClockwise) std::reverse(ring.begin(), ring.end());
  return ring;
}

/// Files of one folder, and one library that reads them.
class Sets : public testing::Test {
 protected:
  ShapeOutcome Export(ThemeMaker& made, int coordinates = kShapeAsTheme, int characters = 250) {
    return files.Export(
        {&made.Theme(), tdk::WString(folder.Path() + "/"), characters, coordinates, &yes});
  }
  ShapeOutcome Import(const std::string& name, const TOpzImportShape& options = {},
                      gis::ILinkImportedEnt* link = nullptr) {
    gis::CGisMerger merger(&library);
    return files.Import({&library, tdk::WString(folder.File(name)), link, &merger, options});
  }
  /// What was written, read again: the last theme of `library`.
  const gis::CTheme& Again(ThemeMaker& made, int coordinates = kShapeAsTheme) {
    const ShapeOutcome written = Export(made, coordinates);
    EXPECT_TRUE(written.isDone) << testing::PrintToString(Texts(written.notes));
    const ShapeOutcome read = Import(made.Theme().GetName().ToUtf8() + ".shp");
    EXPECT_TRUE(read.isDone) << testing::PrintToString(Texts(read.notes));
    return Last();
  }
  const gis::CTheme& Last() const { return *library.GetTheme(library.GetNumThemes() - 1); }
  Value ValueOf(int row, int field) const { return Last().GetTable()->GetValue(row, field); }

  ShapeFiles files;
  TemporaryFolder folder;
  gis::CLibGis library;
  Answer yes;
};

// ---- Files byte by byte ----

inline void PutLittle(std::string& bytes, std::uint32_t value, int size = 4) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i));
}
inline void PutBig(std::string& bytes, std::uint32_t value) {
  for (int i = 3; i >= 0; --i) bytes += static_cast<char>(value >> (8 * i));
}
inline void PutDouble(std::string& bytes, double value) {
  std::array<char, 8> raw;
  std::memcpy(raw.data(), &value, raw.size());
  bytes.append(raw.data(), raw.size());
}

/// The header of a ".shp" or ".shx" file of so many bytes.
inline std::string ShpHeader(int type, std::size_t size) {
  std::string bytes;
  PutBig(bytes, 9994);
  bytes.append(20, '\0');
  PutBig(bytes, static_cast<std::uint32_t>(size / 2));
  PutLittle(bytes, 1000);
  PutLittle(bytes, static_cast<std::uint32_t>(type));
  return bytes + std::string(64, '\0');
}

/// A ".shp" file of these contents, one a record.
inline std::string ShpFile(int type, const std::vector<std::string>& contents) {
  std::string records;
  std::uint32_t number = 0;
  for (const std::string& content : contents) {
    PutBig(records, ++number);
    PutBig(records, static_cast<std::uint32_t>(content.size() / 2));
    records += content;
  }
  return ShpHeader(type, 100 + records.size()) + records;
}

inline std::string PointContent(double x, double y) {
  std::string bytes;
  PutLittle(bytes, 1);
  PutDouble(bytes, x);
  PutDouble(bytes, y);
  return bytes;
}

struct DbfField {
  const char* name;
  char kind;
  int width;
  int decimals = 0;
};

/// A table of these fields; each record as it stands in the file, with its mark of deletion.
inline std::string DbfFile(const std::vector<DbfField>& fields,
                           const std::vector<std::string>& records, int language = 0,
                           std::uint32_t claimed = 0) {
  std::uint32_t length = 1;
  for (const DbfField& field : fields) length += static_cast<std::uint32_t>(field.width);
  std::string bytes("\x03\x7C\x01\x02", 4);
  PutLittle(bytes, claimed != 0 ? claimed : static_cast<std::uint32_t>(records.size()));
  PutLittle(bytes, static_cast<std::uint32_t>(33 + 32 * fields.size()), 2);
  PutLittle(bytes, length, 2);
  bytes.append(17, '\0');
  bytes += static_cast<char>(language);
  bytes.append(2, '\0');
  for (const DbfField& field : fields) {
    std::string name(field.name);
    name.resize(11);
    bytes += name + field.kind + std::string(4, '\0');
    bytes += static_cast<char>(field.width);
    bytes += static_cast<char>(field.decimals);
    bytes.append(14, '\0');
  }
  bytes += '\r';
  for (const std::string& record : records) bytes += record;
  return bytes + '\x1A';
}

}  // namespace shape_sets
