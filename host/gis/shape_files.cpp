#include "host/gis/shape_files.h"

#include <utility>

#include "host/gis/shape_export.h"
#include "host/gis/shape_import.h"
#include "host/gis/shape_paths.h"
#include "platform/paths.h"

int ShapeFiles::EntityTypeOf(const tdk::WString& path) { return shape::EntityTypeOfFile(path); }

bool ShapeFiles::FieldsOf(const tdk::WString& dbfPath, std::vector<tdk::WString>& fields) {
  return shape::FieldsOfFile(dbfPath, fields);
}

ShapeOutcome ShapeFiles::Import(const ShapeImport& what) {
  ShapeOutcome outcome = shape::ImportShapeFile(what);
  encoding_ = outcome.encoding;
  Keep(std::string(platform::FileName(what.path.ToUtf8())), outcome.notes);
  return outcome;
}

ShapeOutcome ShapeFiles::Export(const ShapeExport& what) {
  ShapeOutcome outcome = shape::ExportShapeFile(what);
  Keep(shape::FileNameOf(what.theme->GetName().ToUtf8()) + ".shp", outcome.notes);
  return outcome;
}

void ShapeFiles::Keep(const std::string& file, const std::vector<tdk::WString>& notes) {
  for (const tdk::WString& note : notes) notes_.push_back({file, note});
}

std::vector<ShapeFiles::Note> ShapeFiles::TakeNotes() { return std::exchange(notes_, {}); }

ShapeFiles& ShapeFiles::Install() {
  static ShapeFiles files;
  IShapeFiles::SetCurrent(&files);
  return files;
}
