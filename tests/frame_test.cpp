// The exchanges as a host calls them: what they ask, what they say, what they return.
#include <filesystem>
#include <string>

#include "tests/support/exchange_frame.h"

using namespace exchange_test;
using Names = std::vector<std::string>;

namespace {

class Frame : public FrameTest {
 protected:
  const ShownMessage kNoData = {"Warning", "There are no data to export.", 48};
};

// ---- The file dialog ----

TEST_F(Frame, AsksForAnImage) {
  tdk::WString path;
  exports.importImage(&parent, path, 0);
  ASSERT_EQ(views.DialogNames(), Names{"file"});
  EXPECT_EQ(views.dialogs[0].title, "Image import");
  EXPECT_EQ(views.dialogs[0].state,
            FileDialogState(folder.Path(), "bmp;tif;tiff;png;jpg;jpeg;jfif", true));
}

TEST_F(Frame, AsksForAJb2FileToImport) {
  exports.importJb2(&parent, &document, 0);
  ASSERT_EQ(views.DialogNames(), Names{"file"});
  EXPECT_EQ(views.dialogs[0].title, "JB2 file import");
  EXPECT_EQ(views.dialogs[0].state, FileDialogState(folder.Path(), "jb2", true));
}

TEST_F(Frame, AsksForAJb2FileToExport) {
  FillJobs();
  exports.exportJb2(&parent, &document, 0);
  ASSERT_EQ(views.DialogNames(), Names{"file"});
  EXPECT_EQ(views.dialogs[0].title, "JB2 file export");
  EXPECT_EQ(views.dialogs[0].state, FileDialogState(folder.Path(), "jb2", false));
}

TEST_F(Frame, AsksForALandXmlFileAfterItsPages) {
  exports.exportLandXml(&parent, &document, 0);
  ASSERT_EQ(views.DialogNames(), (Names{"landxml-survey", "file"}));
  EXPECT_EQ(views.dialogs[1].title, "LandXML file export");
  EXPECT_EQ(views.dialogs[1].state, FileDialogState(folder.Path(), "xml", false));
}

TEST_F(Frame, AsksInTheFolderOfTheJobThatIsOpenNow) {
  CJobsFolder::SetJobFolder("/another/job/");
  exports.importJb2(&parent, &document, 0);
  ASSERT_EQ(views.dialogs.size(), 1u);
  EXPECT_EQ(views.dialogs[0].state["folder"], "/another/job\\");
}

TEST_F(Frame, TakesTheNumberAfterTheDocumentForNothing) {
  for (const int unused : {0, 1, -1, 1'000'000}) exports.importJb2(&parent, &document, unused);
  ASSERT_EQ(views.dialogs.size(), 4u);
  for (const ShownDialog& dialog : views.dialogs) EXPECT_EQ(dialog.state, views.dialogs[0].state);
}

// ---- Images ----

TEST_F(Frame, HandsThePathOfTheChosenImageBackWithoutReadingIt) {
  tdk::WString path = "before";
  views.Then(Choose("/no/such/image.png"));
  EXPECT_EQ(exports.importImage(&parent, path, 0), 1);
  EXPECT_EQ(path, "/no/such/image.png");
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, LeavesThePathOfAnImageAloneWhenTheUserCancels) {
  tdk::WString path = "before";
  EXPECT_EQ(exports.importImage(&parent, path, 0), 0);
  EXPECT_EQ(path, "before");
}

// ---- JB2 import ----

TEST_F(Frame, ImportsAJb2File) {
  views.Then(Choose(KALVIO_SAMPLES "/wall.jb2"));
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 1);
  EXPECT_EQ(ObservedPoints(*document.GetLibCmp()), 40);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, ImportsAJb2FileThatIsNamedWithinTheJobFolder) {
  WriteFile(folder.Path("in.jb2"), JobNamed("J"));
  views.Then(Choose("in.jb2"));
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 1);
  EXPECT_EQ(document.GetLibCmp()->GetJobArSize(), 1);
}

TEST_F(Frame, TellsTheHostOfOneBatchOfChangesPerImport) {
  BatchCounter batches;
  document.GetLibCmp()->GetCmpContext()->SetListener(&batches);
  views.Then(Choose(KALVIO_SAMPLES "/wall.jb2"));
  exports.importJb2(&parent, &document, 0);
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(Frame, ReturnsOneForAJb2FileWithoutAnyRecord) {
  WriteFile(folder.Path("in.jb2"), "nothing that is a record\n");
  views.Then(Choose("in.jb2"));
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 1);
  EXPECT_EQ(document.GetLibCmp()->GetJobArSize(), 0);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, ReturnsZeroForAJb2FileThatIsNotThereAndSaysNothing) {
  views.Then(Choose("missing.jb2"));
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, ChangesNothingWhenTheUserCancelsAJb2Import) {
  BatchCounter batches;
  document.GetLibCmp()->GetCmpContext()->SetListener(&batches);
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_EQ(document.GetLibCmp()->GetJobArSize(), 0);
  EXPECT_EQ(batches.begun, 0);
}

TEST_F(Frame, TakesAnyCodeButOneForACancel) {
  WriteFile(folder.Path("in.jb2"), JobNamed("J"));
  for (const int code : {0, 2, 3, -1, 101}) {
    views.Then([code](Dialog& dialog) {
      dialog.Set("path", "in.jb2");
      return code;
    });
    EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0) << code;
  }
  EXPECT_EQ(document.GetLibCmp()->GetJobArSize(), 0);
}

// ---- JB2 export ----

TEST_F(Frame, SaysThatThereIsNothingToExportToJb2) {
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_EQ(views.messages, std::vector{kNoData});
  EXPECT_TRUE(views.dialogs.empty());
}

TEST_F(Frame, CountsJobsOnlyWhenItLooksForSomethingToExportToJb2) {
  document.GetLibCmp()->AddOri(true);
  document.GetLibGps()->AddGrp(true);
  document.GetLibPnt()->AddGrp(true);
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_EQ(views.messages, std::vector{kNoData});
}

TEST_F(Frame, ExportsAJobWithoutStationsToJb2) {
  document.GetLibCmp()->AddJob(true)->SetNome("J");
  views.Then(Choose("out.jb2"));
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 1);
  EXPECT_EQ(ReadFile(folder.Path("out.jb2")), Line('L', {"J", "", "", " ", ""}));
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, WritesNothingWhenTheUserCancelsAJb2Export) {
  FillJobs();
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, ReturnsOneForAJb2FileThatCannotBeCreatedAndSaysNothing) {
  FillJobs();
  views.Then(Choose(folder.Path("no-such-folder/out.jb2")));
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 1);
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_TRUE(views.messages.empty());
}

// ---- LandXML export ----

TEST_F(Frame, ExportsTheCheckedItemsToLandXml) {
  FillJobs();
  document.GetLibPnt()->AddGrp(true)->SetLabels("not checked", "", "", "");
  views.Then(SetAndPress("jobs", {0}, ">>"));
  views.Then(Press("Cancel"));
  views.Then(Choose("out.xml"));
  EXPECT_EQ(exports.exportLandXml(&parent, &document, 0), 1);
  const std::string text = ReadFile(folder.Path("out.xml"));
  EXPECT_NE(text.find("\t<Survey desc=\"J\">\n"), std::string::npos);
  EXPECT_EQ(text.find("CgPoints"), std::string::npos);
  EXPECT_NE(text.find("\t<Project name=\"" + folder.Path() + "\\out.xml\"/>\n"), std::string::npos)
      << text;
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, ExportsLandXmlEvenWhenThereIsNothingToExport) {
  views.Then(Press("Cancel"));
  views.Then(Choose("out.xml"));
  EXPECT_EQ(exports.exportLandXml(&parent, &document, 0), 1);
  EXPECT_TRUE(std::filesystem::exists(folder.Path("out.xml")));
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Frame, ReturnsOneForALandXmlExportThatTheUserCancels) {
  EXPECT_EQ(exports.exportLandXml(&parent, &document, 0), 1);
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(Frame, ReturnsOneForALandXmlFileThatCannotBeCreatedAndSaysNothing) {
  views.Then(Press("Cancel"));
  views.Then(Choose(folder.Path("no-such-folder/out.xml")));
  EXPECT_EQ(exports.exportLandXml(&parent, &document, 0), 1);
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_TRUE(views.messages.empty());
}

// ---- Texts ----

TEST_F(Frame, SpeaksTheLanguageOfTheHost) {
  ASSERT_TRUE(SetLanguage("it"));
  exports.exportJb2(&parent, &document, 0);
  const ShownMessage italian = {"Attenzione", "Non ci sono dati da esportare.", 48};
  EXPECT_EQ(views.messages, std::vector{italian});
}

TEST_F(Frame, ShowsTitlesAndExtensionsInTheLanguageOfTheHost) {
  FillJobs();
  ASSERT_TRUE(SetLanguage("it"));
  tdk::WString path;
  exports.importImage(&parent, path, 0);
  exports.importJb2(&parent, &document, 0);
  exports.exportJb2(&parent, &document, 0);
  exports.exportLandXml(&parent, &document, 0);
  ASSERT_EQ(views.dialogs.size(), 5u);
  EXPECT_EQ(views.dialogs[0].title, Xlate("Image import").ToUtf8());
  EXPECT_EQ(views.dialogs[0].state["extensions"], Xlate("bmp;tif;tiff;png;jpg;jpeg;jfif").ToUtf8());
  EXPECT_EQ(views.dialogs[1].title, Xlate("JB2 file import").ToUtf8());
  EXPECT_EQ(views.dialogs[2].title, Xlate("JB2 file export").ToUtf8());
  EXPECT_EQ(views.dialogs[3].title, Xlate("Survey").ToUtf8());
  EXPECT_EQ(views.dialogs[4].title, Xlate("LandXML file export").ToUtf8());
}

// ---- The export that does nothing ----

TEST_F(Frame, DoesNothingInItsDummy) {
  exports.dummy();
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_TRUE(views.dialogs.empty());
  EXPECT_TRUE(views.messages.empty());
}

}  // namespace
