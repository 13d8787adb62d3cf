#include <algorithm>

#include "model/point_count.h"
#include "services/display/displays.h"
#include "services/progress.h"

namespace display {
namespace {

// What the document shows of itself, which an export takes out and puts back.
constexpr cad::Origin kOwn[] = {cad::Origin::kTotalStation, cad::Origin::kGps,
                                cad::Origin::kKnownPoints, cad::Origin::kCadastre,
                                cad::Origin::kGis};

// How much of each there is to be drawn.
struct Sizes {
  explicit Sizes(ExchangeContext& document) {
    if (const CLibCmp* const library = document.GetLibCmp()) jobs = PointCount(*library);
    if (const CLibGps* const library = document.GetLibGps()) gps = PointCount(*library);
    if (const CLibPnt* const library = document.GetLibPnt()) known = PointCount(*library);
    const CLibDtm* const models = document.GetLibDtm();
    for (int i = 0; models != nullptr && i < models->GetPrjArSize(); ++i) {
      terrain += Count(models->GetPrjAt(i)->GetTris().GetNoTris());
    }
    const gis::CLibGis* const library = document.GetLibGis();
    for (int i = 0; library != nullptr && i < library->GetNumThemes(); ++i) {
      themes += Count(library->GetTheme(i)->GetNumFeatures());
    }
  }

  std::uint64_t Points() const { return jobs + gps + known; }
  std::uint64_t All() const { return Points() + terrain + themes; }

  std::uint64_t jobs = 0;
  std::uint64_t gps = 0;
  std::uint64_t known = 0;
  std::uint64_t terrain = 0;
  std::uint64_t themes = 0;

 private:
  static std::uint64_t Count(int number) { return static_cast<std::uint64_t>(number); }
};

}  // namespace

OwnDisplaysAside::OwnDisplaysAside(ExchangeContext& document)
    : document_(document), symbols_(document.GetCadEngine()) {
  CTcadEng* const engine = document_.GetCadEngine();
  for (const cad::Origin origin : kOwn) {
    const auto& entities = engine->Entities();
    const bool isShown =
        std::any_of(entities.begin(), entities.end(),
                    [&](const cad::Entity& entity) { return entity.origin == origin; });
    if (isShown) shown_.push_back(origin);
  }
  CDisLibCmp(engine, &symbols_, &document_, true).DelAllLibCmp();
  CDisLibGps(engine, &symbols_, document_.GetLibGps(), true).DelAllLibGps();
  CDisLibPnt(engine, &symbols_, document_.GetLibPnt(), true).DelAllLibPnt();
  CDisCts(engine, &symbols_, document_.GetCts()).DelTutto();
  CDisLibGis(engine, &symbols_, document_.GetLibGis(), true).AnnullaTutto();
}

OwnDisplaysAside::~OwnDisplaysAside() {
  const ProgressScope nobody(nullptr);  // this is not the exchange's work, and must not end early
  try {
    DrawAgain();
  } catch (...) {
    // For want of memory. The entities are not the data, only their picture.
  }
}

// A host that shows nothing, as one without a screen, is not given a drawing that it never had.
void OwnDisplaysAside::DrawAgain() {
  CTcadEng* const engine = document_.GetCadEngine();
  const auto isShown = [&](cad::Origin origin) {
    return std::find(shown_.begin(), shown_.end(), origin) != shown_.end();
  };
  if (isShown(cad::Origin::kTotalStation)) {
    CDisLibCmp(engine, &symbols_, &document_, true).AddAllLibCmp(false);
  }
  if (isShown(cad::Origin::kGps)) {
    CDisLibGps(engine, &symbols_, document_.GetLibGps(), true).AddAllLibGps(false);
  }
  if (isShown(cad::Origin::kKnownPoints)) {
    CDisLibPnt(engine, &symbols_, document_.GetLibPnt(), true).AddAllLibPnt(false);
  }
  if (isShown(cad::Origin::kCadastre)) {
    CDisCts(engine, &symbols_, document_.GetCts()).CreaTutto(false);
  }
  if (isShown(cad::Origin::kGis)) {
    CDisLibGis(engine, &symbols_, document_.GetLibGis(), true).RiCreaTutto();
  }
}

void MakeTargetsCurrent(ExchangeContext& /*document*/, CTcadEng& engine) {
  for (const cad::Origin origin :
       {cad::Origin::kTotalStation, cad::Origin::kGps, cad::Origin::kCadastre,
        cad::Origin::kKnownPoints, cad::Origin::kGis, cad::Origin::kProfiles}) {
    const auto type = static_cast<unsigned>(origin);
    engine.SetTargetDrawing(engine.GetTargetDrawingForType(type), nullptr);
  }
}

std::uint64_t DrawAll(ExchangeContext& document, CTcadEng& engine, CDocSymbolManager& symbols,
                      bool explode) {
  // A point, its name, code and height, and a line or two of its symbol.
  constexpr std::size_t kEntitiesOfPoint = 5;
  const Sizes sizes(document);
  engine.Reserve(engine.Entities().size() + sizes.Points() * (explode ? kEntitiesOfPoint : 1));
  CDisPtNome names(&engine, &symbols, &document);
  CDisLibCmp jobs(&engine, &symbols, &document, true);
  CDisLibGps gps(&engine, &symbols, document.GetLibGps(), true);
  CDisCts cadastre(&engine, &symbols, document.GetCts());
  CDisLibPnt known(&engine, &symbols, document.GetLibPnt(), true);
  CDisLibDtm terrain(&engine, &symbols, document.GetLibDtm(), true);
  CDisRoad roads(&engine, &symbols, document.GetLibRoad(), true);
  CDisLibProfile profiles(&engine, &symbols, document.GetLibProfile(), document.GetLibRoad(), true);
  CDisLibGis themes(&engine, &symbols, document.GetLibGis(), true);
  ProgressParts progress(sizes.All() + sizes.Points());
  progress.Begin(sizes.Points());
  names.AddAllNames(explode);
  progress.Begin(sizes.jobs);
  jobs.AddAllLibCmp(explode);
  progress.Begin(sizes.gps);
  gps.AddAllLibGps(explode);
  progress.Begin(sizes.known);
  known.AddAllLibPnt(explode);
  cadastre.CreaTutto(explode);
  progress.Begin(sizes.terrain);
  terrain.AddAllDtm();
  roads.AddAllRoads();
  profiles.AddAllProfiles();
  progress.Begin(sizes.themes);
  themes.RiCreaTutto();
  return jobs.NotDrawn() + gps.NotDrawn() + known.NotDrawn();
}

}  // namespace display
