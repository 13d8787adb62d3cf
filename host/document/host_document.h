// The open job of the reference host.
#pragma once

#include "model/exchange_context.h"
#include "model/tcad_eng.h"
#include "services/ini_file.h"

/// All libraries of one job, in memory, and its settings.
class HostDocument : public ExchangeContext {
 public:
  HostDocument();
  ~HostDocument() override;

  CTcadEng* GetCadEngine() override;
  CLibCmp* GetLibCmp() override;
  CLibGps* GetLibGps() override;
  CLibPnt* GetLibPnt() override;
  CCts* GetCts() override;
  CLibProfile* GetLibProfile() override;
  gis::CLibGis* GetLibGis() override;
  CLibDtm* GetLibDtm() override;
  CLibRoad* GetLibRoad() override;

  JobSettings& Settings() { return settings_; }

 private:
  CLibCmp totalStation_;
  CLibGps gps_;
  CLibPnt knownPoints_;
  CCts cadastre_;
  CLibProfile profiles_;
  gis::CLibGis gis_;
  CLibDtm terrain_;
  CLibRoad roads_;
  CTcadEng drawing_;
  JobSettings settings_;
};
