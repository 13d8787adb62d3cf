#include "measure.h"

#include <algorithm>
#include <cstdio>

namespace bench {
namespace {

constexpr int kWhatWidth = 80;
constexpr int kFigureWidth = 22;
constexpr int kShortWidth = 8;

void PrintCells(const Row& row, const char* kept) {
  std::printf("| %-*s | %*s | %*s | %*s | %*s | %-4s |\n", kWhatWidth, row.what.c_str(),
              kFigureWidth, row.figure.c_str(), kFigureWidth, row.bare.c_str(), kShortWidth,
              row.ratio.c_str(), kShortWidth, row.limit.c_str(), kept);
  std::fflush(stdout);
}

}  // namespace

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double Runs::Minimum() const { return *std::min_element(values_.begin(), values_.end()); }

double Runs::Median() const {
  std::vector<double> sorted = values_;
  const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
  std::nth_element(sorted.begin(), middle, sorted.end());
  return *middle;
}

std::vector<Runs> Interleaved(int rounds, const std::vector<Measurement>& all) {
  std::vector<Runs> results(all.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < all.size(); ++i) results[i].Add(all[i]());
  }
  return results;
}

void PrintTableHead() {
  PrintCells({"what", "figure", "bare", "ratio", "limit"}, "kept");
  const auto line = [](int width) { return std::string(static_cast<std::size_t>(width - 1), '-'); };
  std::printf("| %s- | %s: | %s: | %s: | %s: | ---- |\n", line(kWhatWidth).c_str(),
              line(kFigureWidth).c_str(), line(kFigureWidth).c_str(), line(kShortWidth).c_str(),
              line(kShortWidth).c_str());
}

void PrintRow(const Row& row) { PrintCells(row, !row.kept ? "" : *row.kept ? "yes" : "NO"); }

std::string Number(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string Figure(const Runs& runs, double factor, int decimals, const char* unit) {
  return Number(runs.Minimum() * factor, decimals) + " (" +
         Number(runs.Median() * factor, decimals) + ") " + unit;
}

std::string JobSize(std::size_t points, std::size_t stations) {
  return Grouped(points) + " points in " + Grouped(stations) + " stations";
}

std::string Grouped(std::size_t value) {
  std::string text = std::to_string(value);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, 1, ',');
  return text;
}

}  // namespace bench
