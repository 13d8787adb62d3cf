#include "model/shape_files.h"

namespace {

IShapeFiles* current = nullptr;

}  // namespace

IShapeFiles::~IShapeFiles() = default;
IShapeFiles* IShapeFiles::Current() { return current; }
void IShapeFiles::SetCurrent(IShapeFiles* files) { current = files; }

int FGetEntTypeFromFileShp(const tdk::WString& path) {
  return current != nullptr ? current->EntityTypeOf(path) : -1;
}

bool FGetFieldFromFileDbf(gis::CLibGis* /*library*/, const tdk::WString& dbfPath,
                          std::vector<tdk::WString>& fields) {
  fields.clear();
  return current != nullptr && current->FieldsOf(dbfPath, fields);
}

bool FImportFileShape(gis::CLibGis* library, tdk::WString& path, tdk::WString& name, int* result,
                      gis::ILinkImportedEnt* link, gis::IGisMerger* merger,
                      TOpzImportShape& options) {
  ShapeOutcome outcome;
  outcome.result = kShapeInconsistent;
  if (current != nullptr && library != nullptr) {
    outcome = current->Import({library, path, link, merger, options});
  }
  name = outcome.name;
  if (result != nullptr) *result = outcome.result;
  return outcome.isDone;
}

bool FExportFileShape(gis::CLibGis* /*library*/, gis::CTheme* theme, const tdk::WString& folder,
                      int maximumCharacters, int coordinateType, IExportFileCallback* callback,
                      int& failed) {
  failed = kShapeFileFailed | kShapeTableFailed;
  if (current == nullptr || theme == nullptr) return false;
  const ShapeOutcome outcome =
      current->Export({theme, folder, maximumCharacters, coordinateType, callback});
  failed = outcome.result;
  return outcome.isDone;
}
