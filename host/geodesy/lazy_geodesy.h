// Geodesy that costs nothing until it is asked.
#pragma once

#include <memory>

#include "model/geodesy.h"

/// Loads the geodesy library (libkalvio_geodesy.so, beside this one) at the first question;
/// reference systems and their tables are heavy, and most exchanges need none. When it cannot be
/// loaded every answer is "cannot say".
class LazyGeodesy : public IGeodesy {
 public:
  LazyGeodesy();
  ~LazyGeodesy() override;

  bool ToGeographic(const Geocentric& from, Geographic& to) override;
  bool ToGeocentric(const Geographic& from, Geocentric& to) override;
  const ICoordTransform* TransformOf(const tdk::WString& crs) override;
  std::string WktOf(const tdk::WString& crs) override;

  /// Makes one object of this class the geodesy of the process.
  static void Install();

 private:
  IGeodesy* Engine();

  std::unique_ptr<IGeodesy> engine_;
  bool tried_ = false;
};

/// What libkalvio_geodesy.so offers: a new engine that the caller owns, or null.
extern "C" IGeodesy* KalvioMakeGeodesy();
