// The files of the drawing engine, as the host reads and writes them.
#pragma once

#include <vector>

#include "model/tcad_eng.h"

/// What came of loading a drawing.
struct CadLoad {
  bool isLoaded = false;
  int errorLine = 0;                ///< from 1, where the file is one of lines
  tdk::WString errorText;           ///< why it failed
  std::vector<tdk::WString> notes;  ///< what was read and could not be held: a line each
};

struct CadSave {
  tdk::WString path;
  bool flags[5] = {};  ///< as the engine's save operations take them
  enumTCAD_DXFDWG_VER version = TCAD_DXF_2000;
  int last = 0;

  bool OnlyVisible() const { return flags[1]; }
  bool ExplodesBlocks() const { return flags[4]; }
};

/// Reads and writes drawings for every engine of a process. Without one, no file can be.
class ICadFiles {
 public:
  virtual ~ICadFiles();
  virtual CadLoad LoadDxf(const tdk::WString& path, CTcadEng& engine) = 0;
  virtual CadLoad LoadDwg(const tdk::WString& path, CTcadEng& engine) = 0;
  virtual bool SaveDxf(const CadSave& how, const CTcadEng& engine) = 0;
  virtual bool SaveDwg(const CadSave& how, const CTcadEng& engine) = 0;
  /// What the last save could not hold, for the user: a line each.
  virtual std::vector<tdk::WString> SaveNotes() const { return {}; }

  /// Null when there is none. Not owned.
  static ICadFiles* Current();
  static void SetCurrent(ICadFiles* files);
};
