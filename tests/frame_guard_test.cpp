// What the exports do when something is missing or breaks off: no null pointer and no exception
// gets past them.
#include <functional>
#include <stdexcept>
#include <string>

#include "tests/support/exchange_frame.h"

using namespace exchange_test;

namespace {

/// A document that has no libraries.
class EmptyHandedDocument : public ExchangeContext {
 public:
  CTcadEng* GetCadEngine() override { return nullptr; }
  CLibCmp* GetLibCmp() override { return nullptr; }
  CLibGps* GetLibGps() override { return nullptr; }
  CLibPnt* GetLibPnt() override { return nullptr; }
  CCts* GetCts() override { return nullptr; }
  CLibProfile* GetLibProfile() override { return nullptr; }
  gis::CLibGis* GetLibGis() override { return nullptr; }
  CLibDtm* GetLibDtm() override { return nullptr; }
  CLibRoad* GetLibRoad() override { return nullptr; }
};

class FrameGuard : public FrameTest {
 protected:
  /// Every export that takes a document, called with these two.
  std::vector<std::pair<const char*, int>> CallAll(CWnd* window, ExchangeContext* context) {
    const tdk::WString name = "name";
    return {{"FImportJB2File", exports.importJb2(window, context, 0)},
            {"FImportJB3File", exports.importJb3(window, context, 0)},
            {"FImportTXTFile", exports.importTxt(window, context, 0)},
            {"FImportCSVFile", exports.importCsv(window, context, 0)},
            {"FImportDXFDWGFile", exports.importDrawing(window, context, 0)},
            {"FExportJB2File", exports.exportJb2(window, context, 0)},
            {"FExportJB3File", exports.exportJb3(window, context, &name, &name)},
            {"FExportTXTFile", exports.exportTxt(window, context, 0)},
            {"FExportCSVFile", exports.exportCsv(window, context, 0)},
            {"FExportDXFDWGFile", exports.exportDrawing(window, context, 0)},
            {"FExportDATFile", exports.exportDat(window, context, 0)},
            {"FExportLandXMLFile", exports.exportLandXml(window, context, 0)}};
  }
};

// ---- Null pointers ----

TEST_F(FrameGuard, AnswersANullDocumentWithZeroAndSaysNothing) {
  for (const auto& [name, result] : CallAll(&parent, nullptr)) EXPECT_EQ(result, 0) << name;
  EXPECT_EQ(exports.exportShape(&parent, nullptr), 0);
  EXPECT_FALSE(exports.importShape(&parent, nullptr, nullptr, false));
  EXPECT_TRUE(views.dialogs.empty());
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameGuard, AnswersANullParentWithZero) {
  FillJobs();
  tdk::WString path = "before";
  EXPECT_EQ(exports.importImage(nullptr, path, 0), 0);
  EXPECT_EQ(path, "before");
  for (const auto& [name, result] : CallAll(nullptr, &document)) EXPECT_EQ(result, 0) << name;
  EXPECT_EQ(exports.exportShape(nullptr, document.GetLibGis()), 0);
  EXPECT_FALSE(exports.importShape(nullptr, document.GetLibGis(), nullptr, false));
}

TEST_F(FrameGuard, AnswersNothingAtAllWithZero) {
  for (const auto& [name, result] : CallAll(nullptr, nullptr)) EXPECT_EQ(result, 0) << name;
}

TEST_F(FrameGuard, TakesADocumentWithoutLibrariesForNoExchange) {
  EmptyHandedDocument nothing;
  EXPECT_EQ(exports.importJb2(&parent, &nothing, 0), 0);
  EXPECT_EQ(exports.exportJb2(&parent, &nothing, 0), 0);
  EXPECT_EQ(exports.exportLandXml(&parent, &nothing, 0), 0);
  EXPECT_TRUE(views.dialogs.empty());
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameGuard, CancelsItsDialogsWhenTheParentLeadsToNoViews) {
  FillJobs();
  CWnd nobody(nullptr);
  tdk::WString path = "before";
  EXPECT_EQ(exports.importImage(&nobody, path, 0), 0);
  EXPECT_EQ(path, "before");
  EXPECT_EQ(exports.importJb2(&nobody, &document, 0), 0);
  EXPECT_EQ(exports.exportJb2(&nobody, &document, 0), 0);
  EXPECT_EQ(exports.exportLandXml(&nobody, &document, 0), 1);
  EXPECT_TRUE(folder.IsEmpty());
}

// ---- Exceptions ----

ScriptedViews::Answer ThrowError() {
  return [](Dialog&) -> int { throw std::runtime_error("the window is gone"); };
}
ScriptedViews::Answer ThrowNumber() {
  return [](Dialog&) -> int { throw 42; };
}

TEST_F(FrameGuard, LetsNoExceptionOutOfTheFileDialog) {
  FillJobs();
  tdk::WString path = "before";
  for (int round = 0; round < 3; ++round) views.Then(ThrowError());
  EXPECT_EQ(exports.importImage(&parent, path, 0), 0);
  EXPECT_EQ(path, "before");
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_FALSE(views.HasAnswersLeft());
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(FrameGuard, LetsNothingElseThatIsThrownOutOfTheFileDialog) {
  FillJobs();
  views.Then(ThrowNumber());
  views.Then(ThrowNumber());
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_FALSE(views.HasAnswersLeft());
}

TEST_F(FrameGuard, LetsNoExceptionOutOfAPageOfTheLandXmlExport) {
  views.Then(ThrowError());
  EXPECT_EQ(exports.exportLandXml(&parent, &document, 0), 0);
  views.Then(Press("Cancel"));
  views.Then(ThrowNumber());
  EXPECT_EQ(exports.exportLandXml(&parent, &document, 0), 0);
  EXPECT_FALSE(views.HasAnswersLeft());
}

TEST_F(FrameGuard, NotesWhyAnExchangeBrokeOffAndShowsNoMessage) {
  views.Then(ThrowError());
  exports.importJb2(&parent, &document, 0);
  ASSERT_EQ(views.notes.size(), 1u);
  EXPECT_EQ(views.notes[0].text, "The exchange was broken off: the window is gone");
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameGuard, LetsNoExceptionOutOfAMessage) {
  views.onMessage = [] { throw std::runtime_error("no message either"); };
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_EQ(views.messages.size(), 1u);
}

TEST_F(FrameGuard, LetsNothingElseThatIsThrownOutOfAMessage) {
  views.onMessage = [] { throw 42; };
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_EQ(views.messages.size(), 1u);
}

TEST_F(FrameGuard, LetsNoExceptionOutWhenTheHostTakesNoNoteOfAnotherOne) {
  views.onNote = [] { throw std::runtime_error("no note either"); };
  views.Then(ThrowError());
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_EQ(views.notes.size(), 1u);
}

TEST_F(FrameGuard, BreaksOffQuietlyWhenTheParentLeadsToNoViews) {
  ScriptedPolicy policy([](AddedKind, int) -> bool { throw std::runtime_error("locked"); });
  document.GetLibCmp()->SetAddPolicy(&policy);
  WriteFile(folder.Path("in.jb2"), JobNamed("J"));
  // The views go away while the file dialog is open.
  CWnd vanishing(&views);
  views.Then([&](Dialog& dialog) {
    vanishing = CWnd(nullptr);
    return Choose("in.jb2")(dialog);
  });
  EXPECT_EQ(exports.importJb2(&vanishing, &document, 0), 0);
  EXPECT_EQ(policy.asked.size(), 1u);
}

TEST_F(FrameGuard, EndsTheBatchOfChangesWhenTheLibraryBreaksOff) {
  BatchCounter batches;
  document.GetLibCmp()->GetCmpContext()->SetListener(&batches);
  ScriptedPolicy policy([](AddedKind, int) -> bool { throw std::runtime_error("locked"); });
  document.GetLibCmp()->SetAddPolicy(&policy);
  views.Then(Choose(KALVIO_SAMPLES "/wall.jb2"));
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(FrameGuard, RunsTheNextExchangeAfterOneThatBrokeOff) {
  views.Then(ThrowError());
  views.Then(Choose(KALVIO_SAMPLES "/wall.jb2"));
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 1);
}

}  // namespace
