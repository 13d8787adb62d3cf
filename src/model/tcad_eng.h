// The drawing engine: drawings (layers) with their entities, blocks.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "model/drawing_entities.h"
#include "tdk/wstring.h"

class CWnd;
class ICadFiles;
struct CadSave;
namespace tdk {
class CChangeTransactionManager;
}

/// Versions of drawing files, as the engine numbers them.
enum enumTCAD_DXFDWG_VER {
  TCAD_DXF_R12 = 0,
  TCAD_DXF_2000 = 3,
  TCAD_DWG_R14 = 6,
  TCAD_DWG_2000 = 7
};

/// A drawing is named by its id: 1 for the first, which is always there and called "0"; 0 is none.
/// Ids of drawings that there are not are answered as those of an invisible drawing without a name.
class CTcadEng {
 public:
  /// The arguments are for hosts that share engines and undo changes, and are not used here.
  CTcadEng(int type, tdk::CChangeTransactionManager* transactions, bool temporary);
  CTcadEng(const CTcadEng&) = delete;
  CTcadEng& operator=(const CTcadEng&) = delete;

  // Files. Paths may have backslashes; each returns non-zero on success, and else a text of at most
  // `errorTextSize` characters, the end mark included. What was loaded before an error stays.
  int LoadFileDXF(const tdk::WString& path, int& errorLine, wchar_t* errorText, int errorTextSize);
  int LoadFileDWG(const tdk::WString& path, wchar_t* errorText, int errorTextSize, CWnd* parent);
  /// `onlyVisible`: what lies on drawings that are not shown is left out.
  int SaveFileDXF(const tdk::WString& path, bool first, bool onlyVisible, bool third, bool fourth,
                  bool explodeBlocks, enumTCAD_DXFDWG_VER version, int last);
  int SaveFileDWG(const tdk::WString& path, bool first, bool onlyVisible, bool third, bool fourth,
                  bool explodeBlocks, enumTCAD_DXFDWG_VER version, int last);
  /// What the last load could not hold, for the user: a line each.
  const std::vector<tdk::WString>& LoadNotes() const { return loadNotes_; }
  /// What the last save could not hold, for the user: a line each.
  const std::vector<tdk::WString>& SaveNotes() const { return saveNotes_; }

  /// The engine's own variables stay out of the files it saves.
  void DontSaveTcadVars() { savesVariables_ = false; }
  /// Adds all that another engine holds; `withPrivate`: its private objects as well.
  void CopiaDa(CTcadEng* source, bool withPrivate);
  /// How many blocks are not private.
  int GetNoBlocksNotPriv() const;
  /// Removes private entities, also those in blocks.
  void PurgePrivateObjects();

  // Drawings.
  int GetNoDrawings() const { return static_cast<int>(drawings_.size()); }
  tdk::WString GetDrawingName(int id) const;
  /// 0 when there is none of that name and type; letter case does not matter.
  int GetDrawingFromName(unsigned type, const tdk::WString& name) const;
  /// The new drawing's id; that of the one there is when the name is taken.
  int AddDrawing(unsigned type, const tdk::WString& name, bool visible, bool locked,
                 bool isPrivate);
  bool IsDrawingLocked(int id) const;
  bool IsDrawingVisible(int id) const;
  void SetDrawingVisible(int id, bool visible);
  void SetDrawingLocked(int id, bool locked);
  /// A drawing's colour: whether its entities have it, and the colour index.
  void GetDrawingColor(int id, bool& byLayer, unsigned& color) const;
  void SetDrawingColor(int id, bool byLayer, unsigned color);
  void AddDrawingRef(int id);
  void SubDrawingRef(int id);
  int GetDrawingRefs(int id) const;

  /// The drawing that objects of a type are drawn in; made when it is first asked for.
  int GetTargetDrawingForType(unsigned type);
  /// Makes a drawing the current one and hands back the one before, where `previous` is not null.
  void SetTargetDrawing(int id, int* previous);
  int GetTargetDrawing() const { return target_; }

  // What is drawn.
  const std::vector<cad::Entity>& Entities() const { return entities_; }
  cad::Entity& Add(cad::Entity entity);
  /// Removes the entities for which `isGone` is true.
  template <class IsGone>
  void RemoveIf(const IsGone& isGone) {
    std::erase_if(entities_, isGone);
  }
  void Reserve(std::size_t entities) { entities_.reserve(entities); }

  const std::vector<cad::Block>& Blocks() const { return blocks_; }
  /// Position of a block; -1 when there is none of that name (letter case does not matter).
  int FindBlock(std::string_view name) const;
  /// Position of the new block. The name must not be taken.
  int AddBlock(cad::Block block);
  cad::Block& BlockAt(int position) { return blocks_[static_cast<std::size_t>(position)]; }

 private:
  struct Drawing {
    std::string name;
    unsigned type = 0;
    bool isVisible = true;
    bool isLocked = false;
    bool isPrivate = false;
    bool isByLayer = true;
    unsigned color = 7;
    int references = 0;
  };
  int Save(bool (ICadFiles::*save)(const CadSave&, const CTcadEng&), const CadSave& how);
  const Drawing* Find(int id) const;
  // The copies of all drawings of another engine, by their ids there.
  std::vector<int> CopyDrawings(const CTcadEng& source, bool withPrivate);
  Drawing* Find(int id);

  std::vector<Drawing> drawings_;
  std::vector<cad::Entity> entities_;
  std::vector<cad::Block> blocks_;
  std::map<unsigned, int> targets_;                        // by the type of what is drawn
  std::map<std::string, int, std::less<>> drawingByName_;  // in capitals
  std::map<std::string, int, std::less<>> blockByName_;
  int target_ = 1;
  bool savesVariables_ = true;
  std::vector<tdk::WString> loadNotes_;
  std::vector<tdk::WString> saveNotes_;
};

/// Brackets a batch of changes to an engine, so that its views draw once.
class CTcadEventSentinel {
 public:
  explicit CTcadEventSentinel(CTcadEng* engine) : engine_(engine) {}
  CTcadEventSentinel(const CTcadEventSentinel&) = delete;
  CTcadEventSentinel& operator=(const CTcadEventSentinel&) = delete;

 private:
  [[maybe_unused]] CTcadEng* engine_;
};
