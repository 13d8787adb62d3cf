// What the JB3 reader makes of files that are no good.
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using Jb3Rubbish = Jb3Test;

TEST_F(Jb3Rubbish, CutOffAtAnyByteIsReadUpToThere) {
  const std::string whole = ReadFile(KALVIO_SAMPLES "/gps.jb3");
  int points = 0;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    HostDocument fresh;
    WriteFile(folder.Path("in.jb3"), whole.substr(0, length));
    jb3::Jb3Reader(&parent, fresh, WString(folder.Path("in.jb3"))).Read();
    const int now = fresh.GetLibCmp()->GetPunArSize(0, 0) + fresh.GetLibGps()->GetPunArSize(0) +
                    fresh.GetLibPnt()->GetPtnArSize(0);
    EXPECT_GE(now, points) << length;
    points = now;
  }
  EXPECT_EQ(points, 2 + 3 + 1);
}

TEST_F(Jb3Rubbish, MillionNestedElementsAreCutAndTold) {
  std::string text = kJb3Declaration + "<JB3><Job><Station name=\"S\"/></Job>";
  for (int i = 0; i < 1'000'000; ++i) text += "<a>";
  EXPECT_TRUE(ReadBytes(text));
  EXPECT_EQ(Jobs().GetStaArSize(0), 1);
  ASSERT_FALSE(views.notes.empty());
  EXPECT_NE(views.notes[0].text.ToUtf8().find("nested too deeply"), std::string::npos);
}

TEST_F(Jb3Rubbish, NestingThatIsHiddenFromACarelessLookIsCutToo) {
  for (const char* element : {"<a b='/>'>", "<a b=\"</a>\">", "<!-- </a> --><a>", "<a\n>"}) {
    std::string text = kJb3Declaration + "<JB3>";
    for (int i = 0; i < 200'000; ++i) text += element;
    EXPECT_TRUE(ReadBytes(text)) << element;
  }
}

TEST_F(Jb3Rubbish, ManyElementsBesideEachOtherAreNotCut) {
  std::string body;
  for (int i = 0; i < 2'000; ++i) body += "<Job><Station/></Job><x/><!-- <y> -->";
  Read(body);
  EXPECT_EQ(Jobs().GetJobArSize(), 2'000);
  EXPECT_TRUE(views.notes.empty());
}

TEST_F(Jb3Rubbish, UnclosedElementsAreUsed) {
  EXPECT_TRUE(ReadBytes(kJb3Declaration + "<JB3><Job name=\"J\"><Station name=\"S\"><Pnts>"
                                          "<Pnt name=\"P\"/>"));
  EXPECT_EQ(Jobs().GetPunArSize(0, 0), 1);
}

TEST_F(Jb3Rubbish, DamageIsToldWithItsLine) {
  EXPECT_TRUE(ReadBytes(kJb3Declaration + "<JB3>\n<Job name=\"J\"><Station/></Job>\n<Job name=>"));
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
  ASSERT_EQ(views.notes.size(), 1u);
  EXPECT_EQ(views.notes[0].line, 4u);
}

TEST_F(Jb3Rubbish, UnknownEntitiesAreNoDanger) {
  Read("<Job name=\"&nonsense; &#xFFFFFFFF; &#0; &\"><Station/></Job>");
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

TEST_F(Jb3Rubbish, HugeAttributesAreKept) {
  const std::string name(5'000'000, 'x');
  Read("<Job name=\"" + name + "\"><Station/></Job>");
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome().Length(), name.size());
}

TEST_F(Jb3Rubbish, NulBytesEndTheirPieceOnly) {
  std::string text = kJb3Declaration + "<JB3>\n<!-- a";
  text += '\0';
  text += " lost\n--><Job name=\"J\"><Station/></Job></JB3>";
  EXPECT_TRUE(ReadBytes(text));
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

TEST_F(Jb3Rubbish, Utf8ByteOrderMarkIsSkipped) {
  EXPECT_TRUE(ReadBytes("\xEF\xBB\xBF" + kJb3Declaration + "<JB3><Job><Station/></Job></JB3>"));
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

// Found by fuzzing: without a declared encoding texts are taken for UTF-8.
TEST_F(Jb3Rubbish, TextThatEndsWithinAUtf8SequenceIsNotReadFurther) {
  for (const char* end : {"<Job name=\"\xF0", "<\xF0", "<Job \xE2", "\xF0\x9F", "<!-- \xF0"}) {
    EXPECT_TRUE(ReadBytes(std::string("<?xml version=\"1.0\" ?><JB3>") + end)) << end;
  }
}

TEST_F(Jb3Rubbish, Utf16IsNoDocument) {
  std::string wide = "\xFF\xFE";
  for (const char c : kJb3Declaration + "<JB3/>") wide += {c, '\0'};
  EXPECT_FALSE(ReadBytes(wide));
}

TEST_F(Jb3Rubbish, AnotherDeclaredEncodingIsTakenForTheCodePage) {
  EXPECT_TRUE(
      ReadBytes("<?xml version=\"1.0\" encoding=\"windows-1250\"?><JB3><Job name=\"\xE8\">"
                "<Station/></Job></JB3>"));
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("è"));
}

TEST_F(Jb3Rubbish, NumbersThatAreNoneAreZeroAndTooLargeOnesUndefined) {
  const CPun& point = ReadPoint(
      "<RawObservation target_height=\"high\" slope_distance=\"1e999\" prism_constant=\"nan\"/>");
  EXPECT_EQ(point.GetAltPri(), 0);
  EXPECT_EQ(point.GetDato0(), UndefinedValue);
  EXPECT_EQ(point.GetPrismOffset(), 0);
}

TEST_F(Jb3Rubbish, FolderInPlaceOfAFileChangesNothing) {
  EXPECT_TRUE(jb3::Jb3Reader(&parent, document, WString(folder.Path())).Read());
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
}

}  // namespace
