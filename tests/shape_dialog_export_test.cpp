// The dialog of the Shape export.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "services/jobs_folder.h"
#include "support/fake_views.h"
#include "ui/shape_export_dialog.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ShapeExportDialog : public testing::Test {
 protected:
  ShapeExportDialog() {
    CJobsFolder::SetJobFolder("/jobs/wall/");
    for (const char* name : {"trees", "walls", "plots"}) {
      library.AddTheme(std::make_unique<gis::CTheme>(name, gis::EntityType::kPoint, false, false),
                       true);
    }
  }
  ~ShapeExportDialog() override { CJobsFolder::SetJobFolder("."); }
  DialogSet Set(const char* key, const DialogState& value) { return Dialog().Set(key, value); }
  ui::ShapeExportDialog& Dialog() {
    if (!dialog_) dialog_.emplace(&window, library);
    return *dialog_;
  }
  // Whether OK takes that many characters.
  bool Takes(int characters) {
    EXPECT_EQ(Set("maxChars", characters), DialogSet::kDone);
    return Dialog().Press("OK") == Dialog::kOk;
  }

  gis::CLibGis library;
  FakeViews views;
  CWnd window{&views};

 private:
  std::optional<ui::ShapeExportDialog> dialog_;
};

TEST_F(ShapeExportDialog, ShowsTheThemesInTheirOrderAndTheJobsFolder) {
  EXPECT_EQ(Dialog().Name(), "shape-export");
  EXPECT_EQ(Dialog().Title(), "Export to Shape file");
  EXPECT_EQ(Dialog().State().dump(),
            R"({"themes":[{"name":"trees","checked":false},{"name":"walls","checked":false},)"
            R"({"name":"plots","checked":false}],"coordinateType":0,"folder":"/jobs/wall",)"
            R"("maxChars":250})");
}

TEST_F(ShapeExportDialog, OkCollectsTheCheckedThemesInTheirOrder) {
  EXPECT_EQ(Set("themes", {2, 0}), DialogSet::kDone);
  EXPECT_EQ(Set("coordinateType", 2), DialogSet::kDone);
  EXPECT_EQ(Set("folder", "/shapes"), DialogSet::kDone);
  EXPECT_EQ(Set("maxChars", 80), DialogSet::kDone);
  EXPECT_EQ(Dialog().Press("OK"), Dialog::kOk);
  const ui::ShapeExportChoice choice = Dialog().Choice();
  EXPECT_THAT(choice.themes, ElementsAre(library.GetTheme(0), library.GetTheme(2)));
  EXPECT_EQ(choice.folder, "/shapes");
  EXPECT_EQ(choice.coordinateType, 2);
  EXPECT_EQ(choice.maximumCharacters, 80);
}

TEST_F(ShapeExportDialog, CharactersLieBetweenTenAndTwoHundredAndFifty) {
  EXPECT_FALSE(Takes(9));
  EXPECT_FALSE(Takes(251));
  EXPECT_FALSE(Takes(-1));
  EXPECT_FALSE(Takes(0));
  EXPECT_EQ(views.messages.size(), 4U);
  EXPECT_EQ(views.messages[0],
            (FakeViews::Message{"Warning", "Enter an integer between 10 and 250.", 48}));
  views.messages.clear();
  EXPECT_TRUE(Takes(10));
  EXPECT_TRUE(Takes(250));
  EXPECT_THAT(views.messages, IsEmpty());
}

TEST_F(ShapeExportDialog, ChangeAsksForAnotherFolder) {
  views.onDialog = [](class Dialog& other) {
    EXPECT_EQ(other.Name(), "job-folder");
    EXPECT_EQ(other.State()["folder"], "/jobs/wall");
    other.Set("folder", "/else");
    return other.Press("OK").value_or(0);
  };
  EXPECT_EQ(Dialog().Press("Change"), std::nullopt);
  EXPECT_EQ(Dialog().State()["folder"], "/else");
  views.onDialog = [](class Dialog& other) {
    other.Set("folder", "/third");
    return other.Press("Cancel").value_or(0);
  };
  EXPECT_EQ(Dialog().Press("Change"), std::nullopt);
  EXPECT_EQ(Dialog().State()["folder"], "/else");
}

TEST_F(ShapeExportDialog, CancelClosesWhateverStandsInIt) {
  Set("maxChars", 9);
  EXPECT_EQ(Dialog().Press("Cancel"), Dialog::kCancel);
  EXPECT_THAT(views.messages, IsEmpty());
}

TEST_F(ShapeExportDialog, TakesNothingElse) {
  EXPECT_EQ(Set("themes", {3}), DialogSet::kWrongValue);
  EXPECT_EQ(Set("themes", 1), DialogSet::kWrongValue);
  EXPECT_EQ(Set("coordinateType", 3), DialogSet::kWrongValue);
  EXPECT_EQ(Set("coordinateType", -1), DialogSet::kWrongValue);
  EXPECT_EQ(Set("maxChars", "ten"), DialogSet::kWrongValue);
  EXPECT_EQ(Set("maxChars", 10.5), DialogSet::kWrongValue);
  EXPECT_EQ(Set("folder", 1), DialogSet::kWrongValue);
  EXPECT_EQ(Set("files", 1), DialogSet::kUnknownKey);
}

}  // namespace
