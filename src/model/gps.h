// The GPS survey: groups (a base and what was measured with it) and their points.
#pragma once

#include <array>
#include <cstdint>

#include "model/egn.h"
#include "model/geodesy.h"
#include "model/library_base.h"
#include "model/stable_list.h"

/// How plane coordinates of a group become GPS coordinates, and back.
class CConvCoord {
 public:
  /// The reference system of the plane coordinates, as AUTHORITY:CODE; empty: none.
  tdk::WString GetCrs() const { return tdk::WString(crs_.View()); }
  void SetCrs(const tdk::WString& crs) { crs_.Set(crs.ToUtf8()); }
  /// Whether the host has a transformation for it.
  bool IsValid() const { return Transform() != nullptr; }

  /// Plane coordinates (metres) to latitude, longitude (radians) and ellipsoidal height (metres).
  /// The word after the elevation is for hosts with local systems and is not used here. False, with
  /// the results untouched, when there is no transformation or it fails.
  bool PlanAttToGrafGps(double north, double east, double elev, double local, double& lat,
                        double& lon, double& height) const;
  /// The reverse.
  bool GrafGpsToPlanAtt(double lat, double lon, double height, double& north, double& east,
                        double& elev) const;

 private:
  const ICoordTransform* Transform() const;

  CompactText crs_;
};

/// The six terms of a position's covariance, square metres.
struct Covariance {
  float xx = UndefinedFloat;
  float xy = UndefinedFloat;
  float xz = UndefinedFloat;
  float yy = UndefinedFloat;
  float yz = UndefinedFloat;
  float zz = UndefinedFloat;
};

/// One GPS measurement.
class CPunGps : public CEgn {
 public:
  ~CPunGps() override;

  tdk::WString GetCode() const { return GetSecScri(); }
  void SetCode(const tdk::WString& code) { SetSecScri(code); }

  /// Latitude and longitude in radians, ellipsoidal height of the ground point in metres. What was
  /// not set is derived from the geocentric ground point, where there is one.
  double GetLat() const { return Derived(&Geographic::lat); }
  void SetLat(double lat) { place_.lat = lat; }
  double GetLong() const { return Derived(&Geographic::lon); }
  void SetLong(double lon) { place_.lon = lon; }
  double GetElev() const { return Derived(&Geographic::height); }
  void SetElev(double height) { place_.height = height; }
  /// As they were set: undefined when they were not.
  const Geographic& GetStoredPlace() const { return place_; }
  /// Antenna height, metres.
  double GetAltAnt() const { return antennaHeight_; }
  void SetAltAnt(double height) { antennaHeight_ = height; }

  double GetGdop() const { return gdop_; }
  void SetGdop(double gdop) { gdop_ = gdop; }
  double GetPdop() const { return pdop_; }
  void SetPdop(double pdop) { pdop_ = pdop; }
  /// Horizontal and vertical root mean square, metres.
  double GetHposRms() const { return hrms_; }
  void SetHposRms(double rms) { hrms_ = rms; }
  double GetVposRms() const { return vrms_; }
  void SetVposRms(double rms) { vrms_ = rms; }

  float GetPosCov_xx() const { return covariance_.xx; }
  void SetPosCov_xx(float value) { covariance_.xx = value; }
  float GetPosCov_xy() const { return covariance_.xy; }
  void SetPosCov_xy(float value) { covariance_.xy = value; }
  float GetPosCov_xz() const { return covariance_.xz; }
  void SetPosCov_xz(float value) { covariance_.xz = value; }
  float GetPosCov_yy() const { return covariance_.yy; }
  void SetPosCov_yy(float value) { covariance_.yy = value; }
  float GetPosCov_yz() const { return covariance_.yz; }
  void SetPosCov_yz(float value) { covariance_.yz = value; }
  float GetPosCov_zz() const { return covariance_.zz; }
  void SetPosCov_zz(float value) { covariance_.zz = value; }

  /// Satellites used.
  std::uint8_t GetNuGpsUsed() const { return gpsUsed_; }
  void SetNuGpsUsed(std::uint8_t count) { gpsUsed_ = count; }
  std::uint8_t GetNuGloUsed() const { return glonassUsed_; }
  void SetNuGloUsed(std::uint8_t count) { glonassUsed_ = count; }

  std::uint16_t GetYear() const { return year_; }
  void SetYear(std::uint16_t year) { year_ = year; }
  std::uint8_t GetMonth() const { return month_; }
  void SetMonth(std::uint8_t month) { month_ = month; }
  std::uint8_t GetDay() const { return day_; }
  void SetDay(std::uint8_t day) { day_ = day; }
  /// Time of day, milliseconds.
  unsigned long GetTod() const { return timeOfDay_; }
  void SetTod(unsigned long milliseconds) { timeOfDay_ = static_cast<std::uint32_t>(milliseconds); }
  /// Solution quality: -1 computed, 0 none, 1 autonomous, 2 code, 3 float, 4 fixed.
  int GetQua() const { return quality_; }
  void SetQua(int quality) { quality_ = quality; }

  /// Geocentric coordinates of the antenna's phase centre, metres.
  void GetGeocCeFaMis(double& x, double& y, double& z) const;
  void SetGeocCeFaMis(double x, double y, double z) { phaseCentre_ = {x, y, z}; }

  /// The ground point: the phase centre less the antenna height along the normal of the WGS 84
  /// ellipsoid. Undefined without a phase centre or without geodesy.
  void GetGeocTerrMis(double& x, double& y, double& z) const;
  void GetGeocTerrWgs84(double& x, double& y, double& z) const { GetGeocTerrMis(x, y, z); }

 private:
  double Derived(double Geographic::*part) const;

  Geographic place_;
  Geocentric phaseCentre_;
  double antennaHeight_ = 0;
  double gdop_ = UndefinedValue;
  double pdop_ = UndefinedValue;
  double hrms_ = UndefinedValue;
  double vrms_ = UndefinedValue;
  Covariance covariance_;
  std::int32_t quality_ = 0;
  std::uint32_t timeOfDay_ = 0;
  std::uint16_t year_ = 0;
  std::uint8_t month_ = 0;
  std::uint8_t day_ = 0;
  std::uint8_t gpsUsed_ = 0;
  std::uint8_t glonassUsed_ = 0;
};

/// A GPS group; its name, descriptions and plane coordinates as a CEgn are those of its base point.
class CGrpGps : public CEgn, public TargetDrawingHolder {
 public:
  explicit CGrpGps(int index) : index_(index) {}
  ~CGrpGps() override;

  tdk::WString GetNomeGrp() const { return tdk::WString(groupName_.View()); }
  void SetNomeGrp(const tdk::WString& name) { groupName_.Set(name.ToUtf8()); }
  tdk::WString GetData() const { return tdk::WString(date_.View()); }
  void SetData(const tdk::WString& date) { date_.Set(date.ToUtf8()); }

  /// Position of the base's ground point: radians, metres; derived like a point's where it was not
  /// set.
  double GetBaseLat() const { return Derived(&Geographic::lat); }
  void SetBaseLat(double lat) { base_.lat = lat; }
  double GetBaseLong() const { return Derived(&Geographic::lon); }
  void SetBaseLong(double lon) { base_.lon = lon; }
  double GetBaseElev() const { return Derived(&Geographic::height); }
  void SetBaseElev(double height) { base_.height = height; }
  const Geographic& GetStoredBase() const { return base_; }
  double GetBaseAltAnt() const { return baseAntennaHeight_; }
  void SetBaseAltAnt(double height) { baseAntennaHeight_ = height; }

  /// Geocentric coordinates of the base, metres.
  void GetGeocCeFaMis(double& x, double& y, double& z) const;
  void SetGeocCeFaMis(double x, double y, double z) { phaseCentre_ = {x, y, z}; }

  /// Receiver type (1: one frequency, else two) and survey type (1: base, else real time).
  std::uint8_t GetTipoRicevitore() const { return receiverType_; }
  void SetTipoRicevitore(std::uint8_t type) { receiverType_ = type; }
  std::uint8_t GetTipoRilievo() const { return surveyType_; }
  void SetTipoRilievo(std::uint8_t type) { surveyType_ = type; }

  /// The coordinate reference system of the plane coordinates, as AUTHORITY:CODE; empty: none.
  tdk::WString GetCrs() const { return conversion_.GetCrs(); }
  void SetCrs(const tdk::WString& crs) { conversion_.SetCrs(crs); }
  bool IsCdElabValid() const { return conversion_.IsValid(); }
  CConvCoord& GetConvCoord() { return conversion_; }

 private:
  friend class CLibGps;
  double Derived(double Geographic::*part) const;

  CompactText groupName_;
  CompactText date_;
  Geographic base_;
  Geocentric phaseCentre_;
  double baseAntennaHeight_ = 0;
  std::uint8_t receiverType_ = 0;
  std::uint8_t surveyType_ = 0;
  CConvCoord conversion_;
  StableList<CPunGps> points_;
  int index_;
};

/// The GPS library; see CLibCmp for what its operations have in common.
class CLibGps : public LibraryBase, public TargetDrawingHolder {
 public:
  int GetGrpArSize() const { return CountOf(groups_); }
  int GetPunArSize(int grp) const;
  CGrpGps* GetGrpAt(int grp) const { return ElementAt(groups_, grp); }
  CPunGps* GetPunAt(int grp, int pun) const;
  CGrpGps* AddGrp(bool notify);
  CPunGps* AddPun(int grp, bool notify);
  bool GetIndiciDiGrp(const CGrpGps* group, int& grp) const;

  /// The group the user works in, or null.
  CGrpGps* GetCurrGrp() const { return currentGroup_; }
  void SetCurrGrp(CGrpGps* group) { currentGroup_ = group; }

 private:
  StableList<CGrpGps> groups_;
  CGrpGps* currentGroup_ = nullptr;
};
