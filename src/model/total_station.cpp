#include "model/total_station.h"

#include "model/polar.h"

CPun::CPun(CCloudTable* /*cloud*/, bool /*notify*/, CSta* station,
           CLibCmpChangeContext* /*context*/)
    : station_(station) {}

CPun::~CPun() = default;

void CPun::SetNome(const tdk::WString& name) { CEgn::SetNome(name); }
void CPun::SetSecScri(const tdk::WString& text) { CEgn::SetSecScri(text); }
void CPun::SetCodeEgn(unsigned long code) { CEgn::SetCodeEgn(code); }
void CPun::DoSetCoord(double x, double y, double z) { CEgn::DoSetCoord(x, y, z); }
void CPun::IsModifying(bool modifying) { CEgn::IsModifying(modifying); }
int CPun::GetUserType() const { return CEgn::GetUserType(); }
unsigned CPun::GetCloudCreatorDevId() const { return CEgn::GetCloudCreatorDevId(); }

void CPun::SetDtIntAng(double dato0, double dato1, double dato2, std::uint64_t dateTime) {
  slopeDistance_ = dato0;
  zenith_ = dato1;
  horizontal_ = dato2;
  dateTime_ = dateTime;
}

double CPun::GetDfQu() const { return HeightDifference(slopeDistance_, zenith_); }
double CPun::GetDiOr() const { return HorizontalDistance(slopeDistance_, zenith_); }

void CPun::SetCoordEtCalcMisure(bool /*notify*/, double x, double y, double z, CCalcDsOr& how,
                                std::uint64_t dateTime, double prismHeight, double prismOffset) {
  SetCoord(x, y, z);
  prismHeight_ = prismHeight;
  prismOffset_ = prismOffset;
  Observation observation;
  if (station_ != nullptr) {
    observation =
        Observe(InstrumentOf(*station_), {x, y, z}, prismHeight, how.orientation, how.reduction);
  }
  if (how.addPrismOffset && IsDefined(observation.slopeDistance)) {
    observation.slopeDistance -= prismOffset;
  }
  SetDtIntAng(observation.slopeDistance, observation.zenith, observation.horizontal, dateTime);
}

void CPun::CalcolaCoordAssolute(bool /*notify*/, CCalcDsOr& how) {
  if (station_ == nullptr) return;
  const Place place = Locate(InstrumentOf(*station_), ObservationToUse(how), prismHeight_,
                             how.orientation, how.reduction);
  SetCoord(place.x, place.y, place.z);
}

CSta::~CSta() = default;

void CJob::SetLabels(const tdk::WString& nome, const tdk::WString& oper, const tdk::WString& strum,
                     const tdk::WString& data) {
  SetNome(nome);
  SetOper(oper);
  SetStrum(strum);
  SetData(data);
}

int CLibCmp::GetStaArSize(int job) const {
  const CJob* const parent = GetJobAt(job);
  return parent == nullptr ? 0 : CountOf(parent->stations_);
}

int CLibCmp::GetPunArSize(int job, int sta) const {
  const CSta* const parent = GetStaAt(job, sta);
  return parent == nullptr ? 0 : static_cast<int>(parent->points_.size());
}

CSta* CLibCmp::GetStaAt(int job, int sta) const {
  const CJob* const parent = GetJobAt(job);
  return parent == nullptr ? nullptr : ElementAt(parent->stations_, sta);
}

CPun* CLibCmp::GetPunAt(int job, int sta, int pun) const {
  const CSta* const parent = GetStaAt(job, sta);
  if (parent == nullptr || pun < 0) return nullptr;
  const auto index = static_cast<std::size_t>(pun);
  return index < parent->points_.size() ? parent->points_[index] : nullptr;
}

std::span<CPun* const> CLibCmp::PointsOf(int job, int sta) const {
  const CSta* const parent = GetStaAt(job, sta);
  if (parent == nullptr) return {};
  return parent->points_;
}

CJob* CLibCmp::AddJob(bool /*notify*/) {
  if (!MayAdd(AddedKind::kJob, jobs_.Size())) return nullptr;
  return &jobs_.Append(GetJobArSize());
}

CSta* CLibCmp::AddSta(int job, bool /*notify*/) {
  CJob* const parent = GetJobAt(job);
  if (parent == nullptr || !MayAdd(AddedKind::kStation, parent->stations_.Size())) return nullptr;
  return &parent->stations_.Append(job, CountOf(parent->stations_));
}

CPun* CLibCmp::AddPun(int job, int sta, bool notify) { return AddPun(GetStaAt(job, sta), notify); }

CPun* CLibCmp::AddPun(CSta* sta, bool notify) {
  if (sta == nullptr || !MayAdd(AddedKind::kPoint, sta->points_.size())) return nullptr;
  CPun& added = points_.Append(nullptr, notify, sta, GetCmpContext());
  sta->points_.push_back(&added);
  return &added;
}

bool CLibCmp::GetIndiciDiSta(const CSta* station, int& job, int& sta) const {
  if (station == nullptr || GetStaAt(station->job_, station->index_) != station) return false;
  job = station->job_;
  sta = station->index_;
  return true;
}

bool CLibCmp::GetIndiciDiJob(const CJob* object, int& job) const {
  if (object == nullptr || GetJobAt(object->index_) != object) return false;
  job = object->index_;
  return true;
}
