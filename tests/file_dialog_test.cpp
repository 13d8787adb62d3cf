#include "services/file_dialog.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/fake_views.h"

namespace {

using tdk::WString;

struct FileDialog : testing::Test {
  FileDialog() { dialog.SetVars("/jobs/wall\\", "JB2 file import", "jb2;txt", true, ""); }

  int ChooseAndPress(const char* path, const char* button) {
    views.onDialog = [=](Dialog& shown) {
      EXPECT_EQ(shown.Set("path", path), DialogSet::kDone);
      return shown.Press(button).value_or(-1);
    };
    return dialog.DoModal();
  }
  std::string Path() const {
    WString path;
    dialog.GetVars(path);
    return path.ToUtf8();
  }

  FakeViews views;
  CWnd parent{&views};
  CDlgImportExportGeneric dialog{CCloudManager::GetInstance(), &parent, -1};
};

TEST_F(FileDialog, IsShownOverItsParent) {
  EXPECT_EQ(ChooseAndPress("a.jb2", "OK"), 1);
  EXPECT_EQ(views.shownDialogs, std::vector<std::string>{"file"});
}

TEST_F(FileDialog, ReturnsOneOnlyWhenTheUserConfirms) {
  EXPECT_EQ(ChooseAndPress("a.jb2", "OK"), 1);
  EXPECT_NE(ChooseAndPress("a.jb2", "Cancel"), 1);
}

TEST_F(FileDialog, IsCancelledWithoutViews) {
  CWnd bare(nullptr);
  CDlgImportExportGeneric overNothing(nullptr, nullptr, -1);
  CDlgImportExportGeneric withoutViews(nullptr, &bare, -1);
  EXPECT_EQ(overNothing.DoModal(), Dialog::kCancel);
  EXPECT_EQ(withoutViews.DoModal(), Dialog::kCancel);
}

TEST_F(FileDialog, ShowsWhatItIsAskedFor) {
  const DialogState state = dialog.State();
  EXPECT_EQ(dialog.Title(), WString("JB2 file import"));
  EXPECT_EQ(state.at("folder"), "/jobs/wall\\");
  EXPECT_EQ(state.at("extensions"), "jb2;txt");
  EXPECT_EQ(state.at("import"), true);
  EXPECT_EQ(state.at("initialName"), "");
}

TEST_F(FileDialog, JoinsARelativeChoiceWithTheFolder) {
  ChooseAndPress("a.jb2", "OK");
  EXPECT_EQ(Path(), "/jobs/wall\\a.jb2");
  ChooseAndPress("old\\a.jb2", "OK");
  EXPECT_EQ(Path(), "/jobs/wall\\old\\a.jb2");
}

TEST_F(FileDialog, JoinsAFolderWithoutAFinalSeparator) {
  dialog.SetVars("/jobs/wall", "JB2 file import", "jb2", true, "");
  ChooseAndPress("a.jb2", "OK");
  EXPECT_EQ(Path(), "/jobs/wall\\a.jb2");
}

TEST_F(FileDialog, TakesAnAbsoluteChoiceAsItIs) {
  for (const char* path : {"/elsewhere/a.jb2", "\\elsewhere\\a.jb2", "C:\\a.jb2"}) {
    ChooseAndPress(path, "OK");
    EXPECT_EQ(Path(), path);
  }
}

TEST_F(FileDialog, FollowsAChangedFolder) {
  EXPECT_EQ(dialog.Set("folder", "/jobs/other"), DialogSet::kDone);
  ChooseAndPress("a.jb2", "OK");
  EXPECT_EQ(Path(), "/jobs/other\\a.jb2");
}

TEST_F(FileDialog, OffersTheInitialNameWithTheFirstExtension) {
  dialog.SetVars("/jobs/wall\\", "Export", "dat;txt", false, "survey");
  EXPECT_EQ(dialog.State().at("initialName"), "survey");
  EXPECT_EQ(dialog.State().at("import"), false);
  EXPECT_EQ(Path(), "/jobs/wall\\survey.dat");
}

TEST_F(FileDialog, RefusesAKeyThatItDoesNotHave) {
  EXPECT_EQ(dialog.Set("colour", "red"), DialogSet::kUnknownKey);
}

TEST_F(FileDialog, RefusesAValueThatIsNoText) {
  EXPECT_EQ(dialog.Set("path", 7), DialogSet::kWrongValue);
  EXPECT_EQ(dialog.Set("folder", nullptr), DialogSet::kWrongValue);
  EXPECT_EQ(dialog.State().at("folder"), "/jobs/wall\\");
}

TEST_F(FileDialog, LetsNobodyChangeWhatTheModuleAsksFor) {
  EXPECT_EQ(dialog.Set("extensions", "dxf"), DialogSet::kWrongValue);
  EXPECT_EQ(dialog.Set("import", false), DialogSet::kWrongValue);
  EXPECT_EQ(dialog.State().at("extensions"), "jb2;txt");
  EXPECT_EQ(dialog.State().at("import"), true);
}

TEST_F(FileDialog, HasOkAndCancel) {
  EXPECT_EQ(dialog.Buttons(), (std::vector<std::string_view>{"OK", "Cancel"}));
  EXPECT_EQ(dialog.Press("Cancel"), Dialog::kCancel);
  EXPECT_EQ(dialog.Press("nothing of the kind"), Dialog::kCancel);
}

}  // namespace
