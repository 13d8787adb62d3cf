// One small job written by every writer of points, as a surveyor would get it. The texts were put
// down by hand.
#include "model/geodesy.h"
#include "tests/support/text_files.h"

using namespace exchange_test;
using tdk::WString;

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr std::uint64_t kMorning = 1'772'698'530'000;  // 05-03-2026 08:15:30

// The ground is a metre below the antenna's phase centre, along the third axis.
class StraightDown : public IGeodesy {
 public:
  StraightDown() { SetCurrent(this); }
  ~StraightDown() override { SetCurrent(nullptr); }
  bool ToGeographic(const Geocentric& from, Geographic& to) override {
    to = {from.x, from.y, from.z};
    return true;
  }
  bool ToGeocentric(const Geographic& from, Geocentric& to) override {
    to = {from.lat, from.lon, from.height};
    return true;
  }
  const ICoordTransform* TransformOf(const WString&) override { return nullptr; }
};

class TextGolden : public TextTest {
 protected:
  TextGolden() {
    settings.fieldCode = {text::kName, text::kNorth, text::kEast,
                          text::kElev, text::kDescr, text::kNothing};
    settings.headerRows = 1;
    AddKnown("K1", 652512.0104, 4945655.8696, 111.02, "caposaldo");
    AddKnown("Torre; lato N", 652600, 4945700.5, -0.0004, "spigolo");
    Known().AddGrp(true);
    Known().AddPtn(1, true)->SetNomCoord("Città 7", "", -12.3456, 0, 1e6);
    CEgn& control = *Jobs().AddOri(true);
    control.SetNomCoord("C1", "chiodo", 652480.34, 4945600.12, 112.4);
    FillTotalStation();
    FillGps();
  }

  void FillTotalStation() {
    Jobs().AddJob(true);
    CSta& station = *Jobs().AddSta(0, true);
    station.SetCoord(100, 200, 50);
    station.SetAltStr(1.5);
    CPun& measured = *Jobs().AddPun(0, 0, true);
    measured.SetNomCoord("101", "muro", 107.071, 200, 57.071);
    measured.SetAltPri(1.5);
    measured.SetPrismOffset(0.034);
    measured.SetDtIntAng(10, 50, 100, kMorning);
    Jobs().AddJob(true);  // without a station
    Jobs().AddJob(true);
    Jobs().AddSta(2, true)->SetCoord(0, 0, 0);
    CPun& timeless = *Jobs().AddPun(2, 0, true);
    timeless.SetNomCoord("102", "", 1, 2, 3);
    timeless.SetDtIntAng(20, 100, 350, 0);
  }

  void FillGps() {
    Gps().AddGrp(true);
    CPunGps& point = *Gps().AddPun(0, true);
    point.SetNomCoord("201", "strada", 652734.826, 4945599.116, 111.873);
    point.SetLat((44 + 38 / 60.0 + 51.045 / 3600) * kDegree);
    point.SetLong((10 + 55 / 60.0 + 4.2 / 3600) * kDegree);
    point.SetElev(153.123);
    point.SetGeocCeFaMis(4464000.5, 861000.25, 4459001);
    point.SetAltAnt(1);
    point.SetQua(3);
    point.SetHposRms(0.0121);
    point.SetVposRms(0.0209);
    point.SetDay(14);
    point.SetMonth(4);
    point.SetYear(2026);
    point.SetTod(86'380'900);
  }
};

TEST_F(TextGolden, KnownPointsAsCsv) {
  EXPECT_EQ(Delimited(),
            "\n"
            "K1;4945655.870;652512.010;111.020;caposaldo;;\n"
            "\"Torre; lato N\";4945700.500;652600.000;0.000;spigolo;;\n"
            "Città 7;0.000;-12.346;1000000.000;;;\n");
}

TEST_F(TextGolden, KnownPointsAsCsvWithQuotedNames) {
  settings.quoteNames = true;
  EXPECT_EQ(Delimited(),
            "\n"
            "\"K1\";4945655.870;652512.010;111.020;\"caposaldo\";;\n"
            "\"\"Torre; lato N\"\";4945700.500;652600.000;0.000;\"spigolo\";;\n"
            "\"Città 7\";0.000;-12.346;1000000.000;\"\";;\n");
}

TEST_F(TextGolden, ControlPointsWithBlanks) {
  settings.kind = text::kControlPoints;
  settings.separator = u' ';
  EXPECT_EQ(Delimited(), "\nC1 4945600.120 652480.340 112.400 chiodo  \n");
}

TEST_F(TextGolden, TotalStationPointsWithTabsDatesAndTimes) {
  settings.kind = text::kTotalStation;
  settings.separator = u'\t';
  settings.fieldCode = {text::kName, text::kEast, text::kNorth,
                        text::kElev, text::kDate, text::kTime};
  EXPECT_EQ(Delimited(),
            "\n"
            "101\t107.071\t200.000\t57.071\t05-03-2026\t08:15:30\t\n"
            "102\t1.000\t2.000\t3.000\t\t\t\n");
}

TEST_F(TextGolden, GpsPointsWithCommasDatesAndTimes) {
  settings.kind = text::kGpsGroups;
  settings.separator = u',';
  settings.fieldCode = {text::kDate,  text::kTime,  text::kName,
                        text::kDescr, text::kNorth, text::kNothing};
  EXPECT_EQ(Delimited(), "\n14-04-2026,23:59:40,201,strada,4945599.116,,\n");
}

TEST_F(TextGolden, KnownPointsOfFixedWidths) {
  settings.fieldLength = {8, 13, 12, 13, 10, 2};
  EXPECT_EQ(FixedLength(),
            "\n"
            "K1             4945655.870  652512.010      111.020caposaldo   \n"
            "Torre; lato N  4945700.500  652600.000        0.000spigolo     \n"
            "Città 7              0.000     -12.346  1000000.000            \n");
  EXPECT_EQ(views.messages.size(), 1u) << "the names are longer than eight characters";
}

TEST_F(TextGolden, TotalStationPointsOfFixedWidthsWithDatesAndTimes) {
  settings.kind = text::kTotalStation;
  settings.headerRows = 0;
  settings.fieldCode = {text::kName, text::kDate, text::kTime, text::kElev, 7, 7};
  settings.fieldLength = {5, 12, 10, 12, 1, 1};
  EXPECT_EQ(FixedLength(),
            "101    05-03-2026  08:15:30      57.071  \n"
            "102                               3.000  \n");
}

TEST_F(TextGolden, FullGpsExportOfAFirstRun) {
  const StraightDown earth;
  text::FullLayout layout = text::LoadFullLayout(text::kGpsSection);
  layout.separator = 2;
  text::WriteFullGps(libraries, layout, settings.filePath);
  EXPECT_EQ(ReadFile(settings.filePath.ToUtf8()),
            "201;strada;44°38'51.045;10°55'04.200;153.123;4464000.500;861000.250;4459000.000;1.000;"
            "Float;4945599.116;652734.826;111.873;0.012;0.021;14-04-2026;86380.900\n");
}

TEST_F(TextGolden, FullTotalStationExportOfAFirstRun) {
  text::FullLayout layout = text::LoadFullLayout(text::kTotalStationSection);
  layout.separator = 1;
  layout.quoteNames = true;
  text::WriteFullTotalStation(libraries, layout, settings.filePath);
  EXPECT_EQ(ReadFile(settings.filePath.ToUtf8()),
            "\"101\",\"muro\",90°00'00.000,45°00'00.000,10.000,7.071,7.071,1.500,200.000,107.071,"
            "57.071,05-03-2026,05/03/2026,08-15-30,08:15:30,29730.000,0.034\n"
            "\"102\",\"\",315°00'00.000,90°00'00.000,20.000,20.000,0.000,0.000,2.000,-14.142,0.000,"
            ",,,,,0.000\n");
}

}  // namespace
