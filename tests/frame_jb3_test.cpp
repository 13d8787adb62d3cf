// The JB3 exchange as a host calls it.
#include <string>

#include "tests/support/exchange_frame.h"

using namespace exchange_test;
using Names = std::vector<std::string>;

namespace {

class FrameJb3 : public FrameTest {
 protected:
  const ShownMessage kNoData = {"Warning", "There are no data to export.", 48};
  const tdk::WString name = "Field";
  const tdk::WString version = "7.1";

  int Export(const std::string& path) {
    views.Then(Choose(path));
    return exports.exportJb3(&parent, &document, &name, &version);
  }
};

TEST_F(FrameJb3, AsksForAFileToImport) {
  exports.importJb3(&parent, &document, 0);
  ASSERT_EQ(views.DialogNames(), Names{"file"});
  EXPECT_EQ(views.dialogs[0].title, "JB3 file import");
  EXPECT_EQ(views.dialogs[0].state, FileDialogState(folder.Path(), "jb3", true));
}

TEST_F(FrameJb3, AsksForAFileToExport) {
  FillJobs();
  exports.exportJb3(&parent, &document, &name, &version);
  ASSERT_EQ(views.DialogNames(), Names{"file"});
  EXPECT_EQ(views.dialogs[0].title, "JB3 file export");
  EXPECT_EQ(views.dialogs[0].state, FileDialogState(folder.Path(), "jb3", false));
}

TEST_F(FrameJb3, ImportsTheSample) {
  BatchCounter batches;
  document.GetLibCmp()->GetCmpContext()->SetListener(&batches);
  views.Then(Choose(KALVIO_SAMPLES "/gps.jb3"));
  EXPECT_EQ(exports.importJb3(&parent, &document, 0), 1);
  EXPECT_EQ(document.GetLibCmp()->GetPunArSize(0, 0), 2);
  EXPECT_EQ(document.GetLibGps()->GetPunArSize(0), 3);
  EXPECT_EQ(document.GetLibPnt()->GetPtnArSize(0), 1);
  EXPECT_EQ(document.GetLibCmp()->GetOriArSize(), 1);
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameJb3, ReturnsZeroForAFileThatIsNoJb3DocumentAndChangesNothing) {
  WriteFile(folder.Path("in.jb3"), "<html/>");
  views.Then(Choose("in.jb3"));
  EXPECT_EQ(exports.importJb3(&parent, &document, 0), 0);
  EXPECT_EQ(document.GetLibCmp()->GetJobArSize(), 0);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameJb3, ReturnsOneForAFileThatIsNotThere) {
  views.Then(Choose("missing.jb3"));
  EXPECT_EQ(exports.importJb3(&parent, &document, 0), 1);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameJb3, ChangesNothingWhenTheUserCancels) {
  EXPECT_EQ(exports.importJb3(&parent, &document, 0), 0);
  FillJobs();
  EXPECT_EQ(exports.exportJb3(&parent, &document, &name, &version), 0);
  EXPECT_EQ(document.GetLibCmp()->GetJobArSize(), 1);
}

TEST_F(FrameJb3, HasNothingToExportWhenEveryLibraryIsEmpty) {
  EXPECT_EQ(exports.exportJb3(&parent, &document, &name, &version), 0);
  EXPECT_EQ(views.messages, std::vector{kNoData});
  EXPECT_TRUE(views.dialogs.empty());
}

TEST_F(FrameJb3, ExportsAnyOneOfItsLibraries) {
  const auto exportsNow = [this](const char* what) {
    EXPECT_EQ(Export("out.jb3"), 1) << what;
    EXPECT_TRUE(views.messages.empty()) << what;
  };
  document.GetLibCmp()->AddOri(true);
  exportsNow("a control record");
  HostDocument another;
  another.GetLibGps()->AddGrp(true);
  views.Then(Choose("out.jb3"));
  EXPECT_EQ(exports.exportJb3(&parent, &another, &name, &version), 1);
  HostDocument third;
  third.GetLibPnt()->AddGrp(true);
  views.Then(Choose("out.jb3"));
  EXPECT_EQ(exports.exportJb3(&parent, &third, &name, &version), 1);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameJb3, WritesNameAndVersionOfTheApplication) {
  FillJobs();
  EXPECT_EQ(Export("out.jb3"), 1);
  EXPECT_NE(ReadFile(folder.Path("out.jb3")).find("<Application name=\"Field\" version=\"7.1\" "),
            std::string::npos);
}

TEST_F(FrameJb3, TakesAMissingNameForAnEmptyOne) {
  FillJobs();
  views.Then(Choose("out.jb3"));
  EXPECT_EQ(exports.exportJb3(&parent, &document, nullptr, nullptr), 1);
  EXPECT_NE(ReadFile(folder.Path("out.jb3")).find("<Application name=\"empty\" version=\"\" "),
            std::string::npos);
}

TEST_F(FrameJb3, ReturnsOneWhenTheFileCannotBeCreatedAndSaysNothing) {
  FillJobs();
  EXPECT_EQ(Export("/no/such/folder/out.jb3"), 1);
  EXPECT_TRUE(views.messages.empty());
}

}  // namespace
