#include "formats/landxml/record_counts.h"

#include "model/terrain.h"

namespace landxml {
namespace {

std::uint64_t Count(int number) { return static_cast<std::uint64_t>(number); }

}  // namespace

std::uint64_t RecordCount(const CLibCmp& library, const CJob& job) {
  std::uint64_t records = 0;
  int index = 0;
  if (!library.GetIndiciDiJob(&job, index)) return records;
  for (int i = 0; i < library.GetStaArSize(index); ++i) {
    records += Count(library.GetPunArSize(index, i));
  }
  return records;
}

std::uint64_t RecordCount(const CLibGps& library, const CGrpGps& group) {
  int index = 0;
  return library.GetIndiciDiGrp(&group, index) ? Count(library.GetPunArSize(index)) : 0;
}

std::uint64_t RecordCount(const CLibPnt& library, const CGrpPnt& group) {
  int index = 0;
  return library.GetIndiciDiGrp(&group, index) ? Count(library.GetPtnArSize(index)) : 0;
}

std::uint64_t RecordCount(const CDtmPrj& surface) {
  return Count(surface.GetVncs().GetNoVncs()) + Count(surface.GetTris().GetNoTriVrts()) +
         Count(surface.GetTris().GetNoTris());
}

std::uint64_t RecordCount(const LandXmlSelection& selection) {
  std::uint64_t records = 0;
  for (const CJob* job : selection.tsJobs) records += RecordCount(*selection.tsLibrary, *job);
  for (const CGrpGps* group : selection.gpsGroups) {
    records += RecordCount(*selection.gpsLibrary, *group);
  }
  for (const CGrpPnt* group : selection.pointGroups) {
    records += RecordCount(*selection.pointLibrary, *group);
  }
  for (const CDtmPrj* surface : selection.surfaces) records += RecordCount(*surface);
  return records;
}

}  // namespace landxml
