// The export of a drawing as a host sees it: what is deleted, drawn, saved and put back.
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "model/cad_files.h"
#include "services/display/displays.h"
#include "tests/support/exchange_frame.h"

using namespace exchange_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Keeps what the engine is asked to save; writes nothing.
class KeptFiles : public ICadFiles {
 public:
  KeptFiles() : previous_(Current()) { SetCurrent(this); }
  ~KeptFiles() override { SetCurrent(previous_); }

  CadLoad LoadDxf(const tdk::WString& path, CTcadEng&) override { return Load("DXF", path); }
  CadLoad LoadDwg(const tdk::WString& path, CTcadEng&) override { return Load("DWG", path); }
  bool SaveDxf(const CadSave& asked, const CTcadEng& engine) override {
    return Save("DXF", asked, engine);
  }
  bool SaveDwg(const CadSave& asked, const CTcadEng& engine) override {
    return Save("DWG", asked, engine);
  }

  std::vector<std::string> calls;
  CadSave how;
  std::vector<cad::Origin> origins;  ///< of what was saved, in its order, each run once
  bool holdsPrivate = false;
  int blocks = 0;
  std::function<void(const CTcadEng&)> onSave;
  bool succeeds = true;
  CadLoad load;

 private:
  CadLoad Load(const char* kind, const tdk::WString& path) {
    calls.push_back(std::string(kind) + ' ' + path.ToUtf8());
    return load;
  }
  bool Save(const char* kind, const CadSave& asked, const CTcadEng& engine) {
    calls.emplace_back(kind);
    how = asked;
    blocks = static_cast<int>(engine.Blocks().size());
    for (const cad::Entity& entity : engine.Entities()) {
      holdsPrivate = holdsPrivate || entity.isPrivate;
      if (origins.empty() || origins.back() != entity.origin) origins.push_back(entity.origin);
    }
    if (onSave) onSave(engine);
    return succeeds;
  }

  ICadFiles* previous_;
};

class DrawingExport : public FrameTest {
 protected:
  CTcadEng& own() { return *document.GetCadEngine(); }

  int Export(const std::string& name, const DialogState& chosen = DialogState::object()) {
    // The settings remember what another test has chosen.
    DialogState options = {{"version", 0}, {"explode", false}, {"notVisible", false}};
    options.update(chosen);
    views.Then([=, this](Dialog& dialog) {
      EXPECT_EQ(dialog.Set("path", folder.Path(name)), DialogSet::kDone);
      for (const auto& [key, value] : options.items()) {
        EXPECT_EQ(dialog.Set(key, value), DialogSet::kDone) << key;
      }
      return dialog.Press("OK").value_or(Dialog::kCancel);
    });
    return exports.exportDrawing(&parent, &document, 0);
  }
  int Import(const std::string& name) {
    views.Then(Choose(folder.Path(name)));
    return exports.importDrawing(&parent, &document, 0);
  }

  void FillAll() {
    FillJobs();
    document.GetLibCmp()->GetStaAt(0, 0)->SetCoord(1, 2, 3);
    CGrpGps* const group = document.GetLibGps()->AddGrp(false);
    group->SetCoord(4, 5, 6);
    document.GetLibPnt()->AddGrp(false);
    document.GetLibPnt()->AddPtn(0, false)->SetCoord(7, 8, 9);
    document.GetLibDtm()->AddPrj(false)->GetVncs().AddVnc({{0, 0, 0}, {1, 1, 1}});
    CRoad* const road = document.GetLibRoad()->AddRoad(false);
    road->AddElement(
        std::make_unique<CLinePlaniElem>(0, tdk::geom::PNT_2D(0, 0), tdk::geom::PNT_2D(9, 9)));
    CProfileAlti& line = road->GetRoadProfile()->MakeMainPrjAlti();
    line.AddVrt({0, 1});
    line.AddVrt({5, 2});
  }
  /// The document shows itself in its own engine.
  void Show() {
    CDocSymbolManager symbols(&own());
    CDisLibCmp(&own(), &symbols, &document, true).AddAllLibCmp(false);
    CDisLibPnt(&own(), &symbols, document.GetLibPnt(), true).AddAllLibPnt(false);
  }
  int CountOwn(cad::Origin origin) {
    const auto& entities = own().Entities();
    return static_cast<int>(
        std::count_if(entities.begin(), entities.end(),
                      [&](const cad::Entity& entity) { return entity.origin == origin; }));
  }

  KeptFiles files;
};

// ---- What is saved ----

TEST_F(DrawingExport, DrawsAllLibrariesInTheirOrder) {
  using enum cad::Origin;
  FillAll();
  own().Add({1, cad::kByLayer, false, kUser, cad::PointShape{}});
  EXPECT_EQ(Export("plan.dxf", {{"version", 2}}), 1);
  EXPECT_THAT(files.origins,
              ElementsAre(kUser, kTotalStation, kGps, kKnownPoints, kTerrain, kRoads, kProfiles));
}

TEST_F(DrawingExport, ExplodedNamesComeBeforeTheirPoints) {
  using enum cad::Origin;
  FillAll();
  EXPECT_EQ(Export("plan.dxf", {{"version", 2}, {"explode", true}}), 1);
  EXPECT_THAT(files.origins, ElementsAre(kPointNames, kTotalStation, kGps, kKnownPoints, kTerrain,
                                         kRoads, kProfiles));
}

TEST_F(DrawingExport, WhatTheDocumentShowsIsNotSavedTwice) {
  FillAll();
  Show();
  int points = 0;
  files.onSave = [&](const CTcadEng& engine) {
    for (const cad::Entity& entity : engine.Entities()) {
      points += std::holds_alternative<cad::InsertShape>(entity.shape) ? 1 : 0;
    }
  };
  Export("plan.dxf", {{"version", 2}});
  EXPECT_EQ(points, 3);  // the station, the base, the known point
}

TEST_F(DrawingExport, DocumentsEngineIsBareWhileItIsSavedAndShowsAgainAfterwards) {
  FillAll();
  Show();
  const int before = CountOwn(cad::Origin::kTotalStation);
  ASSERT_GT(before, 0);
  bool wasBare = false;
  files.onSave = [&](const CTcadEng&) { wasBare = own().Entities().empty(); };
  Export("plan.dxf");
  EXPECT_TRUE(wasBare);
  EXPECT_EQ(CountOwn(cad::Origin::kTotalStation), before);
  EXPECT_EQ(CountOwn(cad::Origin::kKnownPoints), 1);
  EXPECT_EQ(CountOwn(cad::Origin::kGps), 0) << "it was not shown before";
}

TEST_F(DrawingExport, PrivateObjectsAreNotSavedAndStayInTheDocument) {
  own().Add({1, cad::kByLayer, /*isPrivate=*/true, cad::Origin::kUser, cad::PointShape{}});
  Export("plan.dxf");
  EXPECT_FALSE(files.holdsPrivate);
  EXPECT_EQ(own().Entities().size(), 1U);
}

TEST_F(DrawingExport, DrawsOnTheCompatibleDrawingOfATarget) {
  FillAll();
  const int target = own().AddDrawing(0, "SURVEY", true, false, false);
  document.GetLibCmp()->SetTargetDrawing(target);
  std::string layer;
  files.onSave = [&](const CTcadEng& engine) {
    layer = engine.GetDrawingName(engine.Entities().front().drawing).ToUtf8();
  };
  Export("plan.dxf");
  EXPECT_EQ(layer, "CAD");
  EXPECT_EQ(document.GetLibCmp()->GetTargetDrawing(), target);
}

TEST_F(DrawingExport, SecondDrawingNamedCadWithAnotherColourHasTheSourcesName) {
  FillAll();
  own().SetDrawingColor(own().AddDrawing(0, "CAD", true, false, false), true, 30);
  document.GetLibCmp()->SetTargetDrawing(own().AddDrawing(0, "SURVEY", true, false, false));
  std::string layer;
  files.onSave = [&](const CTcadEng& engine) {
    layer = engine.GetDrawingName(engine.Entities().front().drawing).ToUtf8();
  };
  Export("plan.dxf");
  EXPECT_EQ(layer, "CAD_SURVEY");
}

TEST_F(DrawingExport, UsersOwnSymbolsGoWithIt) {
  FillAll();
  cad::Block symbol;
  symbol.name = "FB_STATION";
  symbol.entities = {{1, cad::kByBlock, false, cad::Origin::kUser, cad::CircleShape{{}, 1}}};
  own().AddBlock(symbol);
  bool isTheUsers = false;
  files.onSave = [&](const CTcadEng& engine) {
    const auto& block =
        engine.Blocks().at(static_cast<std::size_t>(engine.FindBlock("FB_STATION")));
    isTheUsers = std::holds_alternative<cad::CircleShape>(block.entities.at(0).shape);
  };
  Export("plan.dxf");
  EXPECT_TRUE(isTheUsers);
}

// ---- How it is saved ----

TEST_F(DrawingExport, FlagsStandInTheirOrder) {
  Export("plan.dxf", {{"version", 2}});
  EXPECT_THAT(files.how.flags, ElementsAre(false, true, false, false, false));
  EXPECT_EQ(files.how.last, 0);
  Export("plan.dxf", {{"version", 2}, {"explode", true}, {"notVisible", true}});
  EXPECT_THAT(files.how.flags, ElementsAre(false, false, false, false, true));
  EXPECT_EQ(files.how.last, 0);
}

TEST_F(DrawingExport, VersionsOfTheListHaveTheirValueKindAndExtension) {
  struct Row {
    int position;
    const char* call;
    int value;
    const char* extension;
  };
  for (const Row& row : {Row{0, "DWG", 7, "dwg"}, Row{1, "DWG", 6, "dwg"}, Row{2, "DXF", 3, "dxf"},
                         Row{3, "DXF", 0, "dxf"}}) {
    files.calls.clear();
    EXPECT_EQ(Export("plan.x", {{"version", row.position}}), 1);
    EXPECT_THAT(files.calls, ElementsAre(row.call));
    EXPECT_EQ(static_cast<int>(files.how.version), row.value);
    EXPECT_EQ(files.how.path.ToUtf8(), folder.Path("plan.") + row.extension);
  }
}

TEST_F(DrawingExport, R12UnderADwgNameIsWrittenAsDxf) {
  EXPECT_EQ(Export("plan.dwg", {{"version", 3}}), 1);
  EXPECT_EQ(files.how.path.ToUtf8(), folder.Path("plan.dxf"));
  EXPECT_EQ(static_cast<int>(files.how.version), 0);
}

TEST_F(DrawingExport, ReturnsOneWhateverTheSaveProduced) {
  files.succeeds = false;
  EXPECT_EQ(Export("plan.dxf"), 1);
  EXPECT_THAT(views.messages, IsEmpty());
}

TEST_F(DrawingExport, CancelSavesNothingAndReturnsNothing) {
  FillAll();
  Show();
  const std::size_t before = own().Entities().size();
  EXPECT_EQ(exports.exportDrawing(&parent, &document, 0), 0);
  EXPECT_THAT(files.calls, IsEmpty());
  EXPECT_EQ(own().Entities().size(), before);
}

// ---- Import ----

TEST_F(DrawingExport, ExtensionChoosesTheLoader) {
  files.load.isLoaded = true;
  for (const char* const name : {"SURVEY.DXF", "survey.dwg", "a.dx"}) {
    EXPECT_EQ(Import(name), 1);
  }
  EXPECT_THAT(files.calls,
              ElementsAre("DXF " + folder.Path("SURVEY.DXF"), "DWG " + folder.Path("survey.dwg"),
                          "DWG " + folder.Path("a.dx")));
}

TEST_F(DrawingExport, FailedLoadOfADxfTellsLineAndReason) {
  files.load.errorLine = 12;
  files.load.errorText = "no good";
  EXPECT_EQ(Import("a.dxf"), 0);
  EXPECT_THAT(views.messages, ElementsAre(ShownMessage{"Error !", "Error on line 12: no good", 0}));
}

TEST_F(DrawingExport, FailedLoadOfADwgTellsTheReasonAlone) {
  files.load.errorText = "no good";
  EXPECT_EQ(Import("a.dwg"), 0);
  EXPECT_THAT(views.messages, ElementsAre(ShownMessage{"Error !", "Error: no good", 0}));
}

}  // namespace
