// What goes into a LandXML file.
#pragma once

#include <vector>

#include "model/exchange_context.h"
#include "tdk/wstring.h"

namespace landxml {

/// The objects to write, each list in the order in which it is written. All of them stay the
/// host's.
struct LandXmlSelection {
  std::vector<const CRoad*> roads;
  const CLibCmp* tsLibrary = nullptr;
  std::vector<const CJob*> tsJobs;
  const CLibGps* gpsLibrary = nullptr;
  std::vector<const CGrpGps*> gpsGroups;
  const CLibPnt* pointLibrary = nullptr;
  std::vector<const CGrpPnt*> pointGroups;
  std::vector<const CDtmPrj*> surfaces;
  tdk::WString path;  ///< full path of the file
};

}  // namespace landxml
