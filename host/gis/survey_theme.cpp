#include "host/gis/survey_theme.h"

#include <array>
#include <string>

namespace shape {
namespace {

// Calls `visit` with each point of the job, its kind and the name of its group.
template <class Visit>
void ForEachPoint(HostDocument& document, const Visit& visit) {
  const CLibCmp& surveys = *document.GetLibCmp();
  for (int job = 0; job < surveys.GetJobArSize(); ++job) {
    const tdk::WString group = surveys.GetJobAt(job)->GetNome();
    for (int station = 0; station < surveys.GetStaArSize(job); ++station) {
      visit(*surveys.GetStaAt(job, station), "station", group);
      for (const CPun* const point : surveys.PointsOf(job, station)) {
        visit(*point, "observed", group);
      }
    }
  }
  const CLibGps& gps = *document.GetLibGps();
  for (int i = 0; i < gps.GetGrpArSize(); ++i) {
    const tdk::WString group = gps.GetGrpAt(i)->GetNomeGrp();
    visit(*gps.GetGrpAt(i), "base", group);
    for (int p = 0; p < gps.GetPunArSize(i); ++p) visit(*gps.GetPunAt(i, p), "gps", group);
  }
  const CLibPnt& known = *document.GetLibPnt();
  for (int i = 0; i < known.GetGrpArSize(); ++i) {
    const tdk::WString group = known.GetGrpAt(i)->GetNome();
    for (int p = 0; p < known.GetPtnArSize(i); ++p) visit(*known.GetPtnAt(i, p), "known", group);
  }
  for (int i = 0; i < surveys.GetOriArSize(); ++i) visit(*surveys.GetOriAt(i), "control", {});
}

struct Found {
  std::size_t points = 0;
  bool hasHeights = false;
};

Found Look(HostDocument& document) {
  Found found;
  ForEachPoint(document, [&](const CEgn& point, const char*, const tdk::WString&) {
    if (!point.HasPlane()) return;
    ++found.points;
    found.hasHeights = found.hasHeights || IsDefined(point.GetCoordZ());
  });
  return found;
}

gis::Value TextOrNull(std::string_view text) {
  return text.empty() ? gis::Value() : gis::Value(text);
}

}  // namespace

SurveyTheme MakeSurveyTheme(HostDocument& document, const tdk::WString& name) {
  const Found found = Look(document);
  SurveyTheme made{std::make_unique<gis::CTheme>(name, gis::EntityType::kPoint, found.hasHeights,
                                                 /*hasMeasures=*/false),
                   std::make_unique<gis::CTable>(name), 0};
  for (const char* const field : {"NAME", "CODE", "NOTE", "KIND", "GROUP"}) {
    made.table->AddField({field, gis::FieldType::kText, 0, 0});
  }
  made.theme->Reserve(found.points, found.points, found.points);
  made.table->Reserve(found.points);
  ForEachPoint(document, [&](const CEgn& point, const char* kind, const tdk::WString& group) {
    if (!point.HasPlane()) {
      ++made.withoutPlace;
      return;
    }
    made.theme->AddFeature();
    made.theme->AddPart();
    made.theme->AddVertex({point.GetCoordX(), point.GetCoordY(), point.GetCoordZ()});
    const tdk::WString code = point.GetSecScri();
    const tdk::WString note = point.GetTerScri();
    made.table->AddRow(std::array<gis::Value, 5>{
        TextOrNull(point.NameUtf8()), TextOrNull(code.ToUtf8()), TextOrNull(note.ToUtf8()),
        std::string_view(kind), TextOrNull(group.ToUtf8())});
  });
  return made;
}

}  // namespace shape
