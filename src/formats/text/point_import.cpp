#include "formats/text/point_import.h"

#include "services/file_name.h"

namespace text {

PointImport::PointImport(const Libraries& into, const TextExchangeSettings& settings)
    : into_(into), kind_(settings.kind) {
  if (kind_ == kKnownPoints) MakeGroup(settings.filePath);
}

void PointImport::MakeGroup(const tdk::WString& path) {
  CGrpPnt* const group = into_.known->AddGrp(true);
  if (group == nullptr) return;
  group->SetLabels(EstraiIlNomeFile(path), {}, {}, {});
  group_ = into_.known->GetGrpArSize() - 1;
}

bool PointImport::Add(const PointLine& line) {
  switch (kind_) {
    case kKnownPoints: return AddKnown(into_.known->AddPtn(group_, true), line);
    case kControlPoints: return AddKnown(into_.totalStation->AddOri(true), line);
    case kTotalStation: return AddObserved(line);
    case kGpsGroups: return AddGps(line);
    default: return false;
  }
}

bool PointImport::AddKnown(CEgn* point, const PointLine& line) const {
  if (point == nullptr) return false;
  point->SetNomCoord(tdk::WString(line.name), tdk::WString(line.descr), line.east, line.north,
                     line.elev);
  return true;
}

// As it is to be seen from the station: the observation follows from the coordinates.
bool PointImport::AddObserved(const PointLine& line) const {
  CSta* const station = into_.totalStation->GetCurrSta();
  CPun* const point = station == nullptr ? nullptr : into_.totalStation->AddPun(station, true);
  if (point == nullptr) return false;
  point->SetNome(tdk::WString(line.name));
  point->SetCode(tdk::WString(line.descr));
  point->SetAltPri(0);
  CCalcDsOr how;
  point->SetCoordEtCalcMisure(true, line.east, line.north, line.elev, how, 0, 0, 0);
  return true;
}

bool PointImport::AddGps(const PointLine& line) const {
  CGrpGps* const group = into_.gps->GetCurrGrp();
  if (group == nullptr || !group->IsCdElabValid()) return false;
  double lat = 0;
  double lon = 0;
  double height = 0;
  int index = -1;
  if (!group->GetConvCoord().PlanAttToGrafGps(line.north, line.east, line.elev, 0, lat, lon,
                                              height) ||
      !into_.gps->GetIndiciDiGrp(group, index)) {
    return false;
  }
  CPunGps* const point = into_.gps->AddPun(index, true);
  if (point == nullptr) return false;
  point->SetNome(tdk::WString(line.name));
  point->SetCode(tdk::WString(line.descr));
  point->SetAltAnt(0);
  point->SetCoord(line.east, line.north, line.elev);
  point->SetLat(lat);
  point->SetLong(lon);
  point->SetElev(height);
  return true;
}

}  // namespace text
