#include "model/tcad_eng.h"

#include <algorithm>
#include <cwchar>

#include "model/cad_files.h"
#include "platform/letters.h"

namespace {

ICadFiles* current = nullptr;

// Names of drawings and blocks are the same in small letters and capitals. Only those of ASCII: so
// do the programs that read the files.
std::string InCapitals(std::string_view name) { return platform::Capital(name); }

// `size` characters, the end mark among them.
void CopyText(const tdk::WString& text, wchar_t* to, int size) {
  if (to == nullptr || size <= 0) return;
  const std::wstring wide = text.ToWide();
  const std::size_t length = std::min(wide.size(), static_cast<std::size_t>(size) - 1);
  std::copy_n(wide.data(), length, to);
  to[length] = L'\0';
}

}  // namespace

ICadFiles::~ICadFiles() = default;
ICadFiles* ICadFiles::Current() { return current; }
void ICadFiles::SetCurrent(ICadFiles* files) { current = files; }

CTcadEng::CTcadEng(int /*type*/, tdk::CChangeTransactionManager* /*transactions*/,
                   bool /*temporary*/) {
  AddDrawing(0, "0", /*visible=*/true, /*locked=*/false, /*isPrivate=*/false);
}

int CTcadEng::LoadFileDXF(const tdk::WString& path, int& errorLine, wchar_t* errorText,
                          int errorTextSize) {
  loadNotes_.clear();
  errorLine = 0;
  if (current == nullptr) return 0;
  CadLoad load = current->LoadDxf(path, *this);
  loadNotes_ = std::move(load.notes);
  errorLine = load.errorLine;
  CopyText(load.errorText, errorText, errorTextSize);
  return load.isLoaded ? 1 : 0;
}

int CTcadEng::LoadFileDWG(const tdk::WString& path, wchar_t* errorText, int errorTextSize,
                          CWnd* /*parent*/) {
  loadNotes_.clear();
  if (current == nullptr) return 0;
  CadLoad load = current->LoadDwg(path, *this);
  loadNotes_ = std::move(load.notes);
  CopyText(load.errorText, errorText, errorTextSize);
  return load.isLoaded ? 1 : 0;
}

int CTcadEng::Save(bool (ICadFiles::*save)(const CadSave&, const CTcadEng&), const CadSave& how) {
  saveNotes_.clear();
  if (current == nullptr) return 0;
  const bool isSaved = (current->*save)(how, *this);
  saveNotes_ = current->SaveNotes();
  return isSaved ? 1 : 0;
}

int CTcadEng::SaveFileDXF(const tdk::WString& path, bool first, bool onlyVisible, bool third,
                          bool fourth, bool explodeBlocks, enumTCAD_DXFDWG_VER version, int last) {
  return Save(&ICadFiles::SaveDxf,
              {path, {first, onlyVisible, third, fourth, explodeBlocks}, version, last});
}

int CTcadEng::SaveFileDWG(const tdk::WString& path, bool first, bool onlyVisible, bool third,
                          bool fourth, bool explodeBlocks, enumTCAD_DXFDWG_VER version, int last) {
  return Save(&ICadFiles::SaveDwg,
              {path, {first, onlyVisible, third, fourth, explodeBlocks}, version, last});
}

std::vector<int> CTcadEng::CopyDrawings(const CTcadEng& source, bool withPrivate) {
  std::vector<int> copies(source.drawings_.size() + 1, 1);
  for (std::size_t i = 0; i < source.drawings_.size(); ++i) {
    const Drawing& from = source.drawings_[i];
    if (from.isPrivate && !withPrivate) continue;
    const std::size_t before = drawings_.size();
    const int copy = AddDrawing(from.type, tdk::WString(from.name), from.isVisible, from.isLocked,
                                from.isPrivate);
    copies[i + 1] = copy;
    // The first drawing is always there; a copy of all has its state as well.
    if (drawings_.size() == before && copy != 1) continue;
    SetDrawingColor(copy, from.isByLayer, from.color);
    SetDrawingVisible(copy, from.isVisible);
    SetDrawingLocked(copy, from.isLocked);
  }
  return copies;
}

// Drawings and blocks of a name that is taken are those of that name.
void CTcadEng::CopiaDa(CTcadEng* source, bool withPrivate) {
  const std::vector<int> drawings = CopyDrawings(*source, withPrivate);
  std::vector<int> blocks;
  std::vector<bool> isNew;
  for (const cad::Block& block : source->blocks_) {
    const int there = FindBlock(block.name);
    isNew.push_back(there < 0);
    blocks.push_back(there < 0
                         ? AddBlock({block.name, block.base, {}, block.attributes, block.isPrivate})
                         : there);
  }
  const auto copyAll = [&](const std::vector<cad::Entity>& from, std::vector<cad::Entity>& to) {
    to.reserve(to.size() + from.size());
    for (const cad::Entity& entity : from) {
      if (entity.isPrivate && !withPrivate) continue;
      cad::Entity& copy = to.emplace_back(entity);
      copy.drawing = drawings[static_cast<std::size_t>(entity.drawing)];
      if (auto* const insert = std::get_if<cad::InsertShape>(&copy.shape)) {
        insert->block = blocks[static_cast<std::size_t>(insert->block)];
      }
    }
  };
  for (std::size_t i = 0; i < source->blocks_.size(); ++i) {
    if (isNew[i]) copyAll(source->blocks_[i].entities, BlockAt(blocks[i]).entities);
  }
  copyAll(source->entities_, entities_);
}

int CTcadEng::GetNoBlocksNotPriv() const {
  return static_cast<int>(std::count_if(blocks_.begin(), blocks_.end(),
                                        [](const cad::Block& b) { return !b.isPrivate; }));
}

// Blocks stay: inserts name them by their positions.
void CTcadEng::PurgePrivateObjects() {
  RemoveIf([](const cad::Entity& entity) { return entity.isPrivate; });
  for (cad::Block& block : blocks_) {
    std::erase_if(block.entities, [](const cad::Entity& entity) { return entity.isPrivate; });
  }
}

const CTcadEng::Drawing* CTcadEng::Find(int id) const {
  if (id < 1 || static_cast<std::size_t>(id) > drawings_.size()) return nullptr;
  return &drawings_[static_cast<std::size_t>(id) - 1];
}
CTcadEng::Drawing* CTcadEng::Find(int id) {
  return const_cast<Drawing*>(std::as_const(*this).Find(id));
}

tdk::WString CTcadEng::GetDrawingName(int id) const {
  const Drawing* const drawing = Find(id);
  return drawing == nullptr ? tdk::WString() : tdk::WString(drawing->name);
}

int CTcadEng::GetDrawingFromName(unsigned type, const tdk::WString& name) const {
  const auto found = drawingByName_.find(InCapitals(name.ToUtf8()));
  if (found == drawingByName_.end()) return 0;
  return Find(found->second)->type == type ? found->second : 0;
}

int CTcadEng::AddDrawing(unsigned type, const tdk::WString& name, bool visible, bool locked,
                         bool isPrivate) {
  const int next = static_cast<int>(drawings_.size()) + 1;
  const auto [found, isNew] = drawingByName_.emplace(InCapitals(name.ToUtf8()), next);
  if (isNew) drawings_.push_back({name.ToUtf8(), type, visible, locked, isPrivate});
  return found->second;
}

bool CTcadEng::IsDrawingLocked(int id) const {
  const Drawing* const drawing = Find(id);
  return drawing != nullptr && drawing->isLocked;
}
bool CTcadEng::IsDrawingVisible(int id) const {
  const Drawing* const drawing = Find(id);
  return drawing != nullptr && drawing->isVisible;
}
void CTcadEng::SetDrawingVisible(int id, bool visible) {
  if (Drawing* const drawing = Find(id)) drawing->isVisible = visible;
}
void CTcadEng::SetDrawingLocked(int id, bool locked) {
  if (Drawing* const drawing = Find(id)) drawing->isLocked = locked;
}

void CTcadEng::GetDrawingColor(int id, bool& byLayer, unsigned& color) const {
  const Drawing none;
  const Drawing* const found = Find(id);
  const Drawing& drawing = found == nullptr ? none : *found;
  byLayer = drawing.isByLayer;
  color = drawing.color;
}
void CTcadEng::SetDrawingColor(int id, bool byLayer, unsigned color) {
  if (Drawing* const drawing = Find(id)) {
    drawing->isByLayer = byLayer;
    drawing->color = color;
  }
}

void CTcadEng::AddDrawingRef(int id) {
  if (Drawing* const drawing = Find(id)) ++drawing->references;
}
void CTcadEng::SubDrawingRef(int id) {
  Drawing* const drawing = Find(id);
  if (drawing != nullptr && drawing->references > 0) --drawing->references;
}
int CTcadEng::GetDrawingRefs(int id) const {
  const Drawing* const drawing = Find(id);
  return drawing == nullptr ? 0 : drawing->references;
}

// Until it is chosen, the target of each type is the drawing that is always there.
int CTcadEng::GetTargetDrawingForType(unsigned type) {
  return targets_.emplace(type, 1).first->second;
}

void CTcadEng::SetTargetDrawing(int id, int* previous) {
  if (previous != nullptr) *previous = target_;
  target_ = id;
}

cad::Entity& CTcadEng::Add(cad::Entity entity) {
  entities_.push_back(std::move(entity));
  return entities_.back();
}

int CTcadEng::FindBlock(std::string_view name) const {
  const auto found = blockByName_.find(InCapitals(name));
  return found == blockByName_.end() ? -1 : found->second;
}

int CTcadEng::AddBlock(cad::Block block) {
  const int position = static_cast<int>(blocks_.size());
  blockByName_.emplace(InCapitals(block.name), position);
  blocks_.push_back(std::move(block));
  return position;
}
