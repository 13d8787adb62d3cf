#include "model/point_count.h"

namespace {

std::uint64_t Count(int number) { return static_cast<std::uint64_t>(number); }

}  // namespace

std::uint64_t PointCount(const CLibCmp& library) {
  std::uint64_t points = Count(library.GetOriArSize());
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    const int stations = library.GetStaArSize(job);
    points += Count(stations);
    for (int sta = 0; sta < stations; ++sta) points += Count(library.GetPunArSize(job, sta));
  }
  return points;
}

std::uint64_t PointCount(const CLibGps& library) {
  std::uint64_t points = Count(library.GetGrpArSize());
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    points += Count(library.GetPunArSize(group));
  }
  return points;
}

std::uint64_t PointCount(const CLibPnt& library) {
  std::uint64_t points = 0;
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    points += Count(library.GetPtnArSize(group));
  }
  return points;
}
