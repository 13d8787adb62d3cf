// Processor time, repeats and the table of results.
#pragma once

#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// Processor seconds of this process so far, its own and the system's for it.
double ProcessorSeconds();

/// Processor seconds that `work` takes.
template <class Work>
double SecondsOf(Work&& work) {
  const double start = ProcessorSeconds();
  work();
  return ProcessorSeconds() - start;
}

/// The results of several runs of the same work.
class Runs {
 public:
  void Add(double value) { values_.push_back(value); }
  double Minimum() const;
  double Median() const;

 private:
  std::vector<double> values_;
};

/// Measures one run of something; it prepares and clears up on its own and returns what it
/// measured.
using Measurement = std::function<double()>;

/// Runs all of them in turn, `rounds` times over, so that a busy machine is as hard on each.
std::vector<Runs> Interleaved(int rounds, const std::vector<Measurement>& all);

/// A row of the table. What there is nothing to say of stays empty.
struct Row {
  std::string what = {};
  std::string figure = {};
  std::string bare = {};
  std::string ratio = {};
  std::string limit = {};
  std::optional<bool> kept = {};  ///< whether the limit was kept
};

void PrintTableHead();
void PrintRow(const Row& row);

/// "123 (130)": the minimum and, in brackets, the median, both times `factor`.
std::string Figure(const Runs& runs, double factor, int decimals, const char* unit);
std::string Number(double value, int decimals);
/// 1000000 as "1,000,000".
std::string Grouped(std::size_t value);
/// "1,000,000 points in 10,000 stations"
std::string JobSize(std::size_t points, std::size_t stations);

}  // namespace bench
