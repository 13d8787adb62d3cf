// What a JB2 file keeps: jobs written and read again, and a file that is cut anywhere.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>

#include "formats/jb2/jb2_writer.h"
#include "tests/support/exchange_jb2.h"
#include "tests/support/exchange_numbers.h"

using namespace exchange_test;

namespace {

/// A seed from the environment (KALVIO_SEED), else a new one; printed, so that a failure can be
/// seen again.
unsigned Seed() {
  const char* const wanted = std::getenv("KALVIO_SEED");
  const unsigned seed = wanted != nullptr ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10))
                                          : std::random_device()();
  std::cout << "KALVIO_SEED=" << seed << std::endl;
  return seed;
}

/// Random jobs whose texts a JB2 file can hold.
class RandomJobs {
 public:
  explicit RandomJobs(unsigned seed) : random_(seed) {}

  void Fill(CLibCmp& library) {
    const int jobs = Between(1, 4);
    for (int job = 0; job < jobs; ++job) {
      library.AddJob(true)->SetLabels(Text(30), Text(30), Text(30), Text(12));
      const int stations = Between(0, 4);
      for (int sta = 0; sta < stations; ++sta) FillStation(library, *library.AddSta(job, true));
    }
  }

 private:
  int Between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  double Real(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  // No separator, no line end, no white space at the ends; only characters of the code page.
  tdk::WString Text(int longest) {
    static const std::vector<std::string> kCharacters = {"a", "Z",  "0", "9", ".", "-", "|",
                                                         "%", "\"", "&", "<", "P", "L", "à",
                                                         "È", "ò",  "€", "°", "ÿ", "œ"};
    std::string text;
    const int length = Between(0, longest);
    for (int i = 0; i < length; ++i) {
      const bool inside = i > 0 && i + 1 < length;
      if (inside && Between(0, 5) == 0) {
        text += ' ';
      } else {
        text += kCharacters[static_cast<std::size_t>(Between(0, 19))];
      }
    }
    return tdk::WString(text);
  }

  void FillStation(CLibCmp& library, CSta& station) {
    station.SetNome(Text(20));
    station.SetIden(Text(20));
    station.SetAltStr(Real(-5, 5));
    station.SetTemper(Real(-30, 50));
    station.SetPressi(Real(500, 1100));
    const int points = Between(0, 12);
    for (int pun = 0; pun < points; ++pun) FillPoint(*library.AddPun(&station, true));
  }

  void FillPoint(CPun& point) {
    point.SetNome(Text(20));
    point.SetCode(Text(20));
    point.SetAltPri(Between(0, 3) == 0 ? 0 : Real(-3, 3));
    const double distance = Between(0, 3) == 0 ? kNoDistance : Real(0.0005, 5000);
    point.SetDtIntAng(distance, Real(0, 400), Real(-400, 400), 0);
  }

  std::mt19937 random_;
};

void ExpectSameAsWritten(const CPun& read, const CPun& original) {
  EXPECT_EQ(read.GetNome(), original.GetNome());
  EXPECT_EQ(read.GetCode(), original.GetCode());
  EXPECT_EQ(read.GetAltPri(), Rounded(original.GetAltPri(), 3));
  EXPECT_EQ(read.GetDato2(), Rounded(original.GetDato2(), 4));
  EXPECT_EQ(read.GetDato1(), Rounded(original.GetDato1(), 4));
  EXPECT_EQ(read.GetDato0(), Rounded(original.GetDato0(), 3));
}

void ExpectSameAsWritten(const CSta& read, const CSta& original) {
  EXPECT_EQ(read.GetNome(), original.GetNome());
  EXPECT_EQ(read.GetIden(), original.GetIden());
  EXPECT_EQ(read.GetAltStr(), Rounded(original.GetAltStr(), 3));
  EXPECT_EQ(read.GetTemper(), Rounded(original.GetTemper(), 1));
  EXPECT_EQ(read.GetPressi(), Rounded(original.GetPressi(), 0));
}

void ExpectSameAsWritten(const CJob& read, const CJob& original) {
  EXPECT_EQ(read.GetNome(), original.GetNome());
  EXPECT_EQ(read.GetOper(), original.GetOper());
  EXPECT_EQ(read.GetStrum(), original.GetStrum());
  EXPECT_EQ(read.GetData(), original.GetData());
}

void ExpectSameAsWritten(const CLibCmp& read, const CLibCmp& original) {
  ASSERT_EQ(read.GetJobArSize(), original.GetJobArSize());
  for (int job = 0; job < original.GetJobArSize(); ++job) {
    ExpectSameAsWritten(*read.GetJobAt(job), *original.GetJobAt(job));
    ASSERT_EQ(read.GetStaArSize(job), original.GetStaArSize(job));
    for (int sta = 0; sta < original.GetStaArSize(job); ++sta) {
      ExpectSameAsWritten(*read.GetStaAt(job, sta), *original.GetStaAt(job, sta));
      ASSERT_EQ(read.GetPunArSize(job, sta), original.GetPunArSize(job, sta));
      for (int pun = 0; pun < original.GetPunArSize(job, sta); ++pun) {
        ExpectSameAsWritten(*read.GetPunAt(job, sta, pun), *original.GetPunAt(job, sta, pun));
      }
    }
  }
}

class Jb2RoundTrip : public Jb2Test {
 protected:
  /// Writes `original` and reads the file into `library`.
  void WriteAndRead() {
    const tdk::WString path(folder.Path("trip.jb2"));
    jb2::Jb2Writer(&original).Write(path);
    EXPECT_TRUE(jb2::Jb2Reader(nullptr, &library, path).Run());
  }
  CPun& AddPoint(const std::string& name) {
    if (original.GetJobArSize() == 0) original.AddSta((original.AddJob(true), 0), true);
    CPun* const point = original.AddPun(0, 0, true);
    point->SetNome(tdk::WString(name));
    return *point;
  }

  CLibCmp original;
};

TEST_F(Jb2RoundTrip, KeepsRandomJobsToTheWrittenDecimals) {
  std::mt19937 seeds(Seed());
  for (int trip = 0; trip < 40; ++trip) {
    CLibCmp written;
    CLibCmp read;
    RandomJobs(static_cast<unsigned>(seeds())).Fill(written);
    const tdk::WString path(folder.Path("trip.jb2"));
    jb2::Jb2Writer(&written).Write(path);
    ASSERT_TRUE(jb2::Jb2Reader(nullptr, &read, path).Run());
    ExpectSameAsWritten(read, written);
    ASSERT_FALSE(HasFailure()) << "trip " << trip;
  }
}

TEST_F(Jb2RoundTrip, WritesTheSameBytesAgain) {
  RandomJobs(Seed()).Fill(original);
  WriteAndRead();
  const std::string first = ReadFile(folder.Path("trip.jb2"));
  jb2::Jb2Writer(&library).Write(tdk::WString(folder.Path("again.jb2")));
  EXPECT_EQ(ReadFile(folder.Path("again.jb2")), first);
}

TEST_F(Jb2RoundTrip, KeepsNoDistanceWhateverTheLengthOfTheTexts) {
  for (int length = 0; length < 120; ++length) {
    CPun& point = AddPoint(std::string(static_cast<std::size_t>(length), 'n'));
    point.SetCode("C");
    point.SetAltPri(1.5);
    point.SetDtIntAng(kNoDistance, 99.5, 10.25, 0);
  }
  WriteAndRead();
  ExpectSameAsWritten(library, original);
}

TEST_F(Jb2RoundTrip, TakesADistanceThatIsWrittenAsZeroForNoDistance) {
  AddPoint("ZERO").SetDtIntAng(0, 100, 0, 0);
  AddPoint("TINY").SetDtIntAng(0.0004, 100, 0, 0);
  WriteAndRead();
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), kNoDistance);
  EXPECT_EQ(Point(0, 0, 1).GetDato0(), kNoDistance);
}

TEST_F(Jb2RoundTrip, LosesTheTimeStamp) {
  AddPoint("P").SetDtIntAng(1, 2, 3, 1234567890123);
  WriteAndRead();
  EXPECT_EQ(Point(0, 0, 0).GetDateTime(), 0u);
}

TEST_F(Jb2RoundTrip, TurnsAReducedRecordIntoAPolarOne) {
  WriteFile(folder.Path("r.jb2"), Line('R', {"1", "C", "1.500", "10.0000", "3.000", "4.000"}));
  ASSERT_TRUE(jb2::Jb2Reader(nullptr, &original, tdk::WString(folder.Path("r.jb2"))).Run());
  WriteAndRead();
  const std::string text = ReadFile(folder.Path("trip.jb2"));
  EXPECT_NE(text.find(Line('P', {"1", "C", "1.500", "10.0000", "59.0334", "5.000"})),
            std::string::npos);
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 59.0334);
}

TEST_F(Jb2RoundTrip, SplitsANameThatHoldsTheSeparator) {
  AddPoint(
      "A\x1d"
      "B");
  WriteAndRead();
  EXPECT_EQ(Point(0, 0, 0).GetNome(), "A");
  EXPECT_EQ(Point(0, 0, 0).GetCode(), "B");
}

TEST_F(Jb2RoundTrip, SplitsANameThatHoldsALineEndIntoTwoLines) {
  AddPoint(
      "A\nS|\x1d"
      "B");
  WriteAndRead();
  EXPECT_EQ(Outline(), "([]B[])");
}

// ---- A file that is cut ----

std::string Sample() { return ReadFile(KALVIO_SAMPLES "/wall.jb2"); }

/// The number of lines of `text`, whole or cut, that begin with the letter of a point.
int PointLines(std::string_view text) {
  int count = 0;
  bool atStart = true;
  for (const char c : text) {
    if (atStart && (c == 'P' || c == 'R')) ++count;
    atStart = c == '\n';
  }
  return count;
}

TEST_F(Jb2RoundTrip, ReadsEveryRecordOfTheSample) {
  EXPECT_TRUE(Read(Sample()));
  EXPECT_EQ(ObservedPoints(library), 40);
  ASSERT_EQ(library.GetJobArSize(), 1);
  EXPECT_EQ(library.GetStaArSize(0), 3);
  EXPECT_EQ(Job(0).GetOper(), "Niccolò Ferri");
}

TEST_F(Jb2RoundTrip, ReadsTheSampleCutAtEveryByte) {
  const std::string sample = Sample();
  const std::string path = folder.Path("cut.jb2");
  WriteFile(path, sample);
  for (std::size_t size = sample.size() + 1; size-- > 0;) {
    std::filesystem::resize_file(path, size);
    CLibCmp into;
    ASSERT_TRUE(jb2::Jb2Reader(nullptr, &into, tdk::WString(path)).Run());
    ASSERT_EQ(ObservedPoints(into), PointLines(sample.substr(0, size))) << "cut after " << size;
    ASSERT_LE(into.GetJobArSize(), 1);
  }
}

TEST_F(Jb2RoundTrip, ReadsTheSampleWithoutItsFirstBytesToo) {
  const std::string sample = Sample();
  for (std::size_t begin = 0; begin < sample.size(); begin += 7) {
    const std::string rest = sample.substr(begin);
    const std::string path = folder.Path(std::to_string(begin));
    CLibCmp into;
    WriteFile(path, rest);
    ASSERT_TRUE(jb2::Jb2Reader(nullptr, &into, tdk::WString(path)).Run());
    ASSERT_EQ(ObservedPoints(into), PointLines(rest)) << "without the first " << begin << " bytes";
  }
}

}  // namespace
