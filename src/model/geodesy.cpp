#include "model/geodesy.h"

namespace {

IGeodesy* current = nullptr;

}  // namespace

ICoordTransform::~ICoordTransform() = default;
IGeodesy::~IGeodesy() = default;
std::string IGeodesy::WktOf(const tdk::WString& /*crs*/) { return {}; }

IGeodesy* IGeodesy::Current() { return current; }
void IGeodesy::SetCurrent(IGeodesy* geodesy) { current = geodesy; }
