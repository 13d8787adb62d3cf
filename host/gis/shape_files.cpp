#include "host/gis/shape_files.h"

#include <utility>

#include "host/gis/shape_export.h"
#include "host/gis/shape_import.h"

int ShapeFiles::EntityTypeOf(const tdk::WString& path) { return shape::EntityTypeOfFile(path); }

bool ShapeFiles::FieldsOf(const tdk::WString& dbfPath, std::vector<tdk::WString>& fields) {
  return shape::FieldsOfFile(dbfPath, fields);
}

ShapeOutcome ShapeFiles::Import(const ShapeImport& what) {
  ShapeOutcome outcome = shape::ImportShapeFile(what);
  encoding_ = outcome.encoding;
  notes_.insert(notes_.end(), outcome.notes.begin(), outcome.notes.end());
  return outcome;
}

ShapeOutcome ShapeFiles::Export(const ShapeExport& what) {
  ShapeOutcome outcome = shape::ExportShapeFile(what);
  notes_.insert(notes_.end(), outcome.notes.begin(), outcome.notes.end());
  return outcome;
}

std::vector<tdk::WString> ShapeFiles::TakeNotes() { return std::exchange(notes_, {}); }

ShapeFiles& ShapeFiles::Install() {
  static ShapeFiles files;
  IShapeFiles::SetCurrent(&files);
  return files;
}
