#include "host/document/host_document.h"

HostDocument::HostDocument() = default;
HostDocument::~HostDocument() = default;

// There is no drawing engine yet.
CTcadEng* HostDocument::GetCadEngine() { return nullptr; }
CLibCmp* HostDocument::GetLibCmp() { return &totalStation_; }
CLibGps* HostDocument::GetLibGps() { return &gps_; }
CLibPnt* HostDocument::GetLibPnt() { return &knownPoints_; }
CCts* HostDocument::GetCts() { return &cadastre_; }
CLibProfile* HostDocument::GetLibProfile() { return &profiles_; }
gis::CLibGis* HostDocument::GetLibGis() { return &gis_; }
CLibDtm* HostDocument::GetLibDtm() { return &terrain_; }
CLibRoad* HostDocument::GetLibRoad() { return &roads_; }
