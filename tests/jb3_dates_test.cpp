// The date of a total-station job: whatever the user typed, in the file it is DD-MM-YYYY or empty.
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3Dates : public Jb3Test {
 protected:
  std::string Date(const char* text) {
    if (Jobs().GetJobArSize() == 0) Jobs().AddJob(true);
    Jobs().GetJobAt(0)->SetData(text);
    return WrittenValue("Job", "date");
  }
};

TEST_F(Jb3Dates, ShorterThanSixCharactersIsEmpty) {
  EXPECT_EQ(Date("1"), "");
  EXPECT_EQ(Date("5/3/6"), "");
}

TEST_F(Jb3Dates, OfSixCharactersIsTheShortest) { EXPECT_EQ(Date("1/1/16"), "01-01-2016"); }

TEST_F(Jb3Dates, OfTenCharactersIsTheLongest) {
  EXPECT_EQ(Date("25/12/2016"), "25-12-2016");
  EXPECT_EQ(Date("25/12/02016"), "");
}

TEST_F(Jb3Dates, BackslashDividesBeforeASlash) {
  EXPECT_EQ(Date("5/9\\3\\16"), "05-03-2016");
  EXPECT_EQ(Date("5/3\\2016"), "") << "only one backslash, so there is no third part";
}

TEST_F(Jb3Dates, SlashDividesBeforeADash) {
  EXPECT_EQ(Date("5-9/3/16"), "05-03-2016");
  EXPECT_EQ(Date("5-3-20/16"), "");
}

TEST_F(Jb3Dates, DashDivides) { EXPECT_EQ(Date("5-3-16"), "05-03-2016"); }

TEST_F(Jb3Dates, PointAndBlankDivideNothing) {
  EXPECT_EQ(Date("5.3.16"), "");
  EXPECT_EQ(Date("5 3 2016 "), "");
}

TEST_F(Jb3Dates, EmptyPartMakesItEmpty) {
  EXPECT_EQ(Date("//2016"), "");
  EXPECT_EQ(Date("--2016"), "");
  EXPECT_EQ(Date("\\3\\2016"), "");
  EXPECT_EQ(Date("12/2016/"), "");
}

TEST_F(Jb3Dates, DayAndMonthAreNotSwapped) {
  EXPECT_EQ(Date("12/31/2016"), "12-31-2016");
  EXPECT_EQ(Date("2016/3/5"), "2016-03-2005");
}

TEST_F(Jb3Dates, YearOfTwoDigitsIsOfOneOfTwoCenturies) {
  EXPECT_EQ(Date("1/1/00"), "01-01-2000");
  EXPECT_EQ(Date("1/1/69"), "01-01-2069");
  EXPECT_EQ(Date("1/1/70"), "01-01-1970");
  EXPECT_EQ(Date("1/1/99"), "01-01-1999");
}

TEST_F(Jb3Dates, YearOfThreeDigitsIsKept) { EXPECT_EQ(Date("1/1/100"), "01-01-0100"); }

TEST_F(Jb3Dates, YearWithLeadingZerosCountsByItsValue) {
  EXPECT_EQ(Date("1/1/0016"), "01-01-2016");
}

TEST_F(Jb3Dates, YearBelowZeroIsBelowHundredToo) { EXPECT_EQ(Date("01/01/-1"), "01-01-1999"); }

TEST_F(Jb3Dates, FurtherDividersBelongToTheYear) { EXPECT_EQ(Date("5/3/2016/9"), "05-03-2016"); }

TEST_F(Jb3Dates, PartsWithoutDigitsAreZero) {
  EXPECT_EQ(Date("ab/cd/ef"), "00-00-2000");
  EXPECT_EQ(Date("5/Mar/16"), "05-00-2016");
}

TEST_F(Jb3Dates, PartsAreHeldWithinThoseOfAShortNumber) {
  EXPECT_EQ(Date("1/1/999999"), "01-01-32000");
  EXPECT_EQ(Date("99999/1/16"), "32000-01-2016");
}

TEST_F(Jb3Dates, EightCharactersWithoutADividerAreDivided) {
  EXPECT_EQ(Date("05032016"), "05-03-2016");
}

TEST_F(Jb3Dates, SevenOrNineCharactersWithoutADividerAreEmpty) {
  EXPECT_EQ(Date("5032016"), "");
  EXPECT_EQ(Date("050320160"), "");
}

TEST_F(Jb3Dates, LengthIsThatOfCharactersAndNotOfBytes) {
  EXPECT_EQ(Date("ù5122016"),
            "\xF9"
            "5-12-2016");
  EXPECT_EQ(Date("5/3/201€€€"), "05-03-0201") << "ten characters";
  EXPECT_EQ(Date("5/3/€"), "") << "five characters";
}

TEST_F(Jb3Dates, NormalisedDateStaysAsItIs) { EXPECT_EQ(Date("05-03-2016"), "05-03-2016"); }

TEST_F(Jb3Dates, DateThatCannotBeMadeOutIsReadAsEmpty) {
  Jobs().AddJob(true)->SetData("05.03.2016");
  Jobs().AddSta(0, true);
  Written();
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_TRUE(again.GetLibCmp()->GetJobAt(0)->GetData().IsEmpty());
}

}  // namespace
