// Shape files of the reference host.
#pragma once

#include <string>
#include <vector>

#include "model/shape_files.h"

/// Reads and writes sets of Shape files through the Shape library with streams of our own.
class ShapeFiles : public IShapeFiles {
 public:
  int EntityTypeOf(const tdk::WString& path) override;
  bool FieldsOf(const tdk::WString& dbfPath, std::vector<tdk::WString>& fields) override;
  ShapeOutcome Import(const ShapeImport& what) override;
  ShapeOutcome Export(const ShapeExport& what) override;

  struct Note {
    std::string file;  ///< name of the ".shp" file
    tdk::WString text;

    std::string Line() const { return file + ": " + text.ToUtf8(); }
  };
  /// What the imports and exports since the last call had to say.
  std::vector<Note> TakeNotes();

  /// What the texts of the table imported last were in; empty when nothing told it.
  const std::string& LastEncoding() const { return encoding_; }

  /// The files of this process; made current at the first call.
  static ShapeFiles& Install();

 private:
  void Keep(const std::string& file, const std::vector<tdk::WString>& notes);

  std::vector<Note> notes_;
  std::string encoding_;
};
