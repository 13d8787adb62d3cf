// Drawings through the module's two functions and through kalvio convert.
#include "run_kalvio.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace e2e {
namespace {

constexpr const char* kDrawing =
    "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\nTREES\n10\n1.5\n20\n2.5\n30\n3.5\n0\nENDSEC\n0\nEOF\n";

class DrawingFiles : public testing::Test {
 protected:
  DrawingFiles() {
    folder.Write("SURVEY.DXF", kDrawing);
    folder.Write("points.csv", "1;10;20;5;EDGE\n2;30;40;6;EDGE\n");
  }
  Outcome Run(const std::vector<std::string>& words) { return RunKalvio(words, where); }
  Outcome Import(const std::string& name) {
    folder.Write("answers.json", R"([{"dialog": "cad-file", "set": {"path": ")" +
                                     folder.File(name) + R"("}, "press": "OK"}])");
    return Run({"call", "FImportDXFDWGFile", "--answers", "answers.json", "--save", "out.json"});
  }
  Outcome Export(const std::string& name, const std::string& more) {
    folder.Write("answers.json", R"([{"dialog": "cad-file", "set": {"path": ")" +
                                     folder.File(name) + "\"" + more + R"(}, "press": "OK"}])");
    return Run({"call", "FExportDXFDWGFile", "--answers", "answers.json"});
  }
  // The "cad" event of a transcript.
  static nlohmann::ordered_json Cad(const Outcome& run) {
    for (const auto& event : Events(run.out)) {
      if (event["event"] == "cad") return event;
    }
    return {};
  }
  std::string Bytes(const std::string& name) { return ReadBytes(folder.File(name)); }
  bool IsThere(const std::string& name) { return std::filesystem::exists(folder.File(name)); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(DrawingFiles, ExtensionChoosesTheLoaderWhateverItsLetters) {
  folder.Write("survey.dwg", "x");
  folder.Write("a.dx", "x");
  EXPECT_EQ(Cad(Import("SURVEY.DXF"))["call"], "LoadFileDXF");
  EXPECT_EQ(Cad(Import("survey.dwg"))["call"], "LoadFileDWG");
  EXPECT_EQ(Cad(Import("a.dx"))["call"], "LoadFileDWG");
}

TEST_F(DrawingFiles, ImportPutsTheDrawingIntoTheJob) {
  const Outcome run = Import("SURVEY.DXF");
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  EXPECT_THAT(Bytes("out.json"),
              AllOf(HasSubstr("\"name\": \"TREES\""), HasSubstr("\"type\": \"point\""),
                    HasSubstr("[1.5, 2.5, 3.5]")));
}

TEST_F(DrawingFiles, ImportThatFailsTellsTheLineAndReturnsNothing) {
  folder.Write("bad.dxf", "0\nSECTION\n2\nENTITIES\n0\nPOINT\n10\nfar\n0\nENDSEC\n0\nEOF\n");
  const Outcome run = Import("bad.dxf");
  EXPECT_THAT(run.out, AllOf(HasSubstr("\"caption\":\"Error !\""),
                             HasSubstr("\"text\":\"Error on line 8: "), HasSubstr("\"flags\":0")));
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":0"));
}

TEST_F(DrawingFiles, DwgThatIsNoneAndThatOfALaterVersionSaySo) {
  folder.Write("survey.dwg", "x");
  const Outcome run = Import("survey.dwg");
  EXPECT_THAT(run.out, HasSubstr("\"text\":\"Error: this is no DWG file"));
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":0"));
  folder.Write("later.dwg", "AC1032" + std::string(500, 'x'));
  EXPECT_THAT(Import("later.dwg").out, HasSubstr("the file is of version 2018 (AC1032)"));
}

TEST_F(DrawingFiles, DwgComesBackAsItWas) {
  ASSERT_EQ(Run({"convert", "SURVEY.DXF", "a.dwg"}).status, 0);
  ASSERT_EQ(Run({"convert", "--dwg-version", "r14", "SURVEY.DXF", "b.dwg"}).status, 0);
  EXPECT_TRUE(Bytes("a.dwg").starts_with("AC1015"));
  EXPECT_TRUE(Bytes("b.dwg").starts_with("AC1014"));
  for (const char* const name : {"a.dwg", "b.dwg"}) {
    const Outcome run = Import(name);
    EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
    EXPECT_THAT(Bytes("out.json"),
                AllOf(HasSubstr("\"name\": \"TREES\""), HasSubstr("\"type\": \"point\""),
                      HasSubstr("[1.5, 2.5, 3.5]")));
    EXPECT_EQ(Run({"show", name}).out, [&] {
      std::string shown = Run({"show", "SURVEY.DXF"}).out;
      const std::size_t at = shown.find("SURVEY.DXF");
      if (at != std::string::npos) shown.replace(at, 10, name);
      return shown;
    }());
  }
}

TEST_F(DrawingFiles, DwgThatCannotBeWrittenLeavesTheOldFile) {
  std::filesystem::create_directory(folder.File("folder.dwg"));
  const Outcome run = Run({"convert", "SURVEY.DXF", "folder.dwg"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("folder.dwg: cannot be created: Is a directory"));
}

TEST_F(DrawingFiles, VersionOfTheListChoosesTheExtension) {
  const Outcome run = Export("plan.dwg", R"(, "version": 3)");
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  const auto cad = Cad(run);
  EXPECT_EQ(cad["call"], "SaveFileDXF");
  EXPECT_EQ(cad["args"], nlohmann::ordered_json::array(
                             {folder.File("plan.dxf"), false, true, false, false, false, 0, 0}));
  EXPECT_TRUE(IsThere("plan.dxf"));
  EXPECT_FALSE(IsThere("plan.dwg"));
}

TEST_F(DrawingFiles, FlagsGoToTheEngine) {
  const auto cad = Cad(Export("plan.x", R"(, "version": 2, "explode": true, "notVisible": true)"));
  EXPECT_EQ(cad["args"], nlohmann::ordered_json::array(
                             {folder.File("plan.dxf"), false, false, false, false, true, 3, 0}));
}

TEST_F(DrawingFiles, DwgIsAskedOfTheEngineAndTheExportReturnsOneWhateverCameOfIt) {
  const Outcome run = Export("plan", "");
  EXPECT_EQ(Cad(run)["call"], "SaveFileDWG");
  EXPECT_EQ(Cad(run)["args"][6], 7);
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  EXPECT_TRUE(Bytes("plan.dwg").starts_with("AC1015"));
  const Outcome failed = Export("no/such/plan", "");
  EXPECT_THAT(LastEvent(failed.out), HasSubstr("\"value\":1"));
}

TEST_F(DrawingFiles, OptionsAreKeptAndShownAgain) {
  std::filesystem::create_directory(folder.File("job"));
  folder.Write(
      "answers.json",
      R"([{"dialog": "cad-file", "set": {"version": 3, "explode": true}, "press": "OK"}])");
  EXPECT_EQ(Run({"call", "FExportDXFDWGFile", "--job", "job", "--answers", "answers.json"}).status,
            0);
  const std::string settings = Bytes("job/settings.ini");
  EXPECT_THAT(settings,
              AllOf(HasSubstr("ExportDXF-DWG"), HasSubstr("Version=0"),
                    HasSubstr("ExplodeBlocks=true"), HasSubstr("ExportNotVisibEnts=false")));
  const Outcome again = Run({"call", "FExportDXFDWGFile", "--job", "job"});
  EXPECT_THAT(again.out, AllOf(HasSubstr("\"title\":\"Dxf/Dwg file export\""),
                               HasSubstr("\"version\":3,\"explode\":true,\"notVisible\":false"),
                               HasSubstr("\"extensions\":\"dxf\"")));
}

TEST_F(DrawingFiles, CancelChangesNothing) {
  std::filesystem::create_directory(folder.File("job"));
  const Outcome run = Run({"call", "FExportDXFDWGFile", "--job", "job"});
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":0"));
  EXPECT_FALSE(IsThere("job/settings.ini"));
  const Outcome import = Run({"call", "FImportDXFDWGFile", "--job", "job"});
  EXPECT_THAT(import.out,
              AllOf(HasSubstr("\"title\":\"Dxf/Dwg file import\""),
                    HasSubstr("\"extensions\":\"dxf;dwg\""), HasSubstr("\"import\":true")));
  EXPECT_THAT(LastEvent(import.out), HasSubstr("\"value\":0"));
}

TEST_F(DrawingFiles, ConvertDrawsPointsAsBlocksOrAsTexts) {
  EXPECT_EQ(Run({"convert", "points.csv", "blocks.dxf"}).status, 0);
  EXPECT_THAT(Bytes("blocks.dxf"), AllOf(HasSubstr("FB_KNOWN"), HasSubstr("ATTRIB")));
  const Outcome run = Run({"convert", "--explode", "points.csv", "texts.dxf"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Bytes("texts.dxf"),
              AllOf(Not(HasSubstr("ATTRIB\n")), HasSubstr("TEXT"), HasSubstr("points.csv_NAMES")));
  const Outcome show = Run({"show", "texts.dxf"});
  EXPECT_THAT(show.out, HasSubstr("2 points, 2 polylines, 6 texts"));
}

TEST_F(DrawingFiles, ConvertWritesTheVersionThatIsAskedFor) {
  EXPECT_EQ(Run({"convert", "--dxf-version", "r12", "points.csv", "old.dxf"}).status, 0);
  EXPECT_THAT(Bytes("old.dxf"), HasSubstr("AC1009"));
  EXPECT_EQ(Run({"convert", "points.csv", "new.dxf"}).status, 0);
  EXPECT_THAT(Bytes("new.dxf"), HasSubstr("AC1015"));
}

TEST_F(DrawingFiles, DrawingGoesThrough) {
  EXPECT_EQ(Run({"convert", "SURVEY.DXF", "copy.dxf"}).status, 0);
  const Outcome show = Run({"show", "copy.dxf"});
  EXPECT_THAT(show.out, AllOf(testing::ContainsRegex("TREES +7 +yes +no +1\n"),
                              HasSubstr("In all: 1 drawn entity\n")));
}

TEST_F(DrawingFiles, DrawingWithoutEntitiesIsShownAndConverted) {
  folder.Write("empty.dxf",
               "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nWALLS\n"
               "70\n0\n62\n3\n0\nENDTAB\n0\nENDSEC\n0\nEOF\n");
  const Outcome show = Run({"show", "empty.dxf"});
  EXPECT_EQ(show.status, 0) << show.err;
  EXPECT_THAT(show.out, AllOf(testing::ContainsRegex("WALLS +3 +yes +no +0\n"),
                              HasSubstr("In all: nothing\n")));
  EXPECT_EQ(Run({"convert", "empty.dxf", "copy.dxf"}).status, 0);
  EXPECT_THAT(Bytes("copy.dxf"), HasSubstr("WALLS"));
}

TEST_F(DrawingFiles, ConvertTellsWhatIsNotInTheDrawing) {
  folder.Write("job.json",
               R"({"jobs": [{"name": "J", "stations": [{"name": "S", "points": [{"name": "P"}]}]}],
                   "drawing": {"layers": [{"name": "0"}],
                               "entities": [{"type": "circle", "layer": "0", "center": [0, 0, 0],
                                             "radius": 0}]}})");
  folder.Write("answers.json", R"([{"dialog": "cad-file", "set": {"path": ")" +
                                   folder.File("plan.dxf") +
                                   R"(", "version": 2}, "press": "OK"}])");
  const Outcome run =
      Run({"call", "FExportDXFDWGFile", "--job", "job.json", "--answers", "answers.json"});
  EXPECT_THAT(run.err,
              AllOf(HasSubstr("plan.dxf: points without plane coordinates are not drawn (2)"),
                    HasSubstr("or whose block is not there, are left out (1)")));
}

TEST_F(DrawingFiles, ConvertTellsWhatLiesOnHiddenLayers) {
  folder.Write(
      "hidden.dxf",
      "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nOFF\n70\n0\n62\n-7\n0\nENDTAB\n"
      "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\nOFF\n10\n1\n20\n2\n"
      "0\nPOINT\n8\n0\n10\n3\n20\n4\n0\nENDSEC\n0\nEOF\n");
  for (const char* const output : {"out.dxf", "out.dwg"}) {
    const Outcome run = Run({"convert", "hidden.dxf", output});
    EXPECT_THAT(run.err, HasSubstr("entities on layers that are not displayed are left out (1)"));
    EXPECT_EQ(Run({"convert", "--hidden", "hidden.dxf", output}).err, "");
  }
}

TEST_F(DrawingFiles, ExplodeTakesBlocksOfAnEarlierExportApart) {
  EXPECT_EQ(Run({"convert", "points.csv", "blocks.dxf"}).status, 0);
  EXPECT_EQ(Run({"convert", "--explode", "blocks.dxf", "plain.dxf"}).status, 0);
  EXPECT_THAT(Run({"show", "plain.dxf"}).out, HasSubstr("6 lines, 6 texts"));
}

TEST_F(DrawingFiles, WhatIsNoDrawingIsNamed) {
  folder.Write("bad.dxf", "hello\n");
  const Outcome run = Run({"show", "bad.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, StartsWith("kalvio: bad.dxf: Error on line "));
}

}  // namespace
}  // namespace e2e
