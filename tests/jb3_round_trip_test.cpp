// Random jobs written as JB3 and read again.
#include <cmath>

#include "tests/support/jb3_documents.h"
#include "tests/support/random.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3RoundTrip : public Jb3Test, public testing::WithParamInterface<int> {
 protected:
  WString Name() {
    return WString("n" + random.Text("abc &<>\"'.-019", random.Whole<std::size_t>(0, 20)));
  }
  // With three decimals, so that nothing of it is lost.
  double Length() {
    return random.OneIn(8) ? UndefinedValue : std::round(random.Real(-1e6, 1e6)) / 1000;
  }
  double Angle() {
    return random.OneIn(8) ? UndefinedValue : std::round(random.Real(0, 4e6)) / 1e4;
  }

  void FillEgn(CEgn& object) {
    object.SetNome(Name());
    object.SetSecScri(Name());
    object.SetCoord(Length(), Length(), Length());
  }

  void FillJobs() {
    const int jobs = random.Whole(0, 3);
    for (int j = 0; j < jobs; ++j) {
      Jobs().AddJob(true)->SetLabels(Name(), Name(), Name(), "01-02-2016");
      const int stations = random.Whole(1, 3);
      for (int s = 0; s < stations; ++s) {
        CSta& station = *Jobs().AddSta(j, true);
        FillEgn(station);
        station.SetAltStr(1.5);
        const int points = random.Whole(0, 4);
        for (int p = 0; p < points; ++p) FillPoint(*Jobs().AddPun(j, s, true));
      }
    }
  }

  void FillPoint(CPun& point) {
    FillEgn(point);
    point.SetAltPri(1.25);
    point.SetDtIntAng(Length(), Angle(), Angle(), 0);
    point.SetPrismType(random.Whole(0U, 3U));
    point.SetPrismOffset(0.034);
  }

  void FillGps() {
    const int groups = random.Whole(0, 2);
    for (int g = 0; g < groups; ++g) {
      FillEgn(*Gps().AddGrp(true));
      const int points = random.Whole(0, 4);
      for (int p = 0; p < points; ++p) {
        CPunGps& point = *Gps().AddPun(g, true);
        FillEgn(point);
        point.SetGeocCeFaMis(Length(), Length(), Length());
        point.SetAltAnt(Length());
        point.SetPdop(Length());
        point.SetVposRms(Length());
        for (const auto set :
             {&CPunGps::SetPosCov_xx, &CPunGps::SetPosCov_xy, &CPunGps::SetPosCov_xz,
              &CPunGps::SetPosCov_yy, &CPunGps::SetPosCov_yz, &CPunGps::SetPosCov_zz}) {
          // No more digits than are written: one that rounds to a power of ten gets other decimals
          // the next time, for single precision lies a little below it.
          (point.*set)(static_cast<float>(random.Whole(-9999, 9999) * 1e-8));
        }
        point.SetQua(random.Whole(1, 4));
        point.SetDay(random.Whole<std::uint8_t>(0, 31));
        point.SetMonth(random.Whole<std::uint8_t>(0, 12));
        point.SetYear(2016);
        point.SetTod(random.Whole(0UL, 86'399UL) * 1000);
        point.SetNuGpsUsed(random.Whole<std::uint8_t>(0, 255));
      }
    }
  }

  void FillKnown() {
    if (random.OneIn(2)) return;
    Known().AddGrp(true);
    const int points = random.Whole(1, 3);
    for (int p = 0; p < points; ++p) FillEgn(*Known().AddPtn(0, true));
    const int records = random.Whole(0, 3);
    for (int i = 0; i < records; ++i) FillEgn(*Jobs().AddOri(true));
  }

  Random random;
};

// Only what the format loses is not there: an undefined covariance or prism constant reads as 0.
TEST_P(Jb3RoundTrip, OfARandomJobKeepsEveryByteOfTheFile) {
  FillJobs();
  FillGps();
  FillKnown();
  const std::string first = Written();
  HostDocument again;
  ASSERT_TRUE(jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read());
  const std::string path = folder.Path("again.jb3");
  jb3::Jb3Writer(again).Write(WString(path), "Field", "7.1");
  EXPECT_TRUE(ReadFile(path) == first) << path << " differs from\n" << first;
}

INSTANTIATE_TEST_SUITE_P(Run, Jb3RoundTrip, testing::Range(0, 50));

}  // namespace
