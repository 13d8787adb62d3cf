#include "host/store/records.h"

#include "host/store/drawing_records.h"

namespace {

std::string TextOf(const tdk::WString& text) { return text.ToUtf8(); }
tdk::WString Text(const std::string& text) { return tdk::WString(std::string_view(text)); }

void ReadPoint(const CEgn& point, PointRecord& record) {
  record.name = TextOf(point.GetNome());
  record.desc2 = TextOf(point.GetSecScri());
  record.desc3 = TextOf(point.GetTerScri());
  record.x = point.GetCoordX();
  record.y = point.GetCoordY();
  record.z = point.GetCoordZ();
}

template <class Object>
GeocentricRecord GeocentricOf(const Object& object) {
  GeocentricRecord place{};
  object.GetGeocCeFaMis(place[0], place[1], place[2]);
  return place;
}

CovarianceRecord CovarianceOf(const CPunGps& point) {
  return {point.GetPosCov_xx(), point.GetPosCov_xy(), point.GetPosCov_xz(),
          point.GetPosCov_yy(), point.GetPosCov_yz(), point.GetPosCov_zz()};
}

void StoreCovariance(const CovarianceRecord& terms, CPunGps& point) {
  point.SetPosCov_xx(terms[0]);
  point.SetPosCov_xy(terms[1]);
  point.SetPosCov_xz(terms[2]);
  point.SetPosCov_yy(terms[3]);
  point.SetPosCov_yz(terms[4]);
  point.SetPosCov_zz(terms[5]);
}

}  // namespace

JobRecord RecordOf(const CJob& job) {
  return {TextOf(job.GetNome()), TextOf(job.GetOper()), TextOf(job.GetStrum()),
          TextOf(job.GetData()), job.GetTargetDrawing()};
}

void Store(const JobRecord& record, CJob& job) {
  job.SetLabels(Text(record.name), Text(record.operatorName), Text(record.instrument),
                Text(record.date));
  job.SetTargetDrawing(record.targetDrawing);
}

StationRecord RecordOf(const CSta& station) {
  StationRecord record;
  ReadPoint(station, record);
  record.iden = TextOf(station.GetIden());
  record.instrumentHeight = station.GetAltStr();
  record.temperature = station.GetTemper();
  record.pressure = station.GetPressi();
  return record;
}

void Store(const StationRecord& record, CSta& station) {
  Store(record, static_cast<CEgn&>(station));
  station.SetIden(Text(record.iden));
  station.SetAltStr(record.instrumentHeight);
  station.SetTemper(record.temperature);
  station.SetPressi(record.pressure);
}

ObservationRecord RecordOf(const CPun& point) {
  ObservationRecord record;
  ReadPoint(point, record);
  record.slopeDistance = point.GetDato0();
  record.zenith = point.GetDato1();
  record.horizontal = point.GetDato2();
  record.prismHeight = point.GetAltPri();
  record.dateTime = point.GetDateTime();
  record.prismType = point.GetPrismType();
  record.prismOffset = point.GetPrismOffset();
  record.code3D = point.IsCode3D();
  record.codedNP = point.IsCodedNP();
  return record;
}

void Store(const ObservationRecord& record, CPun& point) {
  Store(record, static_cast<CEgn&>(point));
  point.SetDtIntAng(record.slopeDistance, record.zenith, record.horizontal, record.dateTime);
  point.SetAltPri(record.prismHeight);
  point.SetPrismType(record.prismType);
  point.SetPrismOffset(record.prismOffset);
  point.SetCode3D(record.code3D);
  point.SetCodedNP(record.codedNP);
}

GpsGroupRecord RecordOf(const CGrpGps& group) {
  GpsGroupRecord record;
  ReadPoint(group, record);
  record.groupName = TextOf(group.GetNomeGrp());
  record.date = TextOf(group.GetData());
  // As they were set: what the host derives is derived again.
  record.baseLat = group.GetStoredBase().lat;
  record.baseLong = group.GetStoredBase().lon;
  record.baseElev = group.GetStoredBase().height;
  record.baseAntennaHeight = group.GetBaseAltAnt();
  record.geocentric = GeocentricOf(group);
  record.receiverType = group.GetTipoRicevitore();
  record.surveyType = group.GetTipoRilievo();
  record.crs = TextOf(group.GetCrs());
  record.targetDrawing = group.GetTargetDrawing();
  return record;
}

void Store(const GpsGroupRecord& record, CGrpGps& group) {
  Store(record, static_cast<CEgn&>(group));
  group.SetNomeGrp(Text(record.groupName));
  group.SetData(Text(record.date));
  group.SetBaseLat(record.baseLat);
  group.SetBaseLong(record.baseLong);
  group.SetBaseElev(record.baseElev);
  group.SetBaseAltAnt(record.baseAntennaHeight);
  group.SetGeocCeFaMis(record.geocentric[0], record.geocentric[1], record.geocentric[2]);
  group.SetTipoRicevitore(record.receiverType);
  group.SetTipoRilievo(record.surveyType);
  group.SetCrs(Text(record.crs));
  group.SetTargetDrawing(record.targetDrawing);
}

GpsPointRecord RecordOf(const CPunGps& point) {
  GpsPointRecord record;
  ReadPoint(point, record);
  record.lat = point.GetStoredPlace().lat;
  record.lon = point.GetStoredPlace().lon;
  record.elev = point.GetStoredPlace().height;
  record.antennaHeight = point.GetAltAnt();
  record.gdop = point.GetGdop();
  record.pdop = point.GetPdop();
  record.hrms = point.GetHposRms();
  record.vrms = point.GetVposRms();
  record.cov = CovarianceOf(point);
  record.gpsUsed = point.GetNuGpsUsed();
  record.glonassUsed = point.GetNuGloUsed();
  record.year = point.GetYear();
  record.month = point.GetMonth();
  record.day = point.GetDay();
  record.tod = static_cast<std::uint32_t>(point.GetTod());
  record.quality = point.GetQua();
  record.geocentric = GeocentricOf(point);
  record.codedNP = point.IsCodedNP();
  return record;
}

void Store(const GpsPointRecord& record, CPunGps& point) {
  Store(record, static_cast<CEgn&>(point));
  point.SetLat(record.lat);
  point.SetLong(record.lon);
  point.SetElev(record.elev);
  point.SetAltAnt(record.antennaHeight);
  point.SetGdop(record.gdop);
  point.SetPdop(record.pdop);
  point.SetHposRms(record.hrms);
  point.SetVposRms(record.vrms);
  StoreCovariance(record.cov, point);
  point.SetNuGpsUsed(record.gpsUsed);
  point.SetNuGloUsed(record.glonassUsed);
  point.SetYear(record.year);
  point.SetMonth(record.month);
  point.SetDay(record.day);
  point.SetTod(record.tod);
  point.SetQua(record.quality);
  point.SetGeocCeFaMis(record.geocentric[0], record.geocentric[1], record.geocentric[2]);
  point.SetCodedNP(record.codedNP);
}

KnownGroupRecord RecordOf(const CGrpPnt& group) {
  std::array<tdk::WString, 4> labels;
  group.GetLabels(labels[0], labels[1], labels[2], labels[3]);
  return {{TextOf(labels[0]), TextOf(labels[1]), TextOf(labels[2]), TextOf(labels[3])},
          group.GetTargetDrawing()};
}

void Store(const KnownGroupRecord& record, CGrpPnt& group) {
  const auto& labels = record.labels;
  group.SetLabels(Text(labels[0]), Text(labels[1]), Text(labels[2]), Text(labels[3]));
  group.SetTargetDrawing(record.targetDrawing);
}

PointRecord RecordOf(const CEgn& point) {
  PointRecord record;
  ReadPoint(point, record);
  return record;
}

void Store(const PointRecord& record, CEgn& point) {
  point.SetNomCoord(Text(record.name), Text(record.desc2), record.x, record.y, record.z);
  point.SetTerScri(Text(record.desc3));
}

TargetsRecord TargetsOf(HostDocument& document) {
  return {document.GetLibCmp()->GetTargetDrawing(), document.GetLibGps()->GetTargetDrawing(),
          document.GetLibPnt()->GetTargetDrawing(), document.GetCts()->GetTargetDrawing(),
          document.GetLibGis()->GetTargetDrawing(), document.GetLibProfile()->GetTargetDrawing()};
}

void Store(const TargetsRecord& record, HostDocument& document) {
  document.GetLibCmp()->SetTargetDrawing(record.cmp);
  document.GetLibGps()->SetTargetDrawing(record.gps);
  document.GetLibPnt()->SetTargetDrawing(record.pnt);
  document.GetCts()->SetTargetDrawing(record.cts);
  document.GetLibGis()->SetTargetDrawing(record.gis);
  document.GetLibProfile()->SetTargetDrawing(record.profile);
}

CurrentRecord CurrentOf(HostDocument& document) {
  CurrentRecord current;
  const CLibCmp& surveys = *document.GetLibCmp();
  surveys.GetIndiciDiSta(surveys.GetCurrSta(), current.station[0], current.station[1]);
  document.GetLibGps()->GetIndiciDiGrp(document.GetLibGps()->GetCurrGrp(), current.gpsGroup);
  return current;
}

bool SelectStation(const std::array<int, 2>& indices, HostDocument& document) {
  CSta* const station = document.GetLibCmp()->GetStaAt(indices[0], indices[1]);
  if (station != nullptr) document.GetLibCmp()->SetCurrSta(station);
  return station != nullptr;
}

bool SelectGpsGroup(int index, HostDocument& document) {
  CGrpGps* const group = document.GetLibGps()->GetGrpAt(index);
  if (group != nullptr) document.GetLibGps()->SetCurrGrp(group);
  return group != nullptr;
}

std::uint64_t CountRecords(HostDocument& document) {
  const CLibCmp& surveys = *document.GetLibCmp();
  const CLibGps& gps = *document.GetLibGps();
  const CLibPnt& known = *document.GetLibPnt();
  auto count = static_cast<std::uint64_t>(surveys.GetOriArSize());
  const auto add = [&](int points) { count += static_cast<std::uint64_t>(points); };
  for (int job = 0; job < surveys.GetJobArSize(); ++job) {
    for (int sta = 0; sta < surveys.GetStaArSize(job); ++sta) add(surveys.GetPunArSize(job, sta));
  }
  for (int grp = 0; grp < gps.GetGrpArSize(); ++grp) add(gps.GetPunArSize(grp));
  for (int grp = 0; grp < known.GetGrpArSize(); ++grp) add(known.GetPtnArSize(grp));
  const CLibDtm& models = *document.GetLibDtm();
  for (int i = 0; i < models.GetPrjArSize(); ++i) {
    const CTris& triangulation = models.GetPrjAt(i)->GetTris();
    add(triangulation.GetNoTriVrts());
    add(triangulation.GetNoTris());
  }
  const gis::CLibGis& themes = *document.GetLibGis();
  for (int i = 0; i < themes.GetNumThemes(); ++i) add(themes.GetTheme(i)->GetNumFeatures());
  return count + CountStored(*document.GetCadEngine());
}
