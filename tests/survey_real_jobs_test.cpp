// Real jobs come out as the instrument computed them; the data is described in tests/survey.
#include <algorithm>
#include <iostream>
#include <sstream>

#include "formats/jb2/jb2_reader.h"
#include "host/survey/compute.h"
#include "platform/numbers.h"
#include "tests/support/text_files.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using Row = std::vector<std::string>;

std::vector<Row> ReadRows(const std::string& path) {
  std::istringstream lines(ReadFile(path));
  std::vector<Row> rows;
  for (std::string line; std::getline(lines, line);) {
    rows.emplace_back();
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, ';');) rows.back().push_back(field);
  }
  return rows;
}

double Figure(const std::string& text) {
  return platform::ParseDecimalPrefix(text, UndefinedValue);
}
int Whole(const std::string& text) { return static_cast<int>(Figure(text)); }

struct RealJob {
  const char* name;
  double planLimit;  // metres, with the orientation from the known points
  int stations;      // that saw something
  int expected;      // rows
};
void PrintTo(const RealJob& job, std::ostream* out) { *out << job.name; }

class RealJobTest : public TextTest, public testing::WithParamInterface<RealJob> {
 protected:
  RealJobTest() { jb2::Jb2Reader(&parent, &Jobs(), WString(File("jb2"))).Run(); }

  static std::string File(const std::string& extension) {
    return std::string(KALVIO_TEST_DATA "/survey/") + GetParam().name + "." + extension;
  }
  void ReadKnown() {
    settings.filePath = WString(File("known.csv"));
    text::ReadDelimited(&parent, libraries, settings);
  }

  /// Metres, sorted, of every observation that has an expected row.
  void Compare() {
    const std::vector<Row> expected = ReadRows(File("expected.csv"));
    std::vector<Row> index = ReadRows(File("index.csv"));
    index.erase(index.begin());
    for (const Row& row : index) {
      const CPun* const point = Jobs().GetPunAt(Whole(row[0]), Whole(row[1]), Whole(row[2]));
      ASSERT_NE(point, nullptr);
      const Row& there = expected[static_cast<std::size_t>(Whole(row[3]))];
      ASSERT_EQ(point->GetNome(), WString(there[0]));
      plan.push_back(
          std::hypot(point->GetCoordX() - Figure(there[1]), point->GetCoordY() - Figure(there[2])));
      height.push_back(std::abs(point->GetCoordZ() - Figure(there[3])));
    }
    std::sort(plan.begin(), plan.end());
    std::sort(height.begin(), height.end());
    std::cout << GetParam().name << ": plan " << Figures(plan) << ", height " << Figures(height)
              << " mm (median / 95 % / largest)\n";
  }
  static std::string Figures(const std::vector<double>& sorted) {
    const auto at = [&](double part) {
      const auto last = static_cast<double>(sorted.size() - 1);
      return sorted[static_cast<std::size_t>(part * last)] * 1000;
    };
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::fixed;
    text.precision(1);
    text << at(0.5) << " / " << at(0.95) << " / " << at(1);
    return text.str();
  }

  std::vector<double> plan;
  std::vector<double> height;
};

TEST_P(RealJobTest, WithTheRecordedOrientationIsWithinTwoMillimetres) {
  std::vector<Row> setUps = ReadRows(File("setups.csv"));
  setUps.erase(setUps.begin());
  for (const Row& row : setUps) {
    CSta& station = *Jobs().GetStaAt(Whole(row[0]), Whole(row[1]));
    station.SetCoord(Figure(row[3]), Figure(row[4]), Figure(row[5]));
    CCalcDsOr how;
    how.orientation = row.size() > 6 ? Figure(row[6]) : 0;
    for (int i = 0; i < Jobs().GetPunArSize(Whole(row[0]), Whole(row[1])); ++i) {
      Jobs().GetPunAt(Whole(row[0]), Whole(row[1]), i)->CalcolaCoordAssolute(true, how);
    }
  }
  Compare();
  ASSERT_EQ(plan.size(), static_cast<std::size_t>(GetParam().expected));
  EXPECT_LT(plan.back(), 0.002);
  EXPECT_LT(height.back(), 0.002);
}

TEST_P(RealJobTest, WithTheOrientationFromKnownPointsIsWithinTheStatedLimit) {
  ReadKnown();
  const survey::SurveyResult result =
      survey::ComputeCoordinates(Jobs(), Known(), survey::ComputationSettings());
  int stations = 0;
  for (const survey::SetUpResult& setUp : result.jobs.at(0).setUps) {
    EXPECT_EQ(setUp.method, survey::SetUpMethod::kKnown) << setUp.name;
    if (setUp.placed > 0) ++stations;
    for (const survey::TargetResidual& it : setUp.residuals) {
      EXPECT_FALSE(it.StandsOut()) << setUp.name << " to " << it.name;
    }
  }
  EXPECT_EQ(stations, GetParam().stations);
  Compare();
  ASSERT_EQ(plan.size(), static_cast<std::size_t>(GetParam().expected));
  EXPECT_LT(plan.back(), GetParam().planLimit);
  EXPECT_LT(height.back(), 0.002);
}

INSTANTIATE_TEST_SUITE_P(Of, RealJobTest,
                         testing::Values(RealJob{"masonry", 0.002, 1, 710},
                                         RealJob{"excavation", 0.010, 3, 105},
                                         RealJob{"hillside", 0.002, 1, 73}),
                         [](const auto& it) { return it.param.name; });

}  // namespace
