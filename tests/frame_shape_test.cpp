// Shape export and import as a host calls them.
#include <gmock/gmock.h>

#include <string>

#include "tests/support/exchange_frame.h"
#include "tests/support/fake_shape_files.h"

using namespace exchange_test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class FrameShape : public FrameTest {
 protected:
  FrameShape() {
    for (const char* name : {"trees", "walls"}) {
      library.AddTheme(std::make_unique<gis::CTheme>(name, gis::EntityType::kPoint, false, false),
                       true);
    }
    WriteFile(folder.Path("points.shp"), "");
  }
  // Fills the export's dialog with the themes at these positions and confirms.
  int Export(const std::vector<int>& themes) {
    views.Then([themes](Dialog& dialog) {
      EXPECT_EQ(dialog.Set("themes", themes), DialogSet::kDone);
      EXPECT_EQ(dialog.Set("folder", "/shapes"), DialogSet::kDone);
      return dialog.Press("OK").value_or(Dialog::kCancel);
    });
    return exports.exportShape(&parent, &library);
  }
  bool Import(gis::ILinkImportedEnt* link = nullptr) {
    views.Then(SetAndPress("file", "points", "OK"));
    return exports.importShape(&parent, &library, link, false);
  }
  // What an import says whose host answers so.
  std::vector<ShownMessage> Said(bool isDone, int result) {
    files.outcome = FakeShapeFiles::Outcome(isDone, result, "points_1");
    views.messages.clear();
    EXPECT_TRUE(Import());
    return views.messages;
  }

  gis::CLibGis& library = *document.GetLibGis();
  FakeShapeFiles files;
};

// ---- Export ----

TEST_F(FrameShape, ExportAsksForThemes) {
  EXPECT_EQ(exports.exportShape(&parent, &library), 0);
  EXPECT_EQ(views.DialogNames(), std::vector<std::string>{"shape-export"});
  EXPECT_THAT(files.exports, IsEmpty());
  EXPECT_THAT(views.messages, IsEmpty());
}

TEST_F(FrameShape, ExportHandsEachThemeToTheHostInOrder) {
  EXPECT_EQ(Export({0, 1}), 1);
  ASSERT_THAT(files.exports, SizeIs(2));
  EXPECT_EQ(files.exports[0].theme, library.GetTheme(0));
  EXPECT_EQ(files.exports[1].theme, library.GetTheme(1));
  EXPECT_EQ(files.exports[0].folder, "/shapes\\");
  EXPECT_EQ(files.exports[0].maximumCharacters, 250);
  EXPECT_EQ(files.exports[0].coordinates, 0);
  EXPECT_THAT(views.messages, IsEmpty());
}

TEST_F(FrameShape, ExportOfNoThemeIsConfirmedAllTheSame) {
  EXPECT_EQ(Export({}), 1);
  EXPECT_THAT(files.exports, IsEmpty());
}

TEST_F(FrameShape, ExportThatFailsTwiceTellsTheShapeFileFirstAndGoesOn) {
  files.outcome = FakeShapeFiles::Outcome(false, 3);
  EXPECT_EQ(Export({0, 1}), 1);
  const auto said = [](const char* file) {
    return ShownMessage{"Warning",
                        std::string("Impossible to write the file \"/shapes\\") + file +
                            "\"!\nCheck if the path is valid and not proteced",
                        48};
  };
  EXPECT_THAT(views.messages, ElementsAre(said("trees.shp"), said("trees.dbf"), said("walls.shp"),
                                          said("walls.dbf")));
}

TEST_F(FrameShape, ExportThatFailsOnceTellsThatFile) {
  files.outcome = FakeShapeFiles::Outcome(false, 2);
  EXPECT_EQ(Export({0}), 1);
  ASSERT_THAT(views.messages, SizeIs(1));
  EXPECT_THAT(views.messages[0].text, testing::HasSubstr("trees.dbf"));
}

TEST_F(FrameShape, ExportThatTheUserDidNotWantIsNoFailure) {
  files.outcome = FakeShapeFiles::Outcome(false, 0);
  EXPECT_EQ(Export({0}), 1);
  EXPECT_THAT(views.messages, IsEmpty());
}

TEST_F(FrameShape, ExportAsksBeforeAFileIsReplacedAndOnlyYesIsYes) {
  files.overwrites = "/shapes\\trees";
  EXPECT_EQ(Export({0}), 1);
  EXPECT_THAT(
      views.messages,
      ElementsAre(ShownMessage{
          "Warning", "The Shape file /shapes\\trees.shp already exists!\r\nOverwrite it?", 52}));
  EXPECT_THAT(files.answers, ElementsAre(false));  // these views answer OK to everything
}

// ---- Import ----

TEST_F(FrameShape, ImportThatIsCancelledReturnsTrueAndImportsNothing) {
  EXPECT_TRUE(exports.importShape(&parent, &library, nullptr, false));
  EXPECT_EQ(views.DialogNames(), std::vector<std::string>{"shape-import"});
  EXPECT_THAT(files.imports, IsEmpty());
  EXPECT_THAT(views.messages, IsEmpty());
  EXPECT_EQ(views.waitsStarted, 0);
}

class NoLink : public gis::ILinkImportedEnt {
 public:
  void OnBeginLink(const gis::CTheme&, const tdk::WString&) override {}
  bool OnLinkPoint(int, const tdk::geom::PNT_3D&, std::string_view, std::string_view) override {
    return true;
  }
  void OnEndLink() override {}
};

TEST_F(FrameShape, ImportHandsEverythingToTheHost) {
  NoLink link;
  files.onImport = [&](const ShapeImport& what) {
    // The usual behaviour of the host's merger, which the module's own keeps.
    tdk::WString theme = "trees";
    EXPECT_FALSE(what.merger->OnLoadTheme(theme));
    EXPECT_NE(dynamic_cast<gis::CGisMerger*>(what.merger), nullptr);
    EXPECT_EQ(views.waitsStarted, 1);
    EXPECT_EQ(views.waitsEnded, 0);
  };
  EXPECT_TRUE(Import(&link));
  ASSERT_THAT(files.imports, SizeIs(1));
  EXPECT_EQ(files.imports[0].library, &library);
  EXPECT_EQ(files.imports[0].path, tdk::WString(folder.Path() + "\\points.shp"));
  EXPECT_EQ(files.imports[0].link, &link);
  EXPECT_FALSE(files.imports[0].options.createPoints);
}

TEST_F(FrameShape, ImportOfPointsWithEmptyListsPassesNoFields) {
  views.Then([](Dialog& dialog) {
    dialog.Set("file", "points");
    EXPECT_EQ(dialog.Set("createPoints", true), DialogSet::kDone);
    return dialog.Press("OK").value_or(Dialog::kCancel);
  });
  EXPECT_TRUE(exports.importShape(&parent, &library, nullptr, false));
  ASSERT_THAT(files.imports, SizeIs(1));
  EXPECT_TRUE(files.imports[0].options.createPoints);
  EXPECT_EQ(files.imports[0].options.nameField, -1);
  EXPECT_EQ(files.imports[0].options.codeField, -1);
}

TEST_F(FrameShape, ImportOfAFileWithoutItsTableReportsWhatTheHostSays) {
  files.hasTable = false;
  EXPECT_THAT(Said(false, 3),
              ElementsAre(ShownMessage{
                  "Warning", "Unable to read file!\r\nThe file contains inconsistent data", 48}));
}

TEST_F(FrameShape, ImportTellsEachOutcomeInItsWords) {
  const auto warning = [](const char* text) {
    return ElementsAre(ShownMessage{"Warning", text, 48});
  };
  EXPECT_THAT(Said(true, 0),
              ElementsAre(ShownMessage{"Shape file", "File imported successfully", 64}));
  EXPECT_THAT(Said(true, 4), warning("The table has been renamed in \"points_1\""));
  EXPECT_THAT(Said(false, 1), warning("Impossible to read data\r\nFile points_1 not found"));
  EXPECT_THAT(Said(false, 3),
              warning("Unable to read file!\r\nThe file contains inconsistent data"));
  EXPECT_THAT(Said(false, 6),
              warning("Impossible to read data!\r\nTable already present in the GIS data."));
  EXPECT_THAT(Said(false, 8),
              warning("Impossibile leggere i dati!\r\nTheme already present in the GIS data."));
}

TEST_F(FrameShape, ImportSaysNothingOfAnyOtherOutcome) {
  const std::pair<bool, int> others[] = {{true, 1},  {true, 3},  {true, 6},  {true, 8},
                                         {true, 2},  {false, 0}, {false, 4}, {false, 5},
                                         {false, 7}, {false, -1}};
  for (const auto& [isDone, result] : others) {
    EXPECT_THAT(Said(isDone, result), IsEmpty()) << isDone << ' ' << result;
  }
}

TEST_F(FrameShape, ImportEndsTheWaitingBeforeItSpeaks) {
  views.onMessage = [this] { EXPECT_EQ(views.waitsEnded, 1); };
  EXPECT_TRUE(Import());
  EXPECT_THAT(views.messages, SizeIs(1));
}

TEST_F(FrameShape, ImportThatBreaksOffEndsTheWaitingAndReturnsFalse) {
  files.onImport = [](const ShapeImport&) { throw std::runtime_error("the disk is gone"); };
  EXPECT_FALSE(Import());
  EXPECT_EQ(views.waitsStarted, 1);
  EXPECT_EQ(views.waitsEnded, 1);
}

TEST_F(FrameShape, WithoutALibraryNothingIsAsked) {
  EXPECT_EQ(exports.exportShape(&parent, nullptr), 0);
  EXPECT_FALSE(exports.importShape(&parent, nullptr, nullptr, false));
  EXPECT_THAT(views.dialogs, IsEmpty());
}

TEST_F(FrameShape, MessagesAreTranslated) {
  SetLanguage("it");
  EXPECT_THAT(Said(true, 0),
              ElementsAre(ShownMessage{"File Shape", "File importato con successo", 64}));
}

}  // namespace
