// Jobs of any size as plain values, made from a seed: the same seed gives the same job everywhere.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace bench {

struct JobShape {
  std::uint64_t points = 1000;
  std::uint64_t stations = 10;
  std::uint64_t jobs = 1;
  std::uint64_t seed = 1;
};

template <std::size_t Length>
using Letters = std::array<char, Length>;

template <std::size_t Length>
std::string_view View(const Letters<Length>& text) {
  return {text.data(), Length};
}

struct PlainJob {
  Letters<7> name;
  std::string_view surveyor;
  std::string_view instrument;
  std::string_view date;
};

struct PlainStation {
  Letters<7> name;
  std::string_view identification;
  double height;       // metres
  double temperature;  // degrees Celsius
  double pressure;
};

struct PlainPoint {
  Letters<7> name;
  Letters<8> code;
  double prismHeight;    // metres
  double horizontal;     // gon
  double zenith;         // gon
  double slopeDistance;  // metres; 0: none measured
};

inline constexpr std::array<std::string_view, 32> kCodes = {
    "POZZETTO", "CANCELLO", "SCARPATA", "LAMPIONE", "CIGLIONE", "FABBRICA", "CADITOIA", "PILASTRO",
    "BANCHINA", "FOSSETTO", "SENTIERO", "STECCATO", "MURATURA", "CISTERNA", "PIAZZOLA", "PIAZZALE",
    "FERROVIA", "CAPOSALD", "PICCHETT", "GRONDAIA", "TERRAZZA", "SCALETTA", "GALLERIA", "FRUTTETO",
    "CESPUGLI", "RUSCELLO", "TORRENTE", "SORGENTE", "MARCIAPI", "RINGHIER", "TRALICCI", "SOTTOPAS"};

/// Hands the records of the shape to `visitor` in the order of a file: Job(PlainJob),
/// Station(PlainStation), Point(PlainPoint). Holds one record at a time.
template <class Visitor>
class JobMaker {
 public:
  JobMaker(const JobShape& shape, Visitor& visitor)
      : shape_(shape), visitor_(visitor), random_(shape.seed) {}

  void Run() {
    for (std::uint64_t job = 0; job < shape_.jobs; ++job) {
      MakeJob(job);
      const std::uint64_t end = Share(shape_.stations, job + 1, shape_.jobs);
      for (std::uint64_t i = Share(shape_.stations, job, shape_.jobs); i < end; ++i) {
        MakeStation(i);
        const std::uint64_t pointEnd = Share(shape_.points, i + 1, shape_.stations);
        for (std::uint64_t k = Share(shape_.points, i, shape_.stations); k < pointEnd; ++k) {
          MakePoint(k);
        }
      }
    }
  }

 private:
  // Where the share of the `index`th of `parts` equal parts begins.
  static std::uint64_t Share(std::uint64_t whole, std::uint64_t index, std::uint64_t parts) {
    return whole * index / parts;
  }

  std::uint64_t Below(std::uint64_t end) { return random_() % end; }

  // A value within low..high, both counted in units of 1 / perUnit.
  double Between(std::uint64_t low, std::uint64_t high, double perUnit) {
    return static_cast<double>(low + Below(high - low + 1)) / perUnit;
  }

  // A letter and six digits; the letter starts at `first` and moves on after every million.
  static Letters<7> Numbered(char first, std::uint64_t number) {
    Letters<7> name;
    name[0] = static_cast<char>(
        'A' + (static_cast<std::uint64_t>(first - 'A') + number / 1'000'000) % 26);
    for (std::size_t i = name.size(); --i > 0; number /= 10) {
      name[i] = static_cast<char>('0' + number % 10);
    }
    return name;
  }

  void MakeJob(std::uint64_t index) {
    visitor_.Job({Numbered('R', index), "N. Conti", "TS 1201", "05-03-2026"});
  }

  void MakeStation(std::uint64_t index) {
    constexpr std::array<std::string_view, 4> kMarks = {"chiodo", "picchetto", "borchia", ""};
    visitor_.Station({Numbered('S', index), kMarks[Below(kMarks.size())], Between(1400, 1750, 1e3),
                      Between(20, 350, 10), Between(970, 1030, 1)});
  }

  void MakePoint(std::uint64_t index) {
    PlainPoint point;
    point.name = Numbered('A', index);
    kCodes[Below(kCodes.size())].copy(point.code.data(), point.code.size());
    point.prismHeight = Below(10) > 0 ? 1.5 : Between(1300, 2150, 1e3);
    point.horizontal = Between(0, 3'999'999, 1e4);
    point.zenith = Between(850'000, 1'150'000, 1e4);
    const bool measured = Below(1000) > 0;
    point.slopeDistance = measured ? Between(1'500, 250'000, 1e3) : 0;
    visitor_.Point(point);
  }

  JobShape shape_;
  Visitor& visitor_;
  std::mt19937_64 random_;
};

/// The visitor that keeps a job in arrays.
class PlainArrays {
 public:
  struct StationWithPoints {
    PlainStation station;
    std::size_t firstPoint;
  };

  explicit PlainArrays(const JobShape& shape) {
    points.reserve(shape.points);
    JobMaker(JobShape{shape.points, shape.stations, 1, shape.seed}, *this).Run();
  }

  void Job(const PlainJob& next) { job = next; }
  void Station(const PlainStation& next) { stations.push_back({next, points.size()}); }
  void Point(const PlainPoint& next) { points.push_back(next); }

  /// One past the last point of a station.
  std::size_t PointEnd(std::size_t station) const {
    return station + 1 < stations.size() ? stations[station + 1].firstPoint : points.size();
  }

  PlainJob job;
  std::vector<StationWithPoints> stations;
  std::vector<PlainPoint> points;
};

}  // namespace bench
