// How the JB2 reader takes a file apart: lines, pieces of lines, fields, texts and numbers.
#include <string>

#include "tests/support/exchange_jb2.h"

using namespace exchange_test;
using namespace std::string_literals;

namespace {

class Jb2Lines : public Jb2Test {
 protected:
  /// A polar record, padded in its code, that is `size` characters long without a line end.
  static std::string PolarOfLength(std::size_t size) {
    const std::string head = "P|\x1d"s + "LONG\x1d";
    const std::string tail = "\x1d"s + "1.500\x1d" + "10.0000\x1d" + "99.0000\x1d" + "24.333\x1d";
    return head + std::string(size - head.size() - tail.size(), 'c') + tail;
  }
};

// ---- Record letters ----

class Jb2NoRecord : public Jb2Test, public testing::WithParamInterface<NamedText> {};

TEST_P(Jb2NoRecord, IsSkipped) {
  EXPECT_TRUE(Read(PointNamed("A") + GetParam().text + PointNamed("B")));
  EXPECT_EQ(Outline(), "([A B])");
}

INSTANTIATE_TEST_SUITE_P(
    Line, Jb2NoRecord,
    testing::Values(NamedText{"Empty", "\n"}, NamedText{"EmptyWithCarriageReturn", "\r\n"},
                    NamedText{"EmptyThreeTimes", "\n\n\n"}, NamedText{"OfABlank", " \n"},
                    NamedText{"OfAComment", "# comment\n"},
                    NamedText{"OfAnotherLetter", "X|\x1d\x1d\n"}, NamedText{"OfTheBar", "|\n"},
                    NamedText{"OfTheSeparator", "\x1d\n"}, NamedText{"OfADigit", "0\n"}),
    NameOf<NamedText>);
INSTANTIATE_TEST_SUITE_P(LowerCase, Jb2NoRecord,
                         testing::Values(NamedText{"Job", "l|\x1dj\x1d\n"},
                                         NamedText{"Station", "s|\x1ds\x1d\n"},
                                         NamedText{"PolarPoint", "p|\x1dp\x1d\n"},
                                         NamedText{"ReducedPoint", "r|\x1dr\x1d\n"}),
                         NameOf<NamedText>);
INSTANTIATE_TEST_SUITE_P(LetterInAnotherPlace, Jb2NoRecord,
                         testing::Values(NamedText{"AfterABlank", " L|\x1dj\x1d\n"},
                                         NamedText{"AfterATab", "\tS|\x1ds\x1d\n"},
                                         NamedText{"AfterAnAccent", "\xc8P|\x1dp\x1d\n"},
                                         NamedText{"AfterAByteOrderMark",
                                                   "\xef\xbb\xbfL|\x1dj\x1d\n"}),
                         NameOf<NamedText>);

// ---- The prefix ----

TEST_F(Jb2Lines, SkipThreeCharactersWithoutALookAtThem) {
  Read("Lxyname\x1doper\x1d\n"s + "S\x1d\x1dst\x1did\x1d\n" + "P|!pt\x1d" + "C\x1d\n");
  EXPECT_EQ(Outline(), "name(st[pt])");
  EXPECT_EQ(Job(0).GetOper(), "oper");
  EXPECT_EQ(Station(0, 0).GetIden(), "id");
  EXPECT_EQ(Point(0, 0, 0).GetCode(), "C");
}

TEST_F(Jb2Lines, WithoutTheFirstSeparatorLoseACharacterOfTheirFirstField) {
  Read("L|name\x1doper\x1d\n"s);
  EXPECT_EQ(Job(0).GetNome(), "ame");
  EXPECT_EQ(Job(0).GetOper(), "oper");
}

TEST_F(Jb2Lines, ShorterThanFourCharactersAreRecordsOfEmptyFields) {
  EXPECT_TRUE(Read("L\nS|\nP|\x1d\nP\nR|\x1d"s));
  EXPECT_EQ(Outline(), "([  ])");
  EXPECT_EQ(Station(0, 0).GetAltStr(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), kNoDistance);
  EXPECT_EQ(Point(0, 0, 1).GetDato1(), 0);
  EXPECT_EQ(Point(0, 0, 2).GetDato0(), 0);
  EXPECT_EQ(Point(0, 0, 2).GetDato1(), 100);
}

TEST_F(Jb2Lines, DoNotTakeFieldsFromTheLineBefore) {
  Read(PointNamed("A") + "P\n" + PointNamed("B") + "P|\n" + PointNamed("C"));
  EXPECT_EQ(Outline(), "([A  B  C])");
  EXPECT_EQ(Point(0, 0, 1).GetCode(), "");
  EXPECT_EQ(Point(0, 0, 3).GetAltPri(), 0);
}

// ---- Fields ----

TEST_F(Jb2Lines, WithoutASeparatorAfterAFieldHaveItAndAllLaterOnesEmpty) {
  Read("P|\x1dname\x1d"s + "code\n" + Line('P', {"B", "D", "1", "2", "3", "4"}));
  EXPECT_EQ(Point(0, 0, 0).GetNome(), "name");
  EXPECT_EQ(Point(0, 0, 0).GetCode(), "");
  EXPECT_EQ(Point(0, 0, 0).GetAltPri(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato2(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), kNoDistance);
  EXPECT_EQ(Point(0, 0, 1).GetDato0(), 4);
}

TEST_F(Jb2Lines, WithAnOpenLastFieldLoseThatFieldOnly) {
  Read("P|\x1dname\x1d"s + "C\x1d" + "1\x1d" + "2\x1d" + "3\x1d" + "24.333\n");
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 3);
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), kNoDistance);
}

TEST_F(Jb2Lines, WithoutAnySeparatorHaveNoFields) {
  Read("L|abcdef\nS|abcdef\nP|abcdef\n");
  EXPECT_EQ(Outline(), "([])");
}

TEST_F(Jb2Lines, AreTrimmedFieldByField) {
  Read(Line('L', {"  two words ", "\tTab\t", "\v\f\rall\r", "x", "  "}) +
       Line('S', {" S ", " id ", "  1.5  ", "\t20.5", "1000 "}));
  EXPECT_EQ(Job(0).GetNome(), "two words");
  EXPECT_EQ(Job(0).GetOper(), "Tab");
  EXPECT_EQ(Job(0).GetStrum(), "all");
  EXPECT_EQ(Job(0).GetData(), "");
  EXPECT_EQ(Station(0, 0).GetNome(), "S");
  EXPECT_EQ(Station(0, 0).GetAltStr(), 1.5);
  EXPECT_EQ(Station(0, 0).GetTemper(), 20.5);
  EXPECT_EQ(Station(0, 0).GetPressi(), 1000);
}

TEST_F(Jb2Lines, MayHaveEmptyFieldsBetweenFullOnes) {
  Read(Line('P', {"", "C", "", "10", "", "5"}));
  EXPECT_EQ(Point(0, 0, 0).GetNome(), "");
  EXPECT_EQ(Point(0, 0, 0).GetCode(), "C");
  EXPECT_EQ(Point(0, 0, 0).GetAltPri(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato2(), 10);
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 5);
}

TEST_F(Jb2Lines, MayHaveMoreFieldsThanTheirRecord) {
  Read(Line('P', {"A", "C", "1", "2", "3", "4", "5", "6"}) +
       Line('L', {"J", "o", "i", "u", "d", "more", "more"}));
  EXPECT_EQ(Outline(), "([A])J()");
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 4);
  EXPECT_EQ(Job(1).GetData(), "d");
}

// ---- Line ends ----

TEST_F(Jb2Lines, MayEndWithCarriageReturnAndLineFeed) {
  Read("L|\x1dJ\x1do\x1di\x1d \x1d"s + "d\x1d\r\n" + "S|\x1dS\x1d\r\n" + "P\r\n" +
       "P|\x1dQ\x1d\r\n");
  EXPECT_EQ(Outline(), "J(S[ Q])");
  EXPECT_EQ(Job(0).GetData(), "d");
}

TEST_F(Jb2Lines, NeedNoLineEndAtTheEndOfTheFile) {
  std::string text = JobNamed("J") + PointNamed("A") + PointNamed("B");
  text.pop_back();
  Read(text);
  EXPECT_EQ(Outline(), "J([A B])");
  EXPECT_EQ(Point(0, 0, 1).GetDato0(), 10);
}

TEST_F(Jb2Lines, EndAtTheirFirstNul) {
  EXPECT_TRUE(Read("P|\x1d"s + "A\x1d" + "B\0C\x1d"s + "1.5\x1d\n" + PointNamed("D")));
  EXPECT_EQ(Outline(), "([A D])");
  EXPECT_EQ(Point(0, 0, 0).GetCode(), "");
  EXPECT_EQ(Point(0, 0, 0).GetAltPri(), 0);
}

TEST_F(Jb2Lines, ThatBeginWithNulAreNoRecords) {
  Read("\0P|\x1d"s + "A\x1d\n" + PointNamed("B"));
  EXPECT_EQ(Outline(), "([B])");
}

TEST_F(Jb2Lines, WithANulInThePrefixHaveEmptyFields) {
  Read("P\0\x1d"s + "A\x1d\n" + "P|\0"s + "B\x1d\n");
  EXPECT_EQ(Outline(), "([ ])");
}

// ---- Pieces of 254 characters ----

TEST_F(Jb2Lines, OfTwoHundredFiftyFourCharactersAreReadWhole) {
  Read(PolarOfLength(254) + '\n' + PointNamed("NEXT"));
  EXPECT_EQ(Outline(), "([LONG NEXT])");
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 24.333);
}

TEST_F(Jb2Lines, OfTwoHundredFiftyFourCharactersAreReadWholeBeforeCarriageReturnAndLineFeed) {
  Read(PolarOfLength(254) + "\r\n" + PointNamed("NEXT"));
  EXPECT_EQ(Outline(), "([LONG NEXT])");
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 24.333);
}

TEST_F(Jb2Lines, OfTwoHundredFiftyThreeCharactersAreReadWholeBeforeCarriageReturnAndLineFeed) {
  Read(PolarOfLength(253) + "\r\n" + PointNamed("NEXT"));
  EXPECT_EQ(Outline(), "([LONG NEXT])");
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 24.333);
}

TEST_F(Jb2Lines, OfTwoHundredFiftyFiveCharactersLoseTheEndOfTheirLastField) {
  Read(PolarOfLength(255) + '\n' + PointNamed("NEXT"));
  EXPECT_EQ(Outline(), "([LONG NEXT])");
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 99);
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), kNoDistance);
}

TEST_F(Jb2Lines, HaveTheirRemainderTakenForALineOfItsOwn) {
  Read(PolarOfLength(254) + "S|\x1d" + "REST\x1d" + "id\x1d\n" + PointNamed("NEXT"));
  EXPECT_EQ(Outline(), "([LONG]REST[NEXT])");
  EXPECT_EQ(Station(0, 1).GetIden(), "id");
}

TEST_F(Jb2Lines, HaveTheirRemainderSkippedWhenItBeginsWithNoRecordLetter) {
  Read(PolarOfLength(254) + "x|\x1d" + "REST\x1d\n" + PointNamed("NEXT"));
  EXPECT_EQ(Outline(), "([LONG NEXT])");
}

TEST_F(Jb2Lines, OfSeveralPiecesGiveARecordForEachThatBeginsWithALetter) {
  const std::string piece = PolarOfLength(254);
  Read(piece + piece + piece + '\n');
  EXPECT_EQ(Outline(), "([LONG LONG LONG])");
}

TEST_F(Jb2Lines, InACommentAreCountedInPiecesToo) {
  Read('#' + std::string(253, '-') + "P|\x1d" + "IN\x1d\n" + '#' + std::string(254, '-') +
       "P|\x1d" + "OUT\x1d\n");
  EXPECT_EQ(Outline(), "([IN])");
}

TEST_F(Jb2Lines, ThatAreLettersOnlyGiveARecordForEachPiece) {
  Read(std::string(3 * 254 + 1, 'P'));
  EXPECT_EQ(ObservedPoints(library), 4);
  EXPECT_EQ(Outline(), "([   ])");
}

TEST_F(Jb2Lines, MayBeAMillionCharactersLong) {
  EXPECT_TRUE(Read('#' + std::string(1'000'000, '#') + '\n' + PointNamed("A")));
  EXPECT_EQ(Outline(), "([A])");
}

// ---- The code page ----

TEST_F(Jb2Lines, AreReadInTheCodePage) {
  Read(Line('L', {"Niccol\xf2", "\x80 \x93x\x94", "\xe0\xe8\xec\xf9", "", "\xb0\xff"}));
  EXPECT_EQ(Job(0).GetNome(), "Niccolò");
  EXPECT_EQ(Job(0).GetOper(), "€ “x”");
  EXPECT_EQ(Job(0).GetStrum(), "àèìù");
  EXPECT_EQ(Job(0).GetData(), "°ÿ");
}

TEST_F(Jb2Lines, InUtf8AreReadByteByByte) {
  Read(Line('L', {"\xc3\xa8"}));
  EXPECT_EQ(Job(0).GetNome(), "Ã¨");
}

TEST_F(Jb2Lines, KeepTheBytesThatTheCodePageDoesNotAssign) {
  Read(Line('L', {"\x81\x8d\x8f\x90\x9d"}));
  EXPECT_EQ(Job(0).GetNome(), "\u0081\u008d\u008f\u0090\u009d");
}

TEST_F(Jb2Lines, KeepANoBreakSpaceAtTheEndOfAField) {
  Read(Line('L', {"\xa0x\xa0"}));
  EXPECT_EQ(Job(0).GetNome(), "\u00a0x\u00a0");
}

// ---- Numbers ----

struct NumberText {
  const char* name;
  const char* text;
  double value;
};
void PrintTo(const NumberText& with, std::ostream* out) { *out << with.name; }

class Jb2Number : public Jb2Test, public testing::WithParamInterface<NumberText> {};

TEST_P(Jb2Number, IsTheLongestBeginningThatIsOne) {
  Read(Line('S', {"S", "", GetParam().text, "7", "8"}));
  EXPECT_EQ(Station(0, 0).GetAltStr(), GetParam().value);
  EXPECT_EQ(Station(0, 0).GetTemper(), 7);
  EXPECT_EQ(Station(0, 0).GetPressi(), 8);
}

INSTANTIATE_TEST_SUITE_P(
    Written, Jb2Number,
    testing::Values(
        NumberText{"WithAPoint", "1.582", 1.582}, NumberText{"WithAComma", "1,582", 1.582},
        NumberText{"WithAPlusSign", "+2.5", 2.5}, NumberText{"WithAMinusSign", "-0.25", -0.25},
        NumberText{"WithoutADigitBeforeThePoint", ".5", 0.5},
        NumberText{"WithoutADigitAfterThePoint", "5.", 5}, NumberText{"WithAnExponent", "1e2", 100},
        NumberText{"WithAUnit", "15m", 15}, NumberText{"WithTwoPoints", "1.5.7", 1.5},
        NumberText{"WithABlank", "1 000", 1}, NumberText{"Empty", "", 0},
        NumberText{"AsAWord", "abc", 0}, NumberText{"AsNan", "nan", 0},
        NumberText{"AsInf", "inf", 0}, NumberText{"InHexadecimal", "0x10", 0},
        NumberText{"BeyondTheRange", "1e999", kNoDistance}),
    NameOf<NumberText>);

}  // namespace
