// JB2 the plain way: what the reader and the writer are measured against.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>

#include "plain_file.h"
#include "plain_job.h"

namespace bench {

/// The visitor that writes a job as JB2.
class PlainJb2 {
 public:
  explicit PlainJb2(const std::string& path) : file_(path) {}

  void Job(const PlainJob& job) {
    file_.Text("L|\x1d");
    Field(View(job.name));
    Field(job.surveyor);
    Field(job.instrument);
    Field(" ");
    Field(job.date);
    EndLine();
  }

  void Station(const PlainStation& station) {
    file_.Text("S|\x1d");
    Field(View(station.name));
    Field(station.identification);
    Field(station.height, 3);
    Field(station.temperature, 1);
    Field(station.pressure, 0);
    file_.Text(" \x1d \x1d \x1d \x1d");
    EndLine();
  }

  void Point(const PlainPoint& point) {
    file_.Text("P|\x1d");
    Field(View(point.name));
    Field(View(point.code));
    Field(point.prismHeight, 3);
    Field(point.horizontal, 4);
    Field(point.zenith, 4);
    Field(point.slopeDistance, 3);
    EndLine();
  }

  void Close() { file_.Close(); }

 private:
  void Field(std::string_view text) {
    file_.Text(text);
    file_.Text("\x1d");
  }
  void Field(double value, int decimals) {
    file_.Fixed(value, decimals);
    file_.Text("\x1d");
  }
  void EndLine() {
    file_.Text("\n");
    file_.EndRecord();
  }

  PlainFile file_;
};

inline void MakeJb2File(const std::string& path, const JobShape& shape) {
  PlainJb2 file(path);
  JobMaker(shape, file).Run();
  file.Close();
}

/// What a job adds up to, so that no loop can leave out work and two of them can be compared.
struct Sums {
  std::uint64_t points = 0;
  double numbers = 0;
  friend bool operator==(const Sums&, const Sums&) = default;
};

/// Reads lines, cuts their fields and converts the numbers of points; keeps nothing else.
inline Sums ReadJb2Plainly(const std::string& path) {
  constexpr std::size_t kPrefix = 3;
  constexpr std::size_t kFields = 6;
  constexpr std::size_t kTexts = 2;
  std::FILE* const file = std::fopen(path.c_str(), "r");
  if (file == nullptr) throw std::runtime_error("no " + path);
  Sums sums;
  std::array<char, 255> line;
  while (std::fgets(line.data(), line.size(), file) != nullptr) {
    const std::string_view text(line.data());
    std::array<std::string_view, kFields> fields;
    std::size_t start = std::min(kPrefix, text.size());
    for (std::string_view& field : fields) {
      const std::size_t end = text.find('\x1d', start);
      if (end == std::string_view::npos) break;
      field = text.substr(start, end - start);
      start = end + 1;
    }
    if (text.front() != 'P') continue;
    ++sums.points;
    for (std::size_t i = kTexts; i < kFields; ++i) {
      double value = 0;
      std::from_chars(fields[i].begin(), fields[i].end(), value);
      sums.numbers += value;
    }
  }
  std::fclose(file);
  return sums;
}

}  // namespace bench
