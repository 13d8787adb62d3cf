// The JB3 reader: the nodes before the root, encodings, and files that are damaged anywhere.
#include "tests/support/exchange_jb2.h"
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

const std::string kStationJob = "<Job name=\"J\"><Station name=\"S\"/></Job>";

// One of everything, and small: it is read once for each of its bytes.
const std::string kSmall =
    kJb3Declaration +
    "<JB3>\n"
    "<Application name=\"a\" version=\"1\" />\n"
    "<Job name=\"&amp;J\"><Station name=\"S\"><PlaniCoords north=\"1\" east=\"2\" elevation=\"3\"/>"
    "<Pnts><Pnt name=\"1\"><RawObservation horiz_angle=\"1\" zenit_angle=\"2\"/></Pnt></Pnts>"
    "</Station></Job>\n"
    "<Job name=\"GPS\"><GpsBase name=\"B\" type=\"L1\"><GpsPnts><GpsPnt name=\"2\" time=\"7:5\">"
    "<GpsStat pdop=\"1\" qxx=\"1\"/><GpsSat no_gps=\"9\"/></GpsPnt></GpsPnts></GpsBase></Job>\n"
    "<!-- known --><KnownPoints><KnownPoint name=\"3\" type=\"generic\"/>"
    "<KnownPoint name=\"4\" type=\"ctrl\"/></KnownPoints>\n"
    "</JB3>\n";

class Jb3ReaderDamage : public Jb3Test {
 protected:
  static int CountOf(HostDocument& job) {
    CLibCmp& library = *job.GetLibCmp();
    return library.GetJobArSize() + library.GetStaArSize(0) + library.GetPunArSize(0, 0) +
           library.GetOriArSize() + job.GetLibGps()->GetGrpArSize() +
           job.GetLibGps()->GetPunArSize(0) + job.GetLibPnt()->GetGrpArSize() +
           job.GetLibPnt()->GetPtnArSize(0);
  }
  bool ReadInto(HostDocument& job, const std::string& bytes) {
    WriteFile(folder.Path("in.jb3"), bytes);
    return jb3::Jb3Reader(nullptr, job, WString(folder.Path("in.jb3"))).Read();
  }
};

// ---- Before and after the root ----

struct Opening {
  const char* name;
  std::string text;
  bool accepted;
};
void PrintTo(const Opening& opening, std::ostream* out) { *out << opening.name; }

class Jb3ReaderOpening : public Jb3ReaderDamage, public testing::WithParamInterface<Opening> {};

TEST_P(Jb3ReaderOpening, DecidesWhetherTheDocumentIsOne) {
  EXPECT_EQ(ReadBytes(GetParam().text + "<JB3>" + kStationJob + "</JB3>"), GetParam().accepted);
  EXPECT_EQ(Jobs().GetJobArSize(), GetParam().accepted ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Each, Jb3ReaderOpening,
    testing::Values(Opening{"BlankLines", kJb3Declaration + "\n \t\n", true},
                    Opening{"NothingBetween", "<?xml version=\"1.0\" ?>", true},
                    Opening{"CommentBeforeTheDeclaration", "<!-- a -->" + kJb3Declaration, false},
                    Opening{"TwoDeclarations", kJb3Declaration + kJb3Declaration, false},
                    Opening{"DocumentType", kJb3Declaration + "<!DOCTYPE JB3>", false},
                    Opening{"Text", kJb3Declaration + "text", false},
                    Opening{"ProcessingInstruction", kJb3Declaration + "<?style a?>", false}),
    NameOf<Opening>);

TEST_F(Jb3ReaderDamage, EmptyRootIsADocument) {
  EXPECT_TRUE(ReadBytes(kJb3Declaration + "<JB3/>"));
  EXPECT_EQ(CountOf(document), 0);
}

TEST_F(Jb3ReaderDamage, SecondRootIsNotRead) {
  EXPECT_TRUE(
      ReadBytes(kJb3Declaration + "<JB3>" + kStationJob + "</JB3><JB3>" + kStationJob + "</JB3>"));
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

TEST_F(Jb3ReaderDamage, FileWithNetworkLineEndsIsReadLikeAnyOther) {
  std::string text;
  for (const char c : kSmall) text += c == '\n' ? "\r\n" : std::string(1, c);
  EXPECT_TRUE(ReadBytes(text));
  EXPECT_EQ(CountOf(document), 8);
}

// ---- The batch of changes ----

TEST_F(Jb3ReaderDamage, BatchEndsOnceForADocumentThatIsNone) {
  BatchCounter batches;
  Jobs().GetCmpContext()->SetListener(&batches);
  EXPECT_FALSE(ReadBytes("<html/>"));
  EXPECT_EQ(batches.ended, batches.begun);
  EXPECT_LE(batches.begun, 1);
}

TEST_F(Jb3ReaderDamage, FileThatIsNotThereBeginsNoBatch) {
  BatchCounter batches;
  Jobs().GetCmpContext()->SetListener(&batches);
  EXPECT_TRUE(jb3::Jb3Reader(&parent, document, WString(folder.Path("none.jb3"))).Read());
  EXPECT_TRUE(jb3::Jb3Reader(&parent, document, "").Read());
  EXPECT_EQ(batches.begun, 0);
}

TEST_F(Jb3ReaderDamage, LibraryWithoutAChangeSourceIsReadInto) {
  Jobs().HaveCmpContext(false);
  Read(kStationJob);
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

// ---- Damage anywhere ----

TEST_F(Jb3ReaderDamage, FileCutAtAnyByteGivesNothingOrAPartOfTheWhole) {
  int largest = 0;
  for (std::size_t length = 0; length <= kSmall.size(); ++length) {
    HostDocument job;
    const bool isDocument = ReadInto(job, kSmall.substr(0, length));
    EXPECT_TRUE(isDocument || CountOf(job) == 0) << length;
    EXPECT_GE(CountOf(job), largest) << length;
    largest = CountOf(job);
    EXPECT_EQ(isDocument, length >= kSmall.find("<JB3>") + 4) << length;
  }
  EXPECT_EQ(largest, 8);
}

TEST_F(Jb3ReaderDamage, AnyByteOfAFileMayBeAnother) {
  for (const char wrong : {'<', '"', '&', '\0', '\xFF'}) {
    for (std::size_t at = 0; at < kSmall.size(); ++at) {
      std::string text = kSmall;
      text[at] = wrong;
      HostDocument job;
      BatchCounter batches;
      job.GetLibCmp()->GetCmpContext()->SetListener(&batches);
      EXPECT_TRUE(ReadInto(job, text) || CountOf(job) == 0) << wrong << at;
      EXPECT_LE(CountOf(job), 8) << wrong << at;
      EXPECT_EQ(batches.ended, batches.begun) << wrong << at;
    }
  }
}

class Jb3ReaderEnd : public Jb3ReaderDamage, public testing::WithParamInterface<NamedText> {};

TEST_P(Jb3ReaderEnd, LeavesTheJobsBeforeIt) {
  EXPECT_TRUE(ReadBytes(kJb3Declaration + "<JB3>" + kStationJob + GetParam().text));
  ASSERT_GE(Jobs().GetJobArSize(), 1);
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("J"));
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetNome(), WString("S"));
}

INSTANTIATE_TEST_SUITE_P(
    Each, Jb3ReaderEnd,
    testing::Values(NamedText{"Bracket", "<"}, NamedText{"ElementName", "<Job"},
                    NamedText{"AttributeName", "<Job name"}, NamedText{"EqualsSign", "<Job name="},
                    NamedText{"OpenQuote", "<Job name=\""}, NamedText{"OpenValue", "<Job name='J"},
                    NamedText{"ValueWithoutQuotes", "<Job name=J>"},
                    NamedText{"UnclosedElements", "<Job><Station>"},
                    NamedText{"ElementsClosedCrosswise", "<Job></Station></Job>"},
                    NamedText{"RootClosedByAnotherName", "</Jb3>"}, NamedText{"OpenEndTag", "</"},
                    NamedText{"OpenComment", "<!-- a --"}, NamedText{"OpenRawText", "<![CDATA["},
                    NamedText{"OpenInstruction", "<?"}, NamedText{"OpenDeclaration", "<!"},
                    NamedText{"OpenEntity", "&amp"}, NamedText{"OpenNumber", "&#"},
                    NamedText{"NumberWithoutDigits", "&#x;"},
                    NamedText{"OpenNumberInAValue", "<Job name=\"&#\"/>"},
                    NamedText{"AttributeTwice", "<Job a=\"1\" a=\"2\"/>"},
                    NamedText{"BlankBeforeTheName", "< Job/>"},
                    NamedText{"AttributeWithoutAName", "<Job =\"1\"/>"},
                    NamedText{"ByteOrderMark", "\xFF\xFE"}),
    NameOf<NamedText>);

TEST_F(Jb3ReaderDamage, JobsOnTheLinesBeforeANulByteAreRead) {
  std::string text = kJb3Declaration + "<JB3>\n" + kStationJob + "\n";
  text += '\0';
  text += "\n</JB3>";
  EXPECT_TRUE(ReadBytes(text));
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

TEST_F(Jb3ReaderDamage, FileOfNulBytesIsNoDocument) {
  EXPECT_FALSE(ReadBytes(std::string(1000, '\0')));
}

// ---- Depth ----

TEST_F(Jb3ReaderDamage, MillionElementsThatAreNestedAndClosedLeaveTheJobBefore) {
  std::string text = kJb3Declaration + "<JB3>" + kStationJob;
  for (int i = 0; i < 1'000'000; ++i) text += "<Job>";
  for (int i = 0; i < 1'000'000; ++i) text += "</Job>";
  EXPECT_TRUE(ReadBytes(text + "</JB3>"));
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

TEST_F(Jb3ReaderDamage, UnknownElementsOfSomeDepthDoNotHideWhatFollows) {
  std::string deep;
  for (int i = 0; i < 300; ++i) deep += "<a>";
  for (int i = 0; i < 300; ++i) deep += "</a>";
  Read(deep + kStationJob + deep);
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

// ---- Encodings ----

TEST_F(Jb3ReaderDamage, NumberedCharacterIsOneOfTheCodePage) {
  Read("<Job name=\"&#232; &#x41;\"><Station/></Job>");
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("è A"));
}

TEST_F(Jb3ReaderDamage, BytesThatTheCodePageLacksKeepTheirCodePoint) {
  Read("<Job name=\"\x81\"><Station/></Job>");
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("\xC2\x81"));
}

TEST_F(Jb3ReaderDamage, TextsOfAUtf8FileAreTakenForTheCodePageToo) {
  EXPECT_TRUE(
      ReadBytes("<?xml version=\"1.0\" encoding=\"UTF-8\"?><JB3><Job name=\"\xC3\xA8\">"
                "<Station/></Job></JB3>"));
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("Ã¨"));
}

TEST_F(Jb3ReaderDamage, TextOfTheCodePageInAUtf8FileLeavesTheJobsBeforeIt) {
  EXPECT_TRUE(ReadBytes("<?xml version=\"1.0\" encoding=\"UTF-8\"?><JB3>" + kStationJob +
                        "<Job name=\"J\xE8\"><Station/></Job></JB3>"));
  ASSERT_GE(Jobs().GetJobArSize(), 1);
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("J"));
}

TEST_F(Jb3ReaderDamage, Utf16OfTheOtherByteOrderIsNoDocument) {
  std::string wide = "\xFE\xFF";
  for (const char c : kJb3Declaration + "<JB3/>") {
    wide += '\0';
    wide += c;
  }
  EXPECT_FALSE(ReadBytes(wide));
}

}  // namespace
