#include "shape_set.h"

#include <set>

#include "console.h"
#include "host/gis/shape_paths.h"
#include "host/gis/survey_theme.h"
#include "platform/letters.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "services/translate.h"

namespace {

std::vector<gis::CTheme*> ThemesOf(const gis::CLibGis& library) {
  std::vector<gis::CTheme*> themes;
  for (int i = 0; i < library.GetNumThemes(); ++i) themes.push_back(library.GetTheme(i));
  return themes;
}

// Of names that become one file, the later ones get a number. Takes the name.
std::string FreeName(const std::string& name, std::set<std::string>& taken) {
  std::string free = name;
  for (std::int64_t i = 1; !taken.insert(platform::Small(shape::FileNameOf(free))).second; ++i) {
    free = name + "_";
    platform::AppendWhole(free, i);
  }
  return free;
}

}  // namespace

ShapeSet::ShapeSet(HostDocument& document, const std::string& path, const tdk::WString& crs)
    : document_(document) {
  const std::string base = shape::BaseOf(path);
  const std::string stem(platform::FileName(base));
  shape::SurveyTheme points = shape::MakeSurveyTheme(document, tdk::WString(stem));
  const bool hasPoints = points.theme->GetNumFeatures() > 0;
  if (points.withoutPlace != 0) {
    remarks_.push_back(console::Count(points.withoutPlace,
                                      Xlate("{1} point without plane coordinates is left out"),
                                      Xlate("{1} points without plane coordinates are left out")));
  }
  NameThemes(stem, /*isPrefix=*/hasPoints || document.GetLibGis()->GetNumThemes() > 1);
  gis::CLibGis& library = *document.GetLibGis();
  if (hasPoints) {
    // Its table has a name that no table of the job has, for it goes away again.
    gis::CGisMerger merger(&library);
    tdk::WString tableName = points.table->GetName();
    merger.OnBeforeLoadTable(tableName);
    points.table->SetName(tableName);
    points.theme->SetTable(library.AddTable(std::move(points.table), false));
    points_ = library.AddTheme(std::move(points.theme), false);
  }
  GiveReferenceSystem(crs);
  const std::string folder = base.substr(0, base.size() - stem.size());
  for (const gis::CTheme* const theme : ThemesOf(library)) {
    files_.push_back(folder + shape::FileNameOf(theme->GetName().ToUtf8()) + ".shp");
  }
}

ShapeSet::~ShapeSet() {
  gis::CLibGis& library = *document_.GetLibGis();
  if (points_ != nullptr) {
    const gis::CTable* const table = points_->GetTable();
    library.RemoveTheme(points_);
    library.RemoveTable(table);
  }
  for (auto& [theme, name] : names_) theme->SetName(name);
  for (gis::CTheme* const theme : withoutSystem_) {
    if (theme != points_) theme->SetReferenceSystem({});
  }
}

// One theme and nothing else is the file that the user names; several get their own names after it.
void ShapeSet::NameThemes(const std::string& stem, bool isPrefix) {
  std::set<std::string> taken;
  for (gis::CTheme* const theme : ThemesOf(*document_.GetLibGis())) {
    names_.emplace_back(theme, theme->GetName());
    const std::string name = isPrefix ? stem + "-" + theme->GetName().ToUtf8() : stem;
    theme->SetName(tdk::WString(FreeName(name, taken)));
  }
}

void ShapeSet::GiveReferenceSystem(const tdk::WString& crs) {
  IGeodesy* const geodesy = IGeodesy::Current();
  if (crs.IsEmpty() || geodesy == nullptr) return;
  const std::string wkt = geodesy->WktOf(crs);
  for (gis::CTheme* const theme : ThemesOf(*document_.GetLibGis())) {
    if (!theme->GetReferenceSystem().empty()) continue;
    theme->SetReferenceSystem(wkt);
    withoutSystem_.push_back(theme);
  }
}
