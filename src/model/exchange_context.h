// The document that a host hands to an exchange.
#pragma once

#include "model/design.h"
#include "model/gis.h"
#include "model/gps.h"
#include "model/known_points.h"
#include "model/road.h"
#include "model/terrain.h"
#include "model/total_station.h"

class CTcadEng;

/// Leads to the libraries of the open job. All of them belong to the host. The first five getters
/// stand in this order in every host; later ones are added after them.
class ExchangeContext {
 public:
  virtual CTcadEng* GetCadEngine() = 0;
  virtual CLibCmp* GetLibCmp() = 0;
  virtual CLibGps* GetLibGps() = 0;
  virtual CLibPnt* GetLibPnt() = 0;
  virtual CCts* GetCts() = 0;

  virtual CLibProfile* GetLibProfile() = 0;
  virtual gis::CLibGis* GetLibGis() = 0;
  virtual CLibDtm* GetLibDtm() = 0;
  virtual CLibRoad* GetLibRoad() = 0;

  virtual ~ExchangeContext();
};
