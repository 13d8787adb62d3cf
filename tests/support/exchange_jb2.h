// Lines of JB2 files, and a library to read them into.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "formats/jb2/jb2_reader.h"
#include "model/total_station.h"
#include "tests/support/exchange_files.h"

namespace exchange_test {

/// What a zero distance becomes, and what an undefined one is.
inline constexpr double kNoDistance = 1.7e+200;

/// One line: letter, bar, separator, then each field with its separator, and the line end.
inline std::string Line(char letter, std::initializer_list<std::string_view> fields) {
  std::string line = {letter, '|', '\x1d'};
  for (const std::string_view field : fields) (line += field) += '\x1d';
  return line + '\n';
}

/// A point record with the name alone; the numbers are those of a usual observation.
inline std::string PointNamed(std::string_view name) {
  return Line('P', {name, "COD", "1.500", "100.0000", "99.0000", "10.000"});
}
inline std::string StationNamed(std::string_view name) {
  return Line('S', {name, "id", "1.600", "20.0", "1013"});
}
inline std::string JobNamed(std::string_view name) {
  return Line('L', {name, "oper", "instr", " ", "date"});
}

/// A case of a test that is repeated for several texts.
struct NamedText {
  const char* name;
  std::string text;
};
inline void PrintTo(const NamedText& with, std::ostream* out) { *out << with.name; }

/// Names the tests of a suite by the `name` of each case.
template <class Case>
std::string NameOf(const testing::TestParamInfo<Case>& which) {
  return which.param.name;
}

/// Counts the batches of changes and tells whether they are in order.
class BatchCounter : public tdk::ISourceEventListener {
 public:
  void OnBeginEvent() override {
    EXPECT_EQ(begun, ended) << "a batch inside a batch";
    ++begun;
  }
  void OnEndEvent() override {
    ++ended;
    EXPECT_EQ(begun, ended) << "more ends than beginnings";
  }
  int begun = 0;
  int ended = 0;
};

/// Answers every request for an add and keeps what was asked for.
class ScriptedPolicy : public AddPolicy {
 public:
  using Answer = std::function<bool(AddedKind kind, int nthOfItsKind)>;
  explicit ScriptedPolicy(Answer answer) : answer_(std::move(answer)) {}

  bool MayAdd(AddedKind kind) override {
    asked.push_back(kind);
    const auto nth = std::count(asked.begin(), asked.end(), kind);
    return answer_(kind, static_cast<int>(nth));
  }
  std::vector<AddedKind> asked;

 private:
  Answer answer_;
};

/// A policy that refuses the `nth` add (counted from 1) of a kind and nothing else.
inline ScriptedPolicy::Answer RefuseNth(AddedKind refused, int nth) {
  return [=](AddedKind kind, int n) { return kind != refused || n != nth; };
}
inline ScriptedPolicy::Answer RefuseEvery(AddedKind refused) {
  return [=](AddedKind kind, int) { return kind != refused; };
}

/// A total-station library and a file to read into it.
class Jb2Test : public testing::Test {
 protected:
  /// Reads a file of these bytes into `library`.
  bool Read(std::string_view bytes) {
    WriteFile(folder.Path("in.jb2"), bytes);
    return jb2::Jb2Reader(nullptr, &library, tdk::WString(folder.Path("in.jb2"))).Run();
  }

  /// The same with a policy in force.
  bool ReadWith(ScriptedPolicy& policy, std::string_view bytes) {
    library.SetAddPolicy(&policy);
    const bool result = Read(bytes);
    library.SetAddPolicy(nullptr);
    return result;
  }

  const CJob& Job(int job) const { return *library.GetJobAt(job); }
  const CSta& Station(int job, int sta) const { return *library.GetStaAt(job, sta); }
  const CPun& Point(int job, int sta, int pun) const { return *library.GetPunAt(job, sta, pun); }

  /// The names of all that the library holds, for comparing at a glance: "job(station[point
  /// point]station[])".
  std::string Outline() const {
    std::string text;
    for (int job = 0; job < library.GetJobArSize(); ++job) {
      text += Job(job).GetNome().ToUtf8() + '(';
      for (int sta = 0; sta < library.GetStaArSize(job); ++sta) {
        text += Station(job, sta).GetNome().ToUtf8() + '[';
        for (int pun = 0; pun < library.GetPunArSize(job, sta); ++pun) {
          text += (pun > 0 ? " " : "") + Point(job, sta, pun).GetNome().ToUtf8();
        }
        text += ']';
      }
      text += ')';
    }
    return text;
  }

  TempFolder folder;
  CLibCmp library;
};

inline int ObservedPoints(const CLibCmp& library) {
  int count = 0;
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    for (int sta = 0; sta < library.GetStaArSize(job); ++sta) {
      count += library.GetPunArSize(job, sta);
    }
  }
  return count;
}

}  // namespace exchange_test
