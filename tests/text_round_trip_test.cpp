// What text and CSV files keep: points written and read again with the same layout.
#include "tests/support/exchange_numbers.h"
#include "tests/support/random.h"
#include "tests/support/text_files.h"

using namespace exchange_test;
using tdk::WString;

namespace {

// What stays as it is in every layout: no blanks, no quotes, no separator.
constexpr std::string_view kPlainLetters = "abcXYZ0123456789_-+.'*/()#&<>|%";
constexpr char16_t kEverySeparator[] = {u' ', u',', u'\t', u';'};

class TextRoundTrip : public TextTest {
 protected:
  /// A description may be left out only where it is the last column.
  void FillKnown(Random& random) {
    const int points = random.Whole(1, 30);
    for (int i = 0; i < points; ++i) {
      const std::string name = random.Text(kPlainLetters, random.Whole<std::size_t>(1, 12));
      const std::string descr = random.Text(kPlainLetters, random.Whole<std::size_t>(0, 12));
      AddKnown(name.c_str(), random.Real(-1e6, 1e6), random.Real(-1e7, 1e7),
               random.Real(-100, 9000), descr.c_str());
    }
  }

  /// The last group holds what the first one does, to the decimals that are written.
  void ExpectKept() {
    const int last = Known().GetGrpArSize() - 1;
    ASSERT_EQ(Known().GetPtnArSize(last), Known().GetPtnArSize(0));
    for (int i = 0; i < Known().GetPtnArSize(0); ++i) {
      const CPunPnt& before = *Known().GetPtnAt(0, i);
      const CPunPnt& after = *Known().GetPtnAt(last, i);
      EXPECT_EQ(after.GetNome(), before.GetNome());
      EXPECT_EQ(after.GetSecScri(), before.GetSecScri());
      EXPECT_EQ(after.GetCoordX(), Rounded(before.GetCoordX(), 3));
      EXPECT_EQ(after.GetCoordY(), Rounded(before.GetCoordY(), 3));
      EXPECT_EQ(after.GetCoordZ(), Rounded(before.GetCoordZ(), 3));
    }
  }
  void WriteFirstGroup() {
    settings.jobIndex = settings.unitIndex = 0;
    if (settings.fixedLength) {
      text::WriteFixedLength(&parent, libraries, settings);
    } else {
      text::WriteDelimited(&parent, libraries, settings);
    }
  }
  void ReadItBack() {
    if (settings.fixedLength) {
      text::ReadFixedLength(&parent, libraries, settings);
    } else {
      text::ReadDelimited(&parent, libraries, settings);
    }
  }
  /// The one point that comes back of a name and a description.
  Lines Back(const char* name, const char* descr) {
    AddKnown(name, 1, 2, 3, descr);
    WriteFirstGroup();
    ReadItBack();
    return KnownPoints();
  }
};

TEST_F(TextRoundTrip, DelimitedKeepsRandomPointsToTheWrittenDecimals) {
  Random random;
  FillKnown(random);
  for (const char16_t separator : kEverySeparator) {
    settings.separator = separator;
    for (const bool quoteNames : {false, true}) {
      settings.quoteNames = quoteNames;
      settings.headerRows = random.Whole(0, 3);
      WriteFirstGroup();
      ReadItBack();
      ExpectKept();
      ASSERT_FALSE(HasFailure()) << "separator " << static_cast<int>(separator) << ", quotes "
                                 << quoteNames;
    }
  }
  EXPECT_TRUE(views.messages.empty() && views.notes.empty());
}

TEST_F(TextRoundTrip, FixedWidthsKeepRandomPointsToTheWrittenDecimals) {
  Random random;
  FillKnown(random);
  settings.fixedLength = true;
  settings.fieldLength = {1, 13, 13, 12, 1, 1};
  settings.headerRows = random.Whole(0, 3);
  WriteFirstGroup();
  // As wide as the writer made the columns.
  ReadItBack();
  ExpectKept();
}

TEST_F(TextRoundTrip, WritesTheSameBytesAgain) {
  Random random;
  FillKnown(random);
  WriteFirstGroup();
  const std::string first = ReadFile(settings.filePath.ToUtf8());
  ReadItBack();
  settings.unitIndex = 1;
  EXPECT_EQ(Delimited(), first);
}

TEST_F(TextRoundTrip, ControlPointsComeBackBehindThoseThatWereThere) {
  settings.kind = text::kControlPoints;
  Jobs().AddOri(true)->SetNomCoord("C1", "nail", 1.5, 2.5, 3.5);
  ReadDelimited(Delimited());
  ASSERT_EQ(Jobs().GetOriArSize(), 2);
  EXPECT_EQ(Jobs().GetOriAt(1)->GetNome(), WString("C1"));
  EXPECT_EQ(Jobs().GetOriAt(1)->GetSecScri(), WString("nail"));
  EXPECT_EQ(Jobs().GetOriAt(1)->GetCoordZ(), 3.5);
}

TEST_F(TextRoundTrip, TotalStationPointsKeepTheirCoordinatesFromTheSameStation) {
  settings.kind = text::kTotalStation;
  Jobs().AddJob(true);
  CSta& station = *Jobs().AddSta(0, true);
  station.SetCoord(100, 200, 50);
  station.SetAltStr(1.5);
  Jobs().SetCurrSta(&station);
  CPun& point = *Jobs().AddPun(0, 0, true);
  point.SetNomCoord("P", "wall", 110.25, 190.5, 52.125);
  point.SetAltPri(1.8);
  ReadDelimited(Delimited());
  ASSERT_EQ(Jobs().GetPunArSize(0, 0), 2);
  const CPun& back = *Jobs().GetPunAt(0, 0, 1);
  EXPECT_EQ(back.GetCode(), WString("wall"));
  EXPECT_EQ(back.GetCoordX(), 110.25);
  EXPECT_EQ(back.GetCoordY(), 190.5);
  EXPECT_EQ(back.GetCoordZ(), 52.125);
  EXPECT_EQ(back.GetAltPri(), 0) << "the reflector height has no column";
  EXPECT_NEAR(back.GetDiOr(), 13.9754, 1e-4);
}

// ---- What is lost ----

TEST_F(TextRoundTrip, LosesAccentsAndTheBlanksAround) {
  EXPECT_EQ(Back(" Perù ", "  café"), (Lines{"Peru|1|2|3|cafe"}));
}

TEST_F(TextRoundTrip, KeepsBlanksWithinQuotesThatAreTakenOff) {
  settings.quoteNames = true;
  EXPECT_EQ(Back(" A ", "b "), (Lines{" A |1|2|3|b "}));
}

TEST_F(TextRoundTrip, MovesColumnsUpBehindAnEmptyName) {
  EXPECT_EQ(Back("", "wall"), (Lines{"1.000|2|3|0|"}));
}

TEST_F(TextRoundTrip, KeepsAnEmptyNameThatIsQuoted) {
  settings.quoteNames = true;
  EXPECT_EQ(Back("", "wall"), (Lines{"|1|2|3|wall"}));
}

TEST_F(TextRoundTrip, KeepsAnEmptyNameOfFixedWidth) {
  settings.fixedLength = true;
  EXPECT_EQ(Back("", "wall"), (Lines{"|1|2|3|wall"}));
}

TEST_F(TextRoundTrip, LeavesItsQuotesToANameThatHoldsTheSeparator) {
  EXPECT_EQ(Back("A;B", "x"), (Lines{"\"A;B\"|1|2|3|x"}));
}

TEST_F(TextRoundTrip, SplitsANameThatHoldsTheSeparatorAndIsQuotedTwice) {
  settings.quoteNames = true;
  // The second quote closes the first one, so the separator divides.
  EXPECT_EQ(Back("A;B", "x"), (Lines{"|0|1|2|3.000"}));
}

TEST_F(TextRoundTrip, SplitsANameThatHoldsALineEnd) {
  EXPECT_EQ(Back("ABC\nDEF", "x"), (Lines{"ABC|0|0|0|", "DEF|1|2|3|x"}));
}

TEST_F(TextRoundTrip, MakesMorePointsOfALineThatUndefinedCoordinatesMakeTooLong) {
  AddKnown("P", UndefinedValue, UndefinedValue, UndefinedValue, "x");
  WriteFirstGroup();
  ReadItBack();
  EXPECT_EQ(Known().GetPtnArSize(1), 3) << "624 characters in pieces of 254";
}

}  // namespace
