#include <algorithm>

#include "services/display/displays.h"

namespace display {
namespace {

// What the document shows of itself, which an export takes out and puts back.
constexpr cad::Origin kOwn[] = {cad::Origin::kTotalStation, cad::Origin::kGps,
                                cad::Origin::kKnownPoints, cad::Origin::kCadastre,
                                cad::Origin::kGis};

std::size_t Count(int number) { return static_cast<std::size_t>(number); }

std::size_t PointsIn(ExchangeContext& document) {
  std::size_t points = 0;
  if (const CLibCmp* const jobs = document.GetLibCmp()) {
    points += Count(jobs->GetOriArSize());
    for (int job = 0; job < jobs->GetJobArSize(); ++job) {
      for (int sta = 0; sta < jobs->GetStaArSize(job); ++sta) {
        points += 1 + jobs->PointsOf(job, sta).size();
      }
    }
  }
  const CLibGps* const gps = document.GetLibGps();
  for (int i = 0; gps != nullptr && i < gps->GetGrpArSize(); ++i) {
    points += 1 + Count(gps->GetPunArSize(i));
  }
  const CLibPnt* const known = document.GetLibPnt();
  for (int i = 0; known != nullptr && i < known->GetGrpArSize(); ++i) {
    points += Count(known->GetPtnArSize(i));
  }
  return points;
}

}  // namespace

OwnDisplays::OwnDisplays(ExchangeContext& document)
    : document_(document), symbols_(document.GetCadEngine()) {}

void OwnDisplays::DeleteAll() {
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

// A host that shows nothing, as one without a screen, is not given a drawing that it never had.
void OwnDisplays::DrawAgain() {
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
  engine.Reserve(engine.Entities().size() + PointsIn(document) * (explode ? kEntitiesOfPoint : 1));
  CDisPtNome names(&engine, &symbols, &document);
  CDisLibCmp jobs(&engine, &symbols, &document, true);
  CDisLibGps gps(&engine, &symbols, document.GetLibGps(), true);
  CDisCts cadastre(&engine, &symbols, document.GetCts());
  CDisLibPnt known(&engine, &symbols, document.GetLibPnt(), true);
  CDisLibDtm terrain(&engine, &symbols, document.GetLibDtm(), true);
  CDisRoad roads(&engine, &symbols, document.GetLibRoad(), true);
  CDisLibProfile profiles(&engine, &symbols, document.GetLibProfile(), document.GetLibRoad(), true);
  CDisLibGis themes(&engine, &symbols, document.GetLibGis(), true);
  names.AddAllNames(explode);
  jobs.AddAllLibCmp(explode);
  gps.AddAllLibGps(explode);
  known.AddAllLibPnt(explode);
  cadastre.CreaTutto(explode);
  terrain.AddAllDtm();
  roads.AddAllRoads();
  profiles.AddAllProfiles();
  themes.RiCreaTutto();
  return jobs.NotDrawn() + gps.NotDrawn() + known.NotDrawn();
}

}  // namespace display
