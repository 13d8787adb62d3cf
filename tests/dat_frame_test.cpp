// The export of a DAT file as a host calls it.
#include <string>

#include "host/store/job_store.h"
#include "tests/support/exchange_frame.h"

using namespace exchange_test;
using Names = std::vector<std::string>;

namespace {

class DatFrame : public FrameTest {
 protected:
  DatFrame() { LoadJob(KALVIO_TEST_DATA "/cadastral/libretto.json", document); }
  int Export() { return exports.exportDat(&parent, &document, 0); }
  // The name that is offered for a year and a protocol number.
  std::string InitialName(const char* year, const char* protocol) {
    document.GetCts()->SetAnno(year);
    document.GetCts()->SetProt(protocol);
    EXPECT_EQ(Export(), 0);
    return views.dialogs.back().state["initialName"];
  }
};

TEST_F(DatFrame, AsksForAFileInTheJobsFolder) {
  EXPECT_EQ(Export(), 0);
  ASSERT_EQ(views.DialogNames(), Names{"file"});
  DialogState state = FileDialogState(folder.Path(), "dat", false);
  state["initialName"] = "2512";
  EXPECT_EQ(views.dialogs[0].state, state);
}

TEST_F(DatFrame, OffersTheYearWithoutItsCenturyAndTheProtocolNumber) {
  EXPECT_EQ(InitialName("2012", "345"), "12345");
  EXPECT_EQ(InitialName("20123", "1"), "1231");
  EXPECT_EQ(InitialName("201", "1"), "11");
}

TEST_F(DatFrame, AYearOfTwoCharactersOrFewerIsUsedWhole) {
  EXPECT_EQ(InitialName("12", "345"), "12345");
  EXPECT_EQ(InitialName("9", "345"), "9345");
  EXPECT_EQ(InitialName("", "345"), "345");
  EXPECT_EQ(InitialName("\xC3\xA0\xC3\xA8", "1"),
            "\xC3\xA0\xC3\xA8"
            "1");
}

TEST_F(DatFrame, CountsCharactersAndNotBytes) {
  EXPECT_EQ(InitialName("\xC3\xA0\xC3\xA8xy", "1"), "xy1");
}

TEST_F(DatFrame, AnEmptyProtocolNumberLeavesTheYearAlone) {
  EXPECT_EQ(InitialName("2012", ""), "12");
  EXPECT_EQ(InitialName("", ""), "");
}

TEST_F(DatFrame, TheTitleIsTheSameInEveryLanguage) {
  for (const char* language : {"en", "it"}) {
    SetLanguage(language);
    Export();
    EXPECT_EQ(views.dialogs.back().title, "Esporta file Pregeo") << language;
  }
}

TEST_F(DatFrame, CancellingWritesNothingAndReturnsZero) {
  EXPECT_EQ(Export(), 0);
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(DatFrame, WritesTheFileAndReturnsOne) {
  views.Then(Choose("a.dat"));
  EXPECT_EQ(Export(), 1);
  EXPECT_EQ(ReadFile(folder.Path("a.dat")), ReadFile(KALVIO_TEST_DATA "/cadastral/libretto.dat"));
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(DatFrame, TheDialogGivesTheNameItsExtension) {
  views.Then(Press("OK"));
  EXPECT_EQ(Export(), 1);
  EXPECT_FALSE(ReadFile(folder.Path("2512.dat")).empty());
}

TEST_F(DatFrame, ReturnsOneAlsoWhenTheWriterFails) {
  views.Then(Choose("none/a.dat"));
  EXPECT_EQ(Export(), 1);
  EXPECT_EQ(views.messages.size(), 1U);
  document.GetCts()->Survey().heading.date.clear();
  views.Then(Choose("a.dat"));
  EXPECT_EQ(Export(), 1);
  EXPECT_EQ(views.messages.size(), 2U);
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(DatFrame, AsksBeforeItLooksAtTheData) {
  HostDocument empty;
  EXPECT_EQ(exports.exportDat(&parent, &empty, 0), 0);
  EXPECT_EQ(views.DialogNames(), Names{"file"});
  EXPECT_TRUE(views.messages.empty());
}

}  // namespace
