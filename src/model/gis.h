// The GIS library: themes and tables.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "model/gis_table.h"
#include "model/gis_theme.h"
#include "model/library_base.h"

namespace gis {

/// The GIS library of a job. Names of themes, and those of tables, differ in more than letter case.
class CLibGis : public LibraryBase, public TargetDrawingHolder {
 public:
  CLibGis();
  ~CLibGis();
  CLibGis(const CLibGis&) = delete;
  CLibGis& operator=(const CLibGis&) = delete;

  int GetNumThemes() const { return static_cast<int>(themes_.size()); }
  /// Null when there is none at that position. Stays where it is as long as the library.
  CTheme* GetTheme(int theme) const;
  tdk::WString GetThemeName(const CTheme* theme) const { return theme->GetName(); }
  /// Null when there is none of that name, letter case ignored.
  CTheme* FindTheme(const tdk::WString& name) const;
  /// Takes a theme in. Null, with the theme gone, when its name is taken or the host refuses.
  CTheme* AddTheme(std::unique_ptr<CTheme> theme, bool notify);

  int GetNumTables() const { return static_cast<int>(tables_.size()); }
  CTable* GetTable(int table) const;
  CTable* FindTable(const tdk::WString& name) const;
  /// Takes a table in. Null, with the table gone, when its name is taken or the host refuses.
  CTable* AddTable(std::unique_ptr<CTable> table, bool notify);
  /// Takes a table out again that no theme has.
  void RemoveTable(const CTable* table);

  int GetThemeTargetDrawing(const CTheme* theme) const { return theme->targetDrawing_; }
  void SetThemeTargetDrawing(CTheme* theme, int drawing) { theme->targetDrawing_ = drawing; }

 private:
  std::vector<std::unique_ptr<CTheme>> themes_;
  std::vector<std::unique_ptr<CTable>> tables_;
};

/// Decides what becomes of the tables and themes of a file that is loaded into a library. The
/// loader asks OnLoadTheme and OnBeforeLoadTable before it reads, and hands the table over when all
/// of the file has been read.
class IGisMerger {
 public:
  virtual ~IGisMerger();
  /// A table of that name is about to be loaded; the name may be changed. False: it is refused.
  virtual bool OnBeforeLoadTable(tdk::WString& name) = 0;
  /// The table is complete. False, with the table gone, when it is refused after all.
  virtual bool OnAfterLoadTable(std::unique_ptr<CTable> table) = 0;
  /// The loaded table of that name, or one that was there before; null when there is none.
  virtual CTable* GetTable(const tdk::WString& name) = 0;
  /// A theme of that name is about to be loaded; the name may be changed. False: it is refused.
  virtual bool OnLoadTheme(tdk::WString& name) = 0;
};

/// The usual merger: a table whose name is taken gets a free one ("points_1"), a theme whose name
/// is taken is refused.
class CGisMerger : public IGisMerger {
 public:
  /// Not owned.
  explicit CGisMerger(CLibGis* library) : library_(library) {}
  ~CGisMerger() override;
  bool OnBeforeLoadTable(tdk::WString& name) override;
  bool OnAfterLoadTable(std::unique_ptr<CTable> table) override;
  CTable* GetTable(const tdk::WString& name) override;
  bool OnLoadTheme(tdk::WString& name) override;

 private:
  CLibGis* library_;
};

/// Receives the points that an import creates for GIS entities.
class ILinkImportedEnt {
 public:
  virtual ~ILinkImportedEnt();
  /// Points of a theme will follow. `fileName`: of the Shape file, without folder and extension.
  virtual void OnBeginLink(const CTheme& theme, const tdk::WString& fileName) = 0;
  /// A point at a vertex of a feature (its position in the theme). Texts are UTF-8 and may be
  /// empty. False: it was refused.
  virtual bool OnLinkPoint(int feature, const tdk::geom::PNT_3D& place, std::string_view name,
                           std::string_view code) = 0;
  virtual void OnEndLink() = 0;
};

}  // namespace gis

/// What the import of a Shape file is to do with points.
struct TOpzImportShape {
  bool createPoints = false;  ///< create points and associate them to the entities
  int nameField = -1;         ///< position of the field that names each point; -1: none
  int codeField = -1;         ///< position of the field that is each point's code; -1: none
};

/// Asked by an export before it replaces a file.
class IExportFileCallback {
 public:
  virtual ~IExportFileCallback();
  /// `path`: of the Shape file that is there already, without its extension. True: it may be
  /// replaced.
  virtual bool OnOverwriteFile(const tdk::WString& path) = 0;
};
