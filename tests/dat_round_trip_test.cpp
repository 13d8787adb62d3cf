// What the file says is what was observed: random jobs, composed and read again.
#include <gtest/gtest.h>

#include "support/cadastral_jobs.h"
#include "support/dat_reader.h"
#include "support/random.h"

namespace {

constexpr double kHalfMillimetre = 0.00051;
constexpr double kHalfAngle = 0.000051;  // of the last decimal, gon
constexpr double kHalfTerm = 0.51e-9;

std::string AnyName(Random& random) {
  return random.Text("ABCxyz0123456789-_. ", 1) + random.Text("ABC123", 5);
}

std::string AnyNote(Random& random) {
  return random.OneIn(3) ? "" : "N" + random.Text("abcXYZ ,;'0123", 8) + "E";
}

void FillStation(CLibCmp& library, int job, Random& random) {
  CSta& station = *library.AddSta(job, true);
  station.SetNome(tdk::WString("S" + AnyName(random)));
  station.SetSecScri(tdk::WString(AnyNote(random)));
  station.SetAltStr(random.Real(0, 2));
  for (int i = random.Whole(0, 9); i > 0; --i) {
    CPun& point = *library.AddPun(&station, true);
    point.SetNome(tdk::WString("P" + AnyName(random)));
    point.SetSecScri(tdk::WString(AnyNote(random)));
    point.SetAltPri(random.Real(-1, 3));
    const double zenith = random.OneIn(4) ? UndefinedValue : random.Real(0.1, 199.9);
    point.SetDtIntAng(random.Real(0.5, 2000), zenith, random.Real(0, 400), 0);
  }
}

// A matrix is positive definite that is another one times its transpose.
void FillCovariance(CPunGps& point, Random& random) {
  const auto any = [&] { return random.Real(0.001, 0.02); };
  const double a = any();
  const double b = any();
  const double c = any();
  const double d = any() - 0.01;
  const double e = any() - 0.01;
  const double f = any() - 0.01;
  point.SetPosCov_xx(ToSingle(a * a));
  point.SetPosCov_xy(ToSingle(a * d));
  point.SetPosCov_xz(ToSingle(a * e));
  point.SetPosCov_yy(ToSingle(d * d + b * b));
  point.SetPosCov_yz(ToSingle(d * e + b * f));
  point.SetPosCov_zz(ToSingle(e * e + f * f + c * c));
}

void FillGroup(CLibGps& library, Random& random) {
  CGrpGps& group = *library.AddGrp(true);
  group.SetNome(tdk::WString("B" + AnyName(random)));
  group.SetSecScri(tdk::WString(AnyNote(random)));
  group.SetBaseAltAnt(random.Real(0, 3));
  group.SetGeocCeFaMis(random.Real(4e6, 5e6), random.Real(5e5, 1e6), random.Real(4e6, 5e6));
  for (int i = random.Whole(1, 6); i > 0; --i) {
    CPunGps& point = *library.AddPun(library.GetGrpArSize() - 1, true);
    point.SetNome(tdk::WString("G" + AnyName(random)));
    point.SetSecScri(tdk::WString(AnyNote(random)));
    point.SetAltAnt(random.Real(0, 3));
    point.SetPdop(random.Real(1, 6));
    point.SetGeocCeFaMis(random.Real(4e6, 5e6), random.Real(5e5, 1e6), random.Real(4e6, 5e6));
    FillCovariance(point, random);
  }
}

void ExpectSame(const CPun& point, const dat_reader::Observation& read) {
  EXPECT_EQ(read.point, point.GetNome().ToUtf8());
  EXPECT_EQ(read.note, point.GetSecScri().ToUtf8());
  const double turn = std::abs(read.direction - point.GetDato2());
  EXPECT_LE(std::min(turn, 400 - turn), kHalfAngle);
  EXPECT_GE(read.direction, 0);
  EXPECT_LT(read.direction, 400);
  EXPECT_NEAR(read.distance, point.GetDato0(), kHalfMillimetre);
  ASSERT_EQ(read.zenith.has_value(), IsDefined(point.GetDato1()));
  if (!read.zenith) return;
  EXPECT_NEAR(*read.zenith, point.GetDato1(), kHalfAngle);
  EXPECT_NEAR(read.prismHeight, point.GetAltPri(), kHalfMillimetre);
}

void ExpectSame(const CGrpGps& group, const CPunGps& point, const dat_reader::Baseline& read) {
  EXPECT_EQ(read.point, point.GetNome().ToUtf8());
  EXPECT_EQ(read.note, point.GetSecScri().ToUtf8());
  EXPECT_NEAR(read.poleHeight, point.GetAltAnt(), kHalfMillimetre);
  double base[3];
  double place[3];
  group.GetGeocCeFaMis(base[0], base[1], base[2]);
  point.GetGeocCeFaMis(place[0], place[1], place[2]);
  ASSERT_EQ(read.difference.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(read.difference[i], place[i] - base[i], kHalfMillimetre);
  }
  const float terms[] = {point.GetPosCov_xx(), point.GetPosCov_xy(), point.GetPosCov_xz(),
                         point.GetPosCov_yy(), point.GetPosCov_yz(), point.GetPosCov_zz()};
  ASSERT_EQ(read.covariance.size(), 6U);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(read.covariance[i], terms[i], kHalfTerm);
}

void ExpectSame(const CLibCmp& library, const dat_reader::File& file, std::size_t& next) {
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    for (int sta = 0; sta < library.GetStaArSize(job); ++sta) {
      ASSERT_LT(next, file.stations.size());
      const dat_reader::Station& read = file.stations[next++];
      const CSta& station = *library.GetStaAt(job, sta);
      EXPECT_EQ(read.name, station.GetNome().ToUtf8());
      EXPECT_NEAR(read.height, station.GetAltStr(), kHalfMillimetre);
      EXPECT_TRUE(read.position.empty());
      ASSERT_EQ(read.observations.size(), library.PointsOf(job, sta).size());
      for (std::size_t i = 0; i < read.observations.size(); ++i) {
        ExpectSame(*library.PointsOf(job, sta)[i], read.observations[i]);
      }
    }
  }
}

void ExpectSame(const CLibGps& library, const dat_reader::File& file, std::size_t& next) {
  for (int grp = 0; grp < library.GetGrpArSize(); ++grp) {
    ASSERT_LT(next, file.stations.size());
    const dat_reader::Station& read = file.stations[next++];
    const CGrpGps& group = *library.GetGrpAt(grp);
    EXPECT_EQ(read.name, group.GetNome().ToUtf8());
    EXPECT_NEAR(read.height, group.GetBaseAltAnt(), kHalfMillimetre);
    EXPECT_EQ(read.position.size(), 3U);
    EXPECT_EQ(read.session.size(), 5U);
    ASSERT_EQ(read.baselines.size(), static_cast<std::size_t>(library.GetPunArSize(grp)));
    for (std::size_t i = 0; i < read.baselines.size(); ++i) {
      ExpectSame(group, *library.GetPunAt(grp, static_cast<int>(i)), read.baselines[i]);
    }
  }
}

TEST(DatRoundTrip, RandomObservationsComeBack) {
  Random random;
  for (int round = 0; round < 50; ++round) {
    HostDocument document;
    cadastral_jobs::FillHeading(*document.GetCts());
    CLibCmp& library = *document.GetLibCmp();
    for (int job = random.Whole(1, 3); job > 0; --job) {
      library.AddJob(true);
      for (int sta = random.Whole(0, 4); sta > 0; --sta) {
        FillStation(library, library.GetJobArSize() - 1, random);
      }
    }
    for (int grp = random.Whole(0, 3); grp > 0; --grp) FillGroup(*document.GetLibGps(), random);
    const dat::DatText text = cadastral_jobs::Compose(document);
    ASSERT_EQ(cadastral_jobs::Texts(text.faults), std::vector<std::string>());
    const dat_reader::File file = dat_reader::Read(text.bytes);
    std::size_t next = 0;
    ExpectSame(library, file, next);
    ExpectSame(*document.GetLibGps(), file, next);
    EXPECT_EQ(next, file.stations.size());
    if (HasFailure()) break;
  }
}

TEST(DatRoundTrip, TheExampleIsReadWhole) {
  HostDocument document;
  cadastral_jobs::LoadExample(document);
  const dat_reader::File file = dat_reader::Read(cadastral_jobs::Compose(document).bytes);
  EXPECT_EQ(file.heading.size(), 8U);
  EXPECT_EQ(file.values.size(), 7U);
  ASSERT_EQ(file.stations.size(), 2U);
  EXPECT_EQ(file.stations[0].observations.size(), 2U);
  EXPECT_EQ(file.stations[1].session,
            (dat_reader::Fields{"L2", "20112025-09:05", "20112025-11:40", "RTK", "PDOP=2"}));
  EXPECT_EQ(file.contours, (std::vector<dat_reader::Fields>{{"2", "101", "103", "RC"}}));
  EXPECT_EQ(file.fiducials.size(), 1U);
}

}  // namespace
