// kalvio-bench-survey: coordinates from observations against a bare loop that computes a sine, a
// cosine and two sums a point, over the same points of the library and over bare arrays; and how
// the time grows.
#include <malloc.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "host/document/host_document.h"
#include "host/survey/compute.h"
#include "measure.h"

namespace bench {
namespace {

constexpr std::size_t kPoints = 1'000'000;
constexpr std::size_t kStations = 1000;
constexpr int kRounds = 7;
constexpr double kNoSlowerThan = 3;  // times the bare loop
constexpr double kLinear = 1.3;      // times as long a point in a job ten times as large
constexpr double kNanoseconds = 1e9;
constexpr double kStep = 50;  // metres, from station to station
constexpr double kRadiansPerGon = M_PI / 200;
constexpr double kTurn = 12.5;  // gon
constexpr double kEast = 1000;
constexpr double kNorth = 2000;

// The same figures for the library and for the bare loop.
struct Sight {
  double slope;
  double direction;
};
Sight SightOf(std::size_t i) {
  return {10 + static_cast<double>(i % 97), static_cast<double>(i * 7919 % 400'000) / 1000};
}

std::string Name(char kind, std::size_t i) {
  char text[16];
  std::snprintf(text, sizeof text, "%c%06zu", kind, i);
  return text;
}

// A traverse to the north: every station sights the one behind, the one ahead and its points.
void Fill(CLibCmp& library, std::size_t stations, std::size_t points) {
  library.AddJob(true);
  std::size_t point = 0;
  for (std::size_t i = 0; i < stations; ++i) {
    CSta& station = *library.AddSta(0, true);
    station.SetNome(tdk::WString(Name('S', i)));
    const auto add = [&](const std::string& name, double slope, double zenith, double direction) {
      CPun& added = *library.AddPun(&station, true);
      added.SetNome(tdk::WString(name));
      added.SetDtIntAng(slope, zenith, direction, 0);
    };
    if (i > 0) add(Name('S', i - 1), kStep, 100, 200);
    if (i + 1 < stations) add(Name('S', i + 1), kStep, 100, 0);
    for (std::size_t k = 0; k < points / stations; ++k, ++point) {
      const Sight sight = SightOf(point);
      add(Name('P', point), sight.slope, 99.5, sight.direction);
    }
  }
}

class Job {
 public:
  Job(std::size_t stations, std::size_t points) : stations_(stations) {
    Fill(*document_.GetLibCmp(), stations, points);
  }

  double Seconds() {
    survey::ComputationSettings settings;
    settings.isAnew = true;
    return SecondsOf([&] {
      const auto result =
          survey::ComputeCoordinates(*document_.GetLibCmp(), *document_.GetLibPnt(), settings);
      if (!result.jobs[0].missing.empty()) throw std::runtime_error("points were not placed");
    });
  }
  /// The bare loop over the same points: a sine, a cosine and two sums each.
  double BareSeconds() {
    const CLibCmp& library = *document_.GetLibCmp();
    return SecondsOf([&] {
      for (int i = 0; i < static_cast<int>(stations_); ++i) {
        for (CPun* const point : library.PointsOf(0, i)) {
          const double azimuth = (kTurn + point->GetDato2()) * kRadiansPerGon;
          point->SetCoord(kEast + point->GetDato0() * std::sin(azimuth),
                          kNorth + point->GetDato0() * std::cos(azimuth), 0);
        }
      }
    });
  }
  const CSta& Last() {
    return *document_.GetLibCmp()->GetStaAt(0, static_cast<int>(stations_) - 1);
  }

 private:
  HostDocument document_;
  std::size_t stations_;
};

// Over arrays of nothing but what it needs.
class ArrayLoop {
 public:
  explicit ArrayLoop(std::size_t points) : x_(points), y_(points) {
    for (std::size_t i = 0; i < points; ++i) sights_.push_back(SightOf(i));
  }
  double Seconds() {
    return SecondsOf([&] {
      for (std::size_t i = 0; i < sights_.size(); ++i) {
        const double azimuth = (kTurn + sights_[i].direction) * kRadiansPerGon;
        x_[i] = kEast + sights_[i].slope * std::sin(azimuth);
        y_[i] = kNorth + sights_[i].slope * std::cos(azimuth);
      }
      if (!(x_.back() + y_[x_.size() / 2] > 0)) throw std::runtime_error("the bare loop is wrong");
    });
  }

 private:
  std::vector<Sight> sights_;
  std::vector<double> x_;
  std::vector<double> y_;
};

Row Compared(const std::string& what, const std::vector<Runs>& runs, double ownCount,
             double otherCount, std::optional<double> limit, const char* unit) {
  const double ratio = (runs[0].Minimum() / ownCount) / (runs[1].Minimum() / otherCount);
  Row row = {.what = what,
             .figure = Figure(runs[0], kNanoseconds / ownCount, 0, unit),
             .bare = Figure(runs[1], kNanoseconds / otherCount, 0, unit),
             .ratio = Number(ratio, 2)};
  if (limit) {
    row.limit = Number(*limit, 1);
    row.kept = ratio <= *limit;
  }
  return row;
}

bool Run() {
  Job large(kStations, kPoints);
  ArrayLoop arrays(kPoints);
  bool allKept = true;
  const auto print = [&](const Row& row) {
    PrintRow(row);
    if (row.kept == false) allKept = false;
  };
  const std::string what = "coordinates from observations, " + JobSize(kPoints, kStations);
  const auto ofPoints = [](const char* name, const std::vector<Runs>& runs,
                           std::optional<double> limit) {
    return Compared(name, runs, kPoints, kPoints, limit, "ns/point");
  };
  print(ofPoints(
      what.c_str(),
      Interleaved(kRounds, {[&] { return large.Seconds(); }, [&] { return large.BareSeconds(); }}),
      kNoSlowerThan));
  print(ofPoints(
      "the same; bare: over arrays of two numbers",
      Interleaved(kRounds, {[&] { return large.Seconds(); }, [&] { return arrays.Seconds(); }}),
      std::nullopt));
  if (std::abs(large.Last().GetCoordY() - kStep * (kStations - 1)) > 0.01) {
    throw std::runtime_error("the traverse ends in the wrong place");
  }

  Job small(kStations / 10, kPoints / 10);
  print(Compared(
      "the same; bare: a tenth of it",
      Interleaved(kRounds, {[&] { return large.Seconds(); }, [&] { return small.Seconds(); }}),
      kPoints, kPoints / 10.0, kLinear, "ns/point"));

  constexpr std::size_t kChain = 10'000;
  Job longChain(kChain, kChain);
  Job shortChain(kChain / 10, kChain / 10);
  print(Compared("a chain of 10,000 stations; bare: of 1,000",
                 Interleaved(kRounds, {[&] { return longChain.Seconds(); },
                                       [&] { return shortChain.Seconds(); }}),
                 kChain, kChain / 10.0, 1.5, "ns/station"));
  return allKept;
}

}  // namespace
}  // namespace bench

int main() {
  try {
    return bench::Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-survey: %s\n", error.what());
    return 2;
  }
}
