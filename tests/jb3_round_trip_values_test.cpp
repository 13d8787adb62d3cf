// Random jobs written as JB3 and read again, value by value, in every angle unit.
#include <array>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/current_settings.h"
#include "tests/support/exchange_numbers.h"
#include "tests/support/jb3_documents.h"
#include "tests/support/random.h"

using namespace exchange_test;
using tdk::WString;

namespace {

// Half of the last place of an angle's text in any unit, and a little.
constexpr double kAngleTolerance = 5.1e-5;
constexpr double kCovarianceTolerance = 5.1e-9;

class Jb3RoundTripValues : public Jb3Test,
                           public testing::WithParamInterface<std::tuple<int, int>> {
 protected:
  void SetUp() override {
    CIniFile().WriteShort("Misure", "UnitaAngoli",
                          static_cast<std::int16_t>(std::get<0>(GetParam())));
  }

  // ---- A random job ----

  WString Text() {
    std::string text = random.Text("ab &<>\"'.-;#019", random.Whole<std::size_t>(0, 30));
    if (random.OneIn(4)) text += "è€";
    return WString(text);
  }
  double Length() { return random.OneIn(6) ? UndefinedValue : random.Real(-1e7, 1e7); }
  double Angle() { return random.OneIn(6) ? UndefinedValue : random.Real(0, 399.99); }
  float Term() {
    if (random.OneIn(6)) return UndefinedFloat;
    return random.OneIn(6) ? 0.0F : static_cast<float>(std::pow(10, random.Real(-13, 2)));
  }

  void Fill(CEgn& object) {
    object.SetNome(Text());
    object.SetSecScri(Text());
    object.SetCoord(Length(), Length(), Length());
  }
  void FillJob(int job) {
    Jobs().AddJob(true)->SetLabels(Text(), Text(), Text(), "07-11-2019");
    const int stations = random.Whole(1, 3);
    for (int sta = 0; sta < stations; ++sta) {
      Fill(*Jobs().AddSta(job, true));
      Jobs().GetStaAt(job, sta)->SetAltStr(Length());
      for (int pun = random.Whole(0, 4); pun > 0; --pun) {
        CPun& point = *Jobs().AddPun(job, sta, true);
        Fill(point);
        point.SetAltPri(Length());
        point.SetDtIntAng(Length(), Angle(), Angle(), 77);
        point.SetPrismType(random.Whole(0U, 8U));
        point.SetPrismOffset(random.Real(-1, 1));
      }
    }
  }
  void FillGroup(int group) {
    CGrpGps& base = *Gps().AddGrp(true);
    Fill(base);
    base.SetNomeGrp(base.GetNome());
    base.SetTipoRicevitore(random.Whole<std::uint8_t>(0, 3));
    base.SetGeocCeFaMis(Length(), Length(), Length());
    base.SetBaseAltAnt(random.Real(0, 3));
    for (int pun = random.Whole(0, 5); pun > 0; --pun) {
      CPunGps& point = *Gps().AddPun(group, true);
      Fill(point);
      point.SetGeocCeFaMis(Length(), Length(), Length());
      point.SetAltAnt(random.Real(0, 3));
      point.SetPdop(Length());
      point.SetGdop(Length());
      point.SetHposRms(Length());
      point.SetVposRms(Length());
      for (const auto set : kSetTerm) (point.*set)(Term());
      point.SetQua(random.Whole(-2, 5));
      point.SetDay(random.Whole<std::uint8_t>(0, 31));
      point.SetMonth(random.Whole<std::uint8_t>(0, 12));
      point.SetYear(random.Whole<std::uint16_t>(1999, 2100));
      point.SetTod(random.Whole(0UL, 86'399'999UL));
      point.SetNuGpsUsed(random.Whole<std::uint8_t>(0, 255));
      point.SetNuGloUsed(random.Whole<std::uint8_t>(0, 255));
    }
  }

  // ---- What must come back ----

  static WString NameOr(const WString& name) { return name.IsEmpty() ? WString("empty") : name; }
  static double Kept(double value, int decimals, double none = UndefinedValue) {
    return IsDefined(value) ? Rounded(value, decimals) : none;
  }
  static void ExpectSame(const CEgn& was, const CEgn& now) {
    EXPECT_EQ(now.GetNome(), NameOr(was.GetNome()));
    EXPECT_EQ(now.GetSecScri(), was.GetSecScri());
    const bool whole =
        IsDefined(was.GetCoordX()) && IsDefined(was.GetCoordY()) && IsDefined(was.GetCoordZ());
    EXPECT_EQ(now.GetCoordX(), whole ? Rounded(was.GetCoordX(), 3) : UndefinedValue);
    EXPECT_EQ(now.GetCoordY(), whole ? Rounded(was.GetCoordY(), 3) : UndefinedValue);
    EXPECT_EQ(now.GetCoordZ(), whole ? Rounded(was.GetCoordZ(), 3) : UndefinedValue);
  }
  static void ExpectObservation(const CPun& was, const CPun& now) {
    const bool written = IsDefined(was.GetDato1()) && IsDefined(was.GetDato2());
    EXPECT_EQ(now.IsCode3D(), written);
    EXPECT_EQ(now.GetDateTime(), 0u);
    EXPECT_EQ(now.GetDato0(), written ? Kept(was.GetDato0(), 4) : UndefinedValue);
    if (!written) return;
    EXPECT_NEAR(now.GetDato1(), was.GetDato1(), kAngleTolerance);
    EXPECT_NEAR(now.GetDato2(), was.GetDato2(), kAngleTolerance);
    EXPECT_EQ(now.GetAltPri(), Kept(was.GetAltPri(), 4, 0));
    EXPECT_EQ(now.GetPrismOffset(), Rounded(was.GetPrismOffset(), 3));
    const unsigned type = was.GetPrismType();
    EXPECT_EQ(now.GetPrismType(), type == 4 ? 3 : type > 6 ? 0 : type);
  }
  template <class Object>  // a group or a point
  static void ExpectPhaseCentre(const Object& was, const Object& now, double oldHeight,
                                double newHeight) {
    double x = 0, y = 0, z = 0, newX = 0, newY = 0, newZ = 0;
    was.GetGeocCeFaMis(x, y, z);
    now.GetGeocCeFaMis(newX, newY, newZ);
    const bool written = IsDefined(x) && IsDefined(y) && IsDefined(z);
    EXPECT_EQ(newX, written ? Rounded(x, 3) : UndefinedValue);
    EXPECT_EQ(newY, written ? Rounded(y, 3) : UndefinedValue);
    EXPECT_EQ(newZ, written ? Rounded(z, 3) : UndefinedValue);
    EXPECT_EQ(newHeight, written ? Rounded(oldHeight, 3) : 0);
  }
  static void ExpectGpsPoint(const CPunGps& was, const CPunGps& now) {
    ExpectSame(was, now);
    ExpectPhaseCentre(was, now, was.GetAltAnt(), now.GetAltAnt());
    const int quality = was.GetQua();
    EXPECT_EQ(now.GetQua(), quality == 0 ? 1 : quality < -1 || quality > 4 ? 0 : quality);
    const bool dated = was.GetDay() != 0 && was.GetMonth() != 0;
    EXPECT_EQ(now.GetDay(), dated ? was.GetDay() : 0);
    EXPECT_EQ(now.GetMonth(), dated ? was.GetMonth() : 0);
    EXPECT_EQ(now.GetYear(), dated ? was.GetYear() : 0);
    EXPECT_EQ(now.GetTod(), was.GetTod() / 1000 * 1000);
    EXPECT_EQ(now.GetNuGpsUsed(), was.GetNuGpsUsed());
    EXPECT_EQ(now.GetNuGloUsed(), was.GetNuGloUsed());
    EXPECT_EQ(now.GetPdop(), Kept(was.GetPdop(), 3));
    EXPECT_EQ(now.GetGdop(), Kept(was.GetGdop(), 3));
    EXPECT_EQ(now.GetHposRms(), Kept(was.GetHposRms(), 3));
    EXPECT_EQ(now.GetVposRms(), Kept(was.GetVposRms(), 3));
    const bool stat = IsDefined(was.GetPdop()) || IsDefined(was.GetGdop()) ||
                      IsDefined(was.GetHposRms()) || IsDefined(was.GetVposRms());
    for (const auto get : kGetTerm) {
      const float before = (was.*get)(), after = (now.*get)();
      if (!stat) {
        EXPECT_FALSE(std::isfinite(after));
      } else if (!std::isfinite(before)) {
        EXPECT_EQ(after, 0.0F) << "a blank reads as 0";
      } else {
        EXPECT_NEAR(after, before, kCovarianceTolerance + 1e-7 * std::abs(before));
        EXPECT_EQ(after == 0, before == 0) << before << " never becomes zero";
      }
    }
  }

  static constexpr std::array kSetTerm = {&CPunGps::SetPosCov_xx, &CPunGps::SetPosCov_xy,
                                          &CPunGps::SetPosCov_xz, &CPunGps::SetPosCov_yy,
                                          &CPunGps::SetPosCov_yz, &CPunGps::SetPosCov_zz};
  static constexpr std::array kGetTerm = {&CPunGps::GetPosCov_xx, &CPunGps::GetPosCov_xy,
                                          &CPunGps::GetPosCov_xz, &CPunGps::GetPosCov_yy,
                                          &CPunGps::GetPosCov_yz, &CPunGps::GetPosCov_zz};
  /// Writes the job and reads the file into another one.
  void Carry() {
    Written();
    ASSERT_TRUE(jb3::Jb3Reader(&parent, carried, WString(folder.Path("out.jb3"))).Read());
  }

  CurrentSettings current;
  Random random;
  HostDocument carried;
};

TEST_P(Jb3RoundTripValues, TotalStationJobsComeBack) {
  for (int job = 0; job < 3; ++job) FillJob(job);
  Carry();
  const CLibCmp& now = *carried.GetLibCmp();
  ASSERT_EQ(now.GetJobArSize(), 3);
  for (int job = 0; job < 3; ++job) {
    EXPECT_EQ(now.GetJobAt(job)->GetNome(), NameOr(Jobs().GetJobAt(job)->GetNome()));
    EXPECT_EQ(now.GetJobAt(job)->GetOper(), Jobs().GetJobAt(job)->GetOper());
    EXPECT_EQ(now.GetJobAt(job)->GetStrum(), Jobs().GetJobAt(job)->GetStrum());
    EXPECT_EQ(now.GetJobAt(job)->GetData(), Jobs().GetJobAt(job)->GetData());
    ASSERT_EQ(now.GetStaArSize(job), Jobs().GetStaArSize(job));
    for (int sta = 0; sta < now.GetStaArSize(job); ++sta) {
      const CSta& station = *Jobs().GetStaAt(job, sta);
      ExpectSame(station, *now.GetStaAt(job, sta));
      EXPECT_EQ(now.GetStaAt(job, sta)->GetAltStr(), Kept(station.GetAltStr(), 3, 0));
      ASSERT_EQ(now.GetPunArSize(job, sta), Jobs().GetPunArSize(job, sta));
      for (int pun = 0; pun < now.GetPunArSize(job, sta); ++pun) {
        ExpectSame(*Jobs().GetPunAt(job, sta, pun), *now.GetPunAt(job, sta, pun));
        ExpectObservation(*Jobs().GetPunAt(job, sta, pun), *now.GetPunAt(job, sta, pun));
      }
    }
  }
}

TEST_P(Jb3RoundTripValues, GpsGroupsComeBack) {
  for (int group = 0; group < 3; ++group) FillGroup(group);
  Carry();
  const CLibGps& now = *carried.GetLibGps();
  ASSERT_EQ(now.GetGrpArSize(), 3);
  for (int group = 0; group < 3; ++group) {
    const CGrpGps& was = *Gps().GetGrpAt(group);
    ExpectSame(was, *now.GetGrpAt(group));
    ExpectPhaseCentre(was, *now.GetGrpAt(group), was.GetBaseAltAnt(),
                      now.GetGrpAt(group)->GetBaseAltAnt());
    EXPECT_EQ(now.GetGrpAt(group)->GetNomeGrp(), NameOr(was.GetNomeGrp()));
    EXPECT_EQ(now.GetGrpAt(group)->GetTipoRicevitore(), was.GetTipoRicevitore() == 1 ? 1 : 2);
    EXPECT_EQ(now.GetGrpAt(group)->GetTipoRilievo(), 2);
    ASSERT_EQ(now.GetPunArSize(group), Gps().GetPunArSize(group));
    for (int pun = 0; pun < now.GetPunArSize(group); ++pun) {
      ExpectGpsPoint(*Gps().GetPunAt(group, pun), *now.GetPunAt(group, pun));
    }
  }
}

TEST_P(Jb3RoundTripValues, KnownPointsOfAllGroupsComeBackInOne) {
  std::vector<const CPunPnt*> was;
  for (int group = 0; group < 3; ++group) {
    Known().AddGrp(true);
    for (int i = random.Whole(1, 4); i > 0; --i) {
      Fill(*Known().AddPtn(group, true));
      was.push_back(Known().GetPtnAt(group, Known().GetPtnArSize(group) - 1));
    }
  }
  for (int i = 0; i < 3; ++i) Fill(*Jobs().AddOri(true));
  Carry();
  ASSERT_EQ(carried.GetLibPnt()->GetGrpArSize(), 1);
  ASSERT_EQ(carried.GetLibPnt()->GetPtnArSize(0), static_cast<int>(was.size()));
  for (std::size_t i = 0; i < was.size(); ++i) {
    ExpectSame(*was[i], *carried.GetLibPnt()->GetPtnAt(0, static_cast<int>(i)));
  }
  ASSERT_EQ(carried.GetLibCmp()->GetOriArSize(), 3);
  for (int i = 0; i < 3; ++i) ExpectSame(*Jobs().GetOriAt(i), *carried.GetLibCmp()->GetOriAt(i));
}

// The unit of angles (as the setting has it), the run.
INSTANTIATE_TEST_SUITE_P(Each, Jb3RoundTripValues,
                         testing::Combine(testing::Range(0, 3), testing::Range(0, 10)),
                         [](const auto& each) {
                           return "Unit" + std::to_string(std::get<0>(each.param)) + "Run" +
                                  std::to_string(std::get<1>(each.param));
                         });

}  // namespace
