#include "host/document/host_document.h"

HostDocument::HostDocument() : drawing_(0, nullptr, /*temporary=*/false) {}
HostDocument::~HostDocument() = default;

CTcadEng* HostDocument::GetCadEngine() { return &drawing_; }
CLibCmp* HostDocument::GetLibCmp() { return &totalStation_; }
CLibGps* HostDocument::GetLibGps() { return &gps_; }
CLibPnt* HostDocument::GetLibPnt() { return &knownPoints_; }
CCts* HostDocument::GetCts() { return &cadastre_; }
CLibProfile* HostDocument::GetLibProfile() { return &profiles_; }
gis::CLibGis* HostDocument::GetLibGis() { return &gis_; }
CLibDtm* HostDocument::GetLibDtm() { return &terrain_; }
CLibRoad* HostDocument::GetLibRoad() { return &roads_; }
