// Shape files (".shp" with ".shx", ".dbf", ".prj", ".cpg"), as the host reads and writes them.
// Paths may have backslashes.
#pragma once

#include <vector>

#include "model/gis.h"

/// What an import answers beside its bool. Only the first two of them are successes.
enum ShapeResult {
  kShapeImported = 0,
  kShapeTableRenamed = 4,
  kShapeFileNotFound = 1,
  kShapeInconsistent = 3,
  kShapeTablePresent = 6,
  kShapeThemePresent = 8
};

/// Bits of an export's `failed`.
inline constexpr int kShapeFileFailed = 1;   // the ".shp" file could not be written
inline constexpr int kShapeTableFailed = 2;  // the ".dbf" file could not be written

/// How a theme is exported: positions in the list of coordinate types.
enum ShapeCoordinates { kShapeAsTheme = 0, kShape2D = 1, kShape3D = 2 };

/// What came of an import or export.
struct ShapeOutcome {
  bool isDone = false;
  int result = 0;     ///< import: a ShapeResult; export: the bits that failed
  tdk::WString name;  ///< import: the file or table that the result is about
  std::vector<tdk::WString>
      notes;  ///< what was read or written otherwise than it stands: a line each
};

struct ShapeImport {
  gis::CLibGis* library = nullptr;
  tdk::WString path;                      ///< of the ".shp" file
  gis::ILinkImportedEnt* link = nullptr;  ///< null: no points are created
  gis::IGisMerger* merger = nullptr;      ///< null: names that are taken are refused
  TOpzImportShape options;
};

struct ShapeExport {
  const gis::CTheme* theme = nullptr;
  tdk::WString folder;          ///< with its final separator
  int maximumCharacters = 250;  ///< of a text, 1 to 254
  int coordinates = kShapeAsTheme;
  IExportFileCallback* callback = nullptr;  ///< null: what is there already is not replaced
};

/// Reads and writes Shape files for a process. Without one, no file can be.
class IShapeFiles {
 public:
  virtual ~IShapeFiles();
  virtual int EntityTypeOf(const tdk::WString& path) = 0;
  virtual bool FieldsOf(const tdk::WString& dbfPath, std::vector<tdk::WString>& fields) = 0;
  virtual ShapeOutcome Import(const ShapeImport& what) = 0;
  virtual ShapeOutcome Export(const ShapeExport& what) = 0;

  /// Null when there is none. Not owned.
  static IShapeFiles* Current();
  static void SetCurrent(IShapeFiles* files);
};

/// 1 for points, 2 for lines, 3 for polygons (and surfaces); -1 when the file cannot be read or has
/// something else.
int FGetEntTypeFromFileShp(const tdk::WString& path);

/// The names of the table's fields, in its order. False, with none, when it cannot be read.
bool FGetFieldFromFileDbf(gis::CLibGis* library, const tdk::WString& dbfPath,
                          std::vector<tdk::WString>& fields);

/// Loads a file as a theme of the same name. All or nothing: when it fails, the library is as it
/// was. `result`: a ShapeResult; `name`: what its message is about (kShapeFileNotFound: the file,
/// kShapeTableRenamed: the table's new name), else the theme. `link` and `merger` may be null.
bool FImportFileShape(gis::CLibGis* library, tdk::WString& path, tdk::WString& name, int* result,
                      gis::ILinkImportedEnt* link, gis::IGisMerger* merger,
                      TOpzImportShape& options);

/// Writes a theme as a set of files in `folder` (which ends in a separator). False when it could
/// not be written, with the files that failed in `failed`, or when the user wants to keep the files
/// that are there (then `failed` is 0). What was there before stays unless all of the set was
/// written.
bool FExportFileShape(gis::CLibGis* library, gis::CTheme* theme, const tdk::WString& folder,
                      int maximumCharacters, int coordinateType, IExportFileCallback* callback,
                      int& failed);
