// The total-station survey: jobs, their stations, the points measured from each.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "model/egn.h"
#include "model/known_points.h"
#include "model/library_base.h"
#include "model/polar.h"
#include "model/stable_list.h"
#include "tdk/source_event.h"

class CCloudTable;
class CJob;
class CLibCmp;
class CSta;

/// Tells when a batch of changes to the total-station library begins and ends.
class CLibCmpChangeContext : public tdk::CSourceEvent {};

/// How an observation is turned into coordinates and back.
struct CCalcDsOr {
  /// Azimuth of the station's zero direction, gon, clockwise from north.
  double orientation = 0;
  Reduction reduction{};
  /// Whether the prism constant (metres) is still to be added to the slope distance.
  bool addPrismOffset = false;
};

/// One observed point. Distances and heights in metres, angles in gon; what was not measured is
/// undefined.
class CPun : public CEgn {
 public:
  /// `station` is the one it was observed from, not owned, may be null. A point that a library adds
  /// is built so too; the cloud table, the flag and the context are for hosts that share jobs and
  /// are not used here.
  CPun(CCloudTable* cloud, bool notify, CSta* station, CLibCmpChangeContext* context);
  ~CPun() override;

  void SetNome(const tdk::WString& name) override;
  void SetSecScri(const tdk::WString& text) override;
  void SetCodeEgn(unsigned long code) override;
  void DoSetCoord(double x, double y, double z) override;
  void IsModifying(bool modifying) override;
  int GetUserType() const override;
  unsigned GetCloudCreatorDevId() const override;

  tdk::WString GetCode() const { return GetSecScri(); }
  void SetCode(const tdk::WString& code) { SetSecScri(code); }
  /// Prism (target) height.
  double GetAltPri() const { return prismHeight_; }
  void SetAltPri(double height) { prismHeight_ = height; }
  /// Slope distance, zenith angle, horizontal direction.
  double GetDato0() const { return slopeDistance_; }
  double GetDato1() const { return zenith_; }
  double GetDato2() const { return horizontal_; }
  /// Stores slope distance, zenith angle, horizontal direction and the time (milliseconds UTC, 0:
  /// none).
  void SetDtIntAng(double dato0, double dato1, double dato2, std::uint64_t dateTime);
  std::uint64_t GetDateTime() const { return dateTime_; }
  unsigned GetPrismType() const { return prismType_; }
  void SetPrismType(unsigned type) { prismType_ = type; }
  double GetPrismOffset() const { return prismOffset_; }
  void SetPrismOffset(double offset) { prismOffset_ = offset; }

  /// Height difference (slope distance times cosine of the zenith angle) and horizontal distance
  /// (times sine); undefined when a part is.
  double GetDfQu() const;
  double GetDiOr() const;

  /// Stores the coordinates and the time and, where the station's coordinates are defined, derives
  /// the observation from them. `prismHeight` and `prismOffset` are stored as given.
  void SetCoordEtCalcMisure(bool notify, double x, double y, double z, CCalcDsOr& how,
                            std::uint64_t dateTime, double prismHeight, double prismOffset);
  /// Derives coordinates from the observation and the station. What cannot be derived becomes
  /// undefined.
  void CalcolaCoordAssolute(bool notify, CCalcDsOr& how);

  /// The observation with what `how` adds to its distance.
  Observation ObservationToUse(const CCalcDsOr& how) const {
    Observation observation{slopeDistance_, zenith_, horizontal_};
    if (how.addPrismOffset && IsDefined(slopeDistance_)) observation.slopeDistance += prismOffset_;
    return observation;
  }

  const CSta* GetSta() const { return station_; }

 private:
  std::uint32_t prismType_ = 0;
  double slopeDistance_ = UndefinedValue;
  double zenith_ = UndefinedValue;
  double horizontal_ = UndefinedValue;
  double prismHeight_ = 0;
  double prismOffset_ = 0;
  std::uint64_t dateTime_ = 0;
  CSta* station_;
};

/// An instrument set-up.
class CSta : public CEgn {
 public:
  CSta(int job, int index) : job_(job), index_(index) {}
  ~CSta() override;

  tdk::WString GetIden() const { return tdk::WString(identification_.View()); }
  void SetIden(const tdk::WString& text) { identification_.Set(text.ToUtf8()); }
  /// Instrument height, metres.
  double GetAltStr() const { return instrumentHeight_; }
  void SetAltStr(double height) { instrumentHeight_ = height; }
  /// Air temperature, degrees Celsius.
  double GetTemper() const { return temperature_; }
  void SetTemper(double temperature) { temperature_ = temperature; }
  /// Air pressure, in the unit of the instrument.
  double GetPressi() const { return pressure_; }
  void SetPressi(double pressure) { pressure_ = pressure; }

 private:
  friend class CLibCmp;
  CompactText identification_;
  double instrumentHeight_ = 0;
  double temperature_ = 0;
  double pressure_ = 0;
  std::vector<CPun*> points_;  // the library's
  // Where it stands in the library, so that its indices are found without a search.
  int job_;
  int index_;
};

class CJob : public TargetDrawingHolder {
 public:
  explicit CJob(int index) : index_(index) {}

  tdk::WString GetNome() const { return tdk::WString(name_.View()); }
  tdk::WString GetOper() const { return tdk::WString(operator_.View()); }
  tdk::WString GetStrum() const { return tdk::WString(instrument_.View()); }
  tdk::WString GetData() const { return tdk::WString(date_.View()); }
  void SetNome(const tdk::WString& text) { name_.Set(text.ToUtf8()); }
  void SetOper(const tdk::WString& text) { operator_.Set(text.ToUtf8()); }
  void SetStrum(const tdk::WString& text) { instrument_.Set(text.ToUtf8()); }
  void SetData(const tdk::WString& text) { date_.Set(text.ToUtf8()); }
  void SetLabels(const tdk::WString& nome, const tdk::WString& oper, const tdk::WString& strum,
                 const tdk::WString& data);

 private:
  friend class CLibCmp;
  CompactText name_;
  CompactText operator_;
  CompactText instrument_;
  CompactText date_;
  StableList<CSta> stations_;
  int index_;
};

/// The total-station library. Indices count from 0 in order of addition; an object that an index
/// does not reach is null, a list that an index does not reach is empty. All objects belong to the
/// library and stay where they are. It is also the list of the job's control (orientation) records.
class CLibCmp : public CLibConOri, public TargetDrawingHolder {
 public:
  int GetJobArSize() const { return CountOf(jobs_); }
  int GetStaArSize(int job) const;
  int GetPunArSize(int job, int sta) const;
  CJob* GetJobAt(int job) const { return ElementAt(jobs_, job); }
  CSta* GetStaAt(int job, int sta) const;
  CPun* GetPunAt(int job, int sta, int pun) const;

  /// All points of a station at once, for the host's engines; until one is added.
  std::span<CPun* const> PointsOf(int job, int sta) const;

  /// Each appends an empty object and returns it; null when the host refuses or the parent is not
  /// there. The flag asks the host to tell its views.
  CJob* AddJob(bool notify);
  CSta* AddSta(int job, bool notify);
  CPun* AddPun(int job, int sta, bool notify);
  CPun* AddPun(CSta* sta, bool notify);

  /// Finds the indices of an object of this library, in constant time. False, with the indices
  /// untouched, when it is not one of them.
  bool GetIndiciDiSta(const CSta* station, int& job, int& sta) const;
  bool GetIndiciDiJob(const CJob* object, int& job) const;

  /// The station the user works in, or null.
  CSta* GetCurrSta() const { return currentStation_; }
  void SetCurrSta(CSta* sta) { currentStation_ = sta; }

  /// The library's change source; null when the host has none.
  CLibCmpChangeContext* GetCmpContext() { return hasContext_ ? &context_ : nullptr; }
  void HaveCmpContext(bool have) { hasContext_ = have; }

 private:
  StableList<CJob> jobs_;
  // Of all stations, in order of addition: a list for each would leave a gap at its end, and a
  // field job has thousands of stations with a few points each.
  StableList<CPun> points_;
  CSta* currentStation_ = nullptr;
  CLibCmpChangeContext context_;
  bool hasContext_ = true;
};
