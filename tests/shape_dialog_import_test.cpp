// The dialog of the Shape import.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "services/jobs_folder.h"
#include "support/fake_shape_files.h"
#include "support/fake_views.h"
#include "support/temporary_folder.h"
#include "ui/shape_import_dialog.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ShapeImportDialog : public testing::Test {
 protected:
  ShapeImportDialog() {
    folder.Write("points.shp", "");
    folder.Write("points.dbf", "");
    folder.Write("walls.shp", "");
    folder.Write("notes.txt", "");
    CJobsFolder::SetJobFolder(tdk::WString(folder.Path()));
  }
  ~ShapeImportDialog() override { CJobsFolder::SetJobFolder("."); }

  ui::ShapeImportDialog& Dialog() {
    if (!dialog_) dialog_.emplace(&window, &library, options);
    return *dialog_;
  }
  DialogSet Set(const char* key, const DialogState& value) { return Dialog().Set(key, value); }
  bool Shows(const char* key) { return Dialog().State()[key].get<bool>(); }
  void Select(const char* file) { ASSERT_EQ(Set("file", file), DialogSet::kDone); }

  TemporaryFolder folder;
  FakeShapeFiles files;
  gis::CLibGis library;
  TOpzImportShape options{true, 7, 7};
  FakeViews views;
  CWnd window{&views};

 private:
  std::optional<ui::ShapeImportDialog> dialog_;
};

TEST_F(ShapeImportDialog, ListsTheShapeFilesOfTheJobsFolder) {
  EXPECT_EQ(Dialog().Name(), "shape-import");
  EXPECT_EQ(Dialog().Title(), "Import of Shape file");
  EXPECT_EQ(Dialog().State().dump(),
            R"({"folder":")" + folder.Path() +
                R"(\\","files":["points","walls"],"file":null,"createPoints":false,)"
                R"("nameField":0,"codeField":0,"fields":[],"pointOptionsVisible":false,)"
                R"("associationVisible":false,"associationEnabled":false})");
}

TEST_F(ShapeImportDialog, AFileIsListedByItsNameBeforeTheFirstExtension) {
  folder.Write("a.shp.old.shp", "");
  folder.Write("BIG.SHP", "");
  EXPECT_EQ(Dialog().State()["files"], DialogState({"BIG", "a", "points", "walls"}));
}

TEST_F(ShapeImportDialog, SelectingAFileReadsItsTypeAndItsFields) {
  Select("points");
  EXPECT_EQ(Dialog().Path(), tdk::WString(folder.Path() + "\\points.shp"));
  EXPECT_THAT(files.asked,
              ElementsAre(folder.Path() + "\\points.shp", folder.Path() + "\\points.dbf"));
  EXPECT_EQ(Dialog().State()["fields"], DialogState({"NAME", "CODE", "HEIGHT"}));
  EXPECT_EQ(Dialog().State()["file"], "points");
}

TEST_F(ShapeImportDialog, AFileInCapitalLettersIsFound) {
  folder.Write("BIG.SHP", "");
  folder.Write("BIG.DBF", "");
  Select("BIG");
  EXPECT_THAT(files.asked, ElementsAre(folder.Path() + "\\BIG.SHP", folder.Path() + "\\BIG.DBF"));
}

TEST_F(ShapeImportDialog, PointsMayBeAssociatedAndNothingElse) {
  Select("points");
  EXPECT_TRUE(Shows("pointOptionsVisible"));
  EXPECT_TRUE(Shows("associationVisible"));
  for (const int type : {2, 3}) {
    files.entityType = type;
    Select("walls");
    EXPECT_TRUE(Shows("pointOptionsVisible")) << type;
    EXPECT_FALSE(Shows("associationVisible")) << type;
    EXPECT_EQ(Set("createPoints", true), DialogSet::kDone);
    EXPECT_EQ(Set("nameField", 1), DialogSet::kWrongValue);
  }
}

TEST_F(ShapeImportDialog, TheListsAreEnabledWhileTheBoxIsChecked) {
  Select("points");
  EXPECT_FALSE(Shows("associationEnabled"));
  EXPECT_EQ(Set("nameField", 1), DialogSet::kWrongValue);
  EXPECT_EQ(Set("createPoints", true), DialogSet::kDone);
  EXPECT_TRUE(Shows("associationEnabled"));
  EXPECT_EQ(Set("nameField", 1), DialogSet::kDone);
  EXPECT_EQ(Set("createPoints", false), DialogSet::kDone);
  EXPECT_FALSE(Shows("associationEnabled"));
  EXPECT_EQ(Set("codeField", 1), DialogSet::kWrongValue);
}

TEST_F(ShapeImportDialog, OkHandsOverThePositionsWithoutTheEmptyEntry) {
  Select("points");
  Set("createPoints", true);
  EXPECT_EQ(Set("nameField", 3), DialogSet::kDone);
  EXPECT_EQ(Set("codeField", 1), DialogSet::kDone);
  EXPECT_EQ(Set("codeField", 4), DialogSet::kWrongValue);
  EXPECT_EQ(Dialog().Press("OK"), Dialog::kOk);
  EXPECT_TRUE(options.createPoints);
  EXPECT_EQ(options.nameField, 2);
  EXPECT_EQ(options.codeField, 0);
}

TEST_F(ShapeImportDialog, EmptyEntriesAreHandedOverAsNone) {
  Select("points");
  Set("createPoints", true);
  EXPECT_EQ(Dialog().Press("OK"), Dialog::kOk);
  EXPECT_TRUE(options.createPoints);
  EXPECT_EQ(options.nameField, -1);
  EXPECT_EQ(options.codeField, -1);
}

TEST_F(ShapeImportDialog, AFileOfAnUnknownTypeIsToldAndShowsNoOptions) {
  files.entityType = -1;
  Select("points");
  EXPECT_THAT(
      views.messages,
      ElementsAre(FakeViews::Message{
          "Warning", "Impossible to read data!\r\nThe type of entity contained are invalid", 48}));
  EXPECT_FALSE(Shows("pointOptionsVisible"));
  EXPECT_FALSE(Shows("associationVisible"));
  EXPECT_EQ(Set("createPoints", true), DialogSet::kWrongValue);
  EXPECT_EQ(Dialog().Press("OK"), Dialog::kOk);
}

TEST_F(ShapeImportDialog, ATableThatCannotBeReadLeavesTheOptionsHidden) {
  files.hasTable = false;
  Select("points");
  EXPECT_THAT(views.messages, IsEmpty());
  EXPECT_FALSE(Shows("pointOptionsVisible"));
  EXPECT_FALSE(Shows("associationVisible"));
  EXPECT_EQ(Dialog().Press("OK"), Dialog::kOk);
  EXPECT_FALSE(options.createPoints);
  EXPECT_EQ(options.nameField, -1);
}

TEST_F(ShapeImportDialog, OkWithoutAFileKeepsTheDialogOpen) {
  EXPECT_EQ(Dialog().Press("OK"), std::nullopt);
  EXPECT_THAT(views.messages,
              ElementsAre(FakeViews::Message{
                  "Warning", "Select a file to be imported before continuing.", 48}));
}

TEST_F(ShapeImportDialog, DeselectingHidesTheOptions) {
  Select("points");
  Set("createPoints", true);
  EXPECT_EQ(Set("file", nullptr), DialogSet::kDone);
  EXPECT_FALSE(Shows("pointOptionsVisible"));
  EXPECT_FALSE(Shows("associationVisible"));
  EXPECT_EQ(Dialog().State()["file"], nullptr);
  EXPECT_EQ(Dialog().Path(), "");
  EXPECT_EQ(Dialog().Press("OK"), std::nullopt);
}

TEST_F(ShapeImportDialog, AnotherFileBeginsWithItsOwnOptions) {
  Select("points");
  Set("createPoints", true);
  Set("nameField", 2);
  files.fields = {"ID"};
  Select("walls");
  EXPECT_EQ(Dialog().State()["nameField"], 0);
  EXPECT_EQ(Dialog().State()["fields"], DialogState({"ID"}));
  EXPECT_FALSE(Dialog().State()["createPoints"].get<bool>());
}

TEST_F(ShapeImportDialog, ChangeListsTheFilesOfAnotherFolder) {
  Select("points");
  std::filesystem::create_directory(folder.File("more"));
  folder.Write("more/roads.shp", "");
  views.onDialog = [&](class Dialog& other) {
    EXPECT_EQ(other.Name(), "job-folder");
    other.Set("folder", folder.File("more"));
    return other.Press("OK").value_or(0);
  };
  EXPECT_EQ(Dialog().Press("Change"), std::nullopt);
  EXPECT_EQ(Dialog().State()["folder"], folder.File("more") + "\\");
  EXPECT_EQ(Dialog().State()["files"], DialogState::array({"roads"}));
  EXPECT_EQ(Dialog().State()["file"], nullptr);
  Select("roads");
  EXPECT_EQ(Dialog().Path(), tdk::WString(folder.File("more") + "\\roads.shp"));
}

TEST_F(ShapeImportDialog, AFolderMayBeSetAtOnce) {
  EXPECT_EQ(Set("folder", "/none/"), DialogSet::kDone);
  EXPECT_EQ(Dialog().State()["folder"], "/none/");
  EXPECT_EQ(Dialog().State()["files"], DialogState::array());
  EXPECT_EQ(Set("folder", folder.Path()), DialogSet::kDone);
  EXPECT_EQ(Dialog().State()["files"], DialogState({"points", "walls"}));
}

TEST_F(ShapeImportDialog, TakesNothingElse) {
  EXPECT_EQ(Set("file", "missing"), DialogSet::kWrongValue);
  EXPECT_EQ(Set("file", 1), DialogSet::kWrongValue);
  EXPECT_EQ(Set("folder", 1), DialogSet::kWrongValue);
  EXPECT_EQ(Set("createPoints", true), DialogSet::kWrongValue);
  Select("points");
  EXPECT_EQ(Set("createPoints", 1), DialogSet::kWrongValue);
  for (const char* key :
       {"files", "fields", "pointOptionsVisible", "associationVisible", "associationEnabled"}) {
    EXPECT_EQ(Set(key, true), DialogSet::kWrongValue) << key;
  }
  EXPECT_EQ(Set("themes", true), DialogSet::kUnknownKey);
}

}  // namespace
