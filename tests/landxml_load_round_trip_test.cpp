// What our LandXML export wrote comes back the same, to its six decimals.
#include "formats/landxml/landxml_document.h"
#include "tests/support/exchange_roads.h"
#include "tests/support/landxml_load.h"

using namespace landxml_test;
using exchange_test::AddElement;
using tdk::WString;
using tdk::geom::PNT_2D;
using tdk::geom::PNT_3D;
using tdk::geom::VECTOR_2D;

namespace {

constexpr double kWritten = 1e-6;  // metres, gon

class LandXmlRoundTrip : public LandXmlLoad {
 protected:
  /// Exports all of `job` and loads it.
  void GoRound() {
    landxml::LandXmlSelection selection;
    selection.path = WString(Path());
    for (int i = 0; i < job.GetLibRoad()->GetRoadArSize(); ++i) {
      selection.roads.push_back(job.GetLibRoad()->GetRoadAt(i));
    }
    selection.tsLibrary = job.GetLibCmp();
    for (int i = 0; i < job.GetLibCmp()->GetJobArSize(); ++i) {
      selection.tsJobs.push_back(job.GetLibCmp()->GetJobAt(i));
    }
    selection.gpsLibrary = job.GetLibGps();
    for (int i = 0; i < job.GetLibGps()->GetGrpArSize(); ++i) {
      selection.gpsGroups.push_back(job.GetLibGps()->GetGrpAt(i));
    }
    selection.pointLibrary = job.GetLibPnt();
    for (int i = 0; i < job.GetLibPnt()->GetGrpArSize(); ++i) {
      selection.pointGroups.push_back(job.GetLibPnt()->GetGrpAt(i));
    }
    for (int i = 0; i < job.GetLibDtm()->GetPrjArSize(); ++i) {
      selection.surfaces.push_back(job.GetLibDtm()->GetPrjAt(i));
    }
    landxml::WriteLandXmlDocument(selection);
    remarks = LoadLandXml(Path(), document);
    EXPECT_TRUE(remarks.empty()) << remarks[0];
  }

  HostDocument job;
};

void ExpectSame(const CEgn& point, const CEgn& written) {
  EXPECT_EQ(point.GetNome(), written.GetNome());
  EXPECT_EQ(point.GetSecScri(), written.GetSecScri());
  EXPECT_EQ(IsDefined(point.GetCoordX()), IsDefined(written.GetCoordX()));
  if (!IsDefined(written.GetCoordX())) return;
  ExpectAt(point, written.GetCoordX(), written.GetCoordY(), written.GetCoordZ(), kWritten);
}

TEST_F(LandXmlRoundTrip, OfNothingIsNothing) {
  GoRound();
  EXPECT_EQ(Jobs().GetJobArSize() + Gps().GetGrpArSize() + Known().GetGrpArSize() + SurfaceCount() +
                RoadCount(),
            0);
}

TEST_F(LandXmlRoundTrip, OfJobs) {
  CLibCmp& jobs = *job.GetLibCmp();
  jobs.AddJob(true)->SetNome("Cantiere Forlì");
  for (const char* const name : {"100", "200"}) {
    CSta& station = *jobs.AddSta(0, true);
    station.SetNomCoord(name, "nail", 500000.1234567, 4800000.7654321, 12.5);
    station.SetAltStr(1.6543214);
    for (int i = 0; i < 3; ++i) {
      CPun& point = *jobs.AddPun(&station, true);
      point.SetNomCoord(WString(std::to_string(i)), "code", 1.5 + i, -2.25, 1e-6);
      point.SetAltPri(i);
      point.SetDtIntAng(12.3456789 * i, 99.9999994, 399.1234567, 0);
    }
  }
  jobs.AddJob(true)->SetNome("empty");
  GoRound();
  ASSERT_EQ(Jobs().GetJobArSize(), 2);
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("Cantiere Forlì"));
  EXPECT_EQ(Jobs().GetJobAt(1)->GetNome(), WString("empty"));
  EXPECT_EQ(Jobs().GetStaArSize(1), 0);
  ASSERT_EQ(Jobs().GetStaArSize(0), 2);
  for (int station = 0; station < 2; ++station) {
    ExpectSame(*Jobs().GetStaAt(0, station), *jobs.GetStaAt(0, station));
    EXPECT_NEAR(Jobs().GetStaAt(0, station)->GetAltStr(), 1.6543214, kWritten);
    ASSERT_EQ(Jobs().GetPunArSize(0, station), 3);
    for (int i = 0; i < 3; ++i) {
      const CPun& point = *Jobs().GetPunAt(0, station, i);
      ExpectSame(point, *jobs.GetPunAt(0, station, i));
      EXPECT_EQ(point.GetAltPri(), i);
      EXPECT_NEAR(point.GetDato0(), 12.3456789 * i, kWritten);
      EXPECT_NEAR(point.GetDato1(), 99.9999994, kWritten);
      EXPECT_NEAR(point.GetDato2(), 399.1234567, kWritten);
    }
  }
}

TEST_F(LandXmlRoundTrip, OfMeasuresThatAreNotThere) {
  CLibCmp& jobs = *job.GetLibCmp();
  jobs.AddJob(true)->SetNome("J");
  jobs.AddPun(jobs.AddSta(0, true), true);
  GoRound();
  ASSERT_EQ(Jobs().GetPunArSize(0, 0), 1);
  const CPun& point = *Jobs().GetPunAt(0, 0, 0);
  EXPECT_FALSE(IsDefined(point.GetDato0()) || IsDefined(point.GetDato1()) ||
               IsDefined(point.GetDato2()) || IsDefined(point.GetCoordX()));
}

TEST_F(LandXmlRoundTrip, OfGpsGroups) {
  CLibGps& gps = *job.GetLibGps();
  CGrpGps& group = *gps.AddGrp(true);
  group.SetNomeGrp("rilievo");
  group.SetNomCoord("BASE", "", 100, 200, 300);
  group.SetBaseLat(0.7853981634);
  group.SetBaseLong(-0.15707963);
  group.SetBaseElev(55.5);
  group.SetBaseAltAnt(1.8);
  for (const int quality : {0, 2, 3, 4}) {
    CPunGps& point = *gps.AddPun(0, true);
    point.SetNomCoord(WString(std::to_string(quality)), "code", 1, 2, 3);
    point.SetLat(0.78 + 1e-7);
    point.SetLong(0.2);
    point.SetElev(-3.25);
    point.SetQua(quality);
    point.SetNuGpsUsed(11);
    point.SetPosCov_xx(0.5F);
    point.SetPosCov_yz(-0.25F);
  }
  gps.AddPun(0, true)->SetNome("bare");
  GoRound();
  ASSERT_EQ(Gps().GetGrpArSize(), 1);
  const CGrpGps& loaded = *Gps().GetGrpAt(0);
  EXPECT_EQ(loaded.GetNomeGrp(), WString("rilievo"));
  ExpectSame(loaded, group);
  EXPECT_NEAR(loaded.GetStoredBase().lat, 0.7853981634, 1e-11);
  EXPECT_NEAR(loaded.GetStoredBase().lon, -0.15707963, 1e-11);
  EXPECT_NEAR(loaded.GetStoredBase().height, 55.5, kWritten);
  EXPECT_NEAR(loaded.GetBaseAltAnt(), 1.8, kWritten);
  ASSERT_EQ(Gps().GetPunArSize(0), 5);
  for (int i = 0; i < 5; ++i) ExpectSame(*Gps().GetPunAt(0, i), *gps.GetPunAt(0, i));
  for (int i = 0; i < 4; ++i) {
    const CPunGps& point = *Gps().GetPunAt(0, i);
    EXPECT_NEAR(point.GetStoredPlace().lat, 0.78 + 1e-7, 1e-11);
    EXPECT_NEAR(point.GetStoredPlace().height, -3.25, kWritten);
    EXPECT_EQ(point.GetQua(), gps.GetPunAt(0, i)->GetQua());
    EXPECT_EQ(point.GetNuGpsUsed(), 11);
    EXPECT_EQ(point.GetPosCov_xx(), 0.5F);
    EXPECT_EQ(point.GetPosCov_yz(), -0.25F);
    EXPECT_EQ(point.GetPosCov_zz(), UndefinedFloat);
  }
  EXPECT_FALSE(IsDefined(Gps().GetPunAt(0, 4)->GetStoredPlace().lat));
}

TEST_F(LandXmlRoundTrip, OfPoints) {
  CLibPnt& known = *job.GetLibPnt();
  known.AddGrp(true)->SetLabels("Vertici", "", "", "");
  known.AddPtn(0, true)->SetNomCoord("V1", "", 500000.1234567, -2, 3);
  known.AddPtn(0, true)->SetNomCoord("V2", "", 1, 2, UndefinedValue);
  known.AddGrp(true)->SetLabels("empty", "", "", "");
  GoRound();
  ASSERT_EQ(Known().GetGrpArSize(), 2);
  EXPECT_EQ(Known().GetGrpAt(1)->GetNome(), WString("empty"));
  ASSERT_EQ(Known().GetPtnArSize(0), 2);
  ExpectSame(*Known().GetPtnAt(0, 0), *known.GetPtnAt(0, 0));
  EXPECT_EQ(Known().GetPtnAt(0, 1)->GetCoordY(), 2);
  EXPECT_FALSE(IsDefined(Known().GetPtnAt(0, 1)->GetCoordZ()));
}

TEST_F(LandXmlRoundTrip, OfSurfaces) {
  CDtmPrj& model = *job.GetLibDtm()->AddPrj(true);
  model.SetName("Collina");
  for (int i = 0; i < 4; ++i) model.GetTris().AddTriVrt({i + 0.1234567, 10.0 * (i % 2), -1.5 * i});
  model.GetTris().AddTri(2, 1, 0);
  model.GetTris().AddTri(1, 2, 3);
  CCnt& outer = model.GetOuterCnts().AddCnt();
  for (const PNT_3D& vertex : {PNT_3D(0, 0, 1), PNT_3D(9, 0, 2), PNT_3D(9, 9, 3)}) {
    outer.AddVrt(vertex);
  }
  model.GetIslandCnts().AddCnt().AddVrt({4, 5, 6});
  model.GetVncs().AddVnc({{1, 2, 3}, {4, 5, 6}});
  GoRound();
  ASSERT_EQ(SurfaceCount(), 1);
  EXPECT_EQ(Surface().GetName(), WString("Collina"));
  const CTris& triangles = Surface().GetTris();
  ASSERT_EQ(triangles.GetNoTriVrts(), 4);
  ExpectAt(triangles.GetTriVrtAt(3), 3.1234567, 10, -4.5, kWritten);
  ASSERT_EQ(triangles.GetNoTris(), 2);
  for (int k = 0; k < 3; ++k) EXPECT_EQ(triangles.GetTriAt(0).GetVerIndex(k), 2 - k);
  ASSERT_EQ(Surface().GetOuterCnts().GetNoCnts(), 1);
  EXPECT_EQ(Surface().GetOuterCnts().GetCntAt(0).GetNoVrts(), 3);
  ExpectAt(Surface().GetOuterCnts().GetCntAt(0).GetVrt(2), 9, 9, 3);
  ASSERT_EQ(Surface().GetIslandCnts().GetNoCnts(), 1);
  ExpectAt(Surface().GetIslandCnts().GetCntAt(0).GetVrt(0), 4, 5, 6);
  ASSERT_EQ(Surface().GetVncs().GetNoVncs(), 1);
  ExpectAt(Surface().GetVncs().GetVncAt(0).GetCoords().getEnd(), 4, 5, 6);
}

TEST_F(LandXmlRoundTrip, OfTheGeometryOfRoads) {
  CRoad& road = *job.GetLibRoad()->AddRoad(true);
  road.SetName("Via Roma");
  road.SetProgs(100, 480);
  const VECTOR_2D north(0, 1);
  const VECTOR_2D slanted(0.6, -0.8);
  AddElement<CLinePlaniElem>(road, 100.0, PNT_2D(500000, 4800000), PNT_2D(500060, 4799920));
  AddElement<CClotPlaniElem>(road, 200.0, PNT_2D(500060, 4799920), slanted, 30.0, 60.0, true, true);
  AddElement<CArcPlaniElem>(road, 230.0, PNT_2D(7, 8), north, 120.0, 1.5, false);
  AddElement<CClotPlaniElem>(road, 410.0, PNT_2D(7, 8), slanted, 50.0, 50.0, false, false);
  AddElement<CLinePlaniElem>(road, 460.0, PNT_2D(0, 0), PNT_2D(0, -20));
  GoRound();
  ASSERT_EQ(Kinds(), "SCACS");
  EXPECT_EQ(Road().GetName(), WString("Via Roma"));
  EXPECT_NEAR(Road().GetStartProg(), 100, kWritten);
  EXPECT_NEAR(Road().GetEndProg(), 480, kWritten);
  for (int i = 0; i < 50; ++i) {
    const double prog = 100 + 380 * (i + 0.5) / 50;
    PNT_2D there;
    PNT_2D here;
    ASSERT_TRUE(road.PointAt(prog, there)) << prog;
    ASSERT_TRUE(Road().PointAt(prog, here)) << prog;
    SCOPED_TRACE(prog);
    ExpectAt(here, there.getX(), there.getY(), 1e-5);
  }
}

TEST_F(LandXmlRoundTrip, OfProfilesAndSections) {
  CRoad& road = *job.GetLibRoad()->AddRoad(true);
  exchange_test::AddStraight(road);
  exchange_test::AddMainLine(
      road, {{100, 10}, exchange_test::Curved(150, 25, 120, 180), {200, 10.1234567}});
  road.ProfileCodes().AddSectionAltiCode(7, "Strato");
  CProfile& section = exchange_test::AddSection(road, "S1", 125.5);
  for (const TAltiVrt& vertex : std::vector<TAltiVrt>{{-5, 10}, {-1, 11}, {}, {1, 12}, {5, 13}}) {
    section.AddTerrVrt(vertex);
  }
  exchange_test::AddVertices(section.AddProfileAlti(7, false), {{-3, 10.5}, {3, 10.25}});
  GoRound();
  ASSERT_EQ(RoadCount(), 1);
  const CProfile& profile = *Road().GetRoadProfile();
  ASSERT_NE(profile.GetMainPrjAlti(), nullptr);
  ASSERT_EQ(profile.GetMainPrjAlti()->GetNumVrts(), 3);
  EXPECT_FALSE(profile.GetMainPrjAlti()->GetVrt(0).curve.has_value());
  ASSERT_TRUE(profile.GetMainPrjAlti()->GetVrt(1).curve.has_value());
  EXPECT_NEAR(profile.GetMainPrjAlti()->GetVrt(1).curve->start, 120, kWritten);
  EXPECT_NEAR(profile.GetMainPrjAlti()->GetVrt(2).height, 10.1234567, kWritten);
  ASSERT_EQ(profile.GetNumSections(), 1);
  const CProfile& loaded = profile.GetSection(0);
  EXPECT_EQ(loaded.GetName(), WString("S1"));
  EXPECT_EQ(loaded.GetSectionProg(), 125.5);
  ASSERT_EQ(loaded.GetNumTerrVrts(), 5);
  EXPECT_FALSE(IsDefined(loaded.GetTerrVrt(2).distance));
  EXPECT_EQ(loaded.GetTerrVrt(4).height, 13);
  ASSERT_EQ(loaded.GetNumProfileAlti(), 1);
  EXPECT_EQ(loaded.GetProfileAlti(0).GetVrt(1).height, 10.25);
  EXPECT_EQ(Road().ProfileCodes().FindSectionAltiCode(loaded.GetProfileAlti(0).GetCode())->name,
            WString("Strato"));
}

}  // namespace
