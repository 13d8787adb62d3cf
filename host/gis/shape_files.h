// Shape files of the reference host.
#pragma once

#include "model/shape_files.h"

/// Reads and writes sets of Shape files through the Shape library with streams of our own.
class ShapeFiles : public IShapeFiles {
 public:
  int EntityTypeOf(const tdk::WString& path) override;
  bool FieldsOf(const tdk::WString& dbfPath, std::vector<tdk::WString>& fields) override;
  ShapeOutcome Import(const ShapeImport& what) override;
  ShapeOutcome Export(const ShapeExport& what) override;

  /// What the imports and exports since the last call had to say, each with its file.
  std::vector<tdk::WString> TakeNotes();

  /// What the texts of the table imported last were in; empty when nothing told it.
  const std::string& LastEncoding() const { return encoding_; }

  /// The files of this process; made current at the first call.
  static ShapeFiles& Install();

 private:
  std::vector<tdk::WString> notes_;
  std::string encoding_;
};
