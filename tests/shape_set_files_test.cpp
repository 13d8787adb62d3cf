// The files of a set are replaced together or not at all.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

#include "host/gis/shape_paths.h"
#include "platform/output_set.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/random.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::ElementsAre;
using testing::IsEmpty;

class ShapeSetFiles : public Sets {
 protected:
  ShapeSetFiles() { made.Field("A", FieldType::kText).Row({std::string_view("new")}); }
  void WriteOld() {
    for (const char* name : {"theme.shp", "theme.shx", "theme.dbf", "theme.cpg", "theme.prj"}) {
      folder.Write(name, std::string("old ") + name);
    }
  }
  void ExpectOld() {
    for (const char* name : {"theme.shp", "theme.shx", "theme.dbf", "theme.cpg"}) {
      EXPECT_EQ(ReadBytes(folder.File(name)), std::string("old ") + name);
    }
  }
  ThemeMaker made;
};

TEST_F(ShapeSetFiles, ANewSetHasItsFourFilesAndNothingElse) {
  EXPECT_TRUE(Export(made).isDone);
  EXPECT_THAT(folder.Names(), ElementsAre("theme.cpg", "theme.dbf", "theme.shp", "theme.shx"));
  EXPECT_THAT(yes.asked, IsEmpty());
}

TEST_F(ShapeSetFiles, WhatIsThereIsReplacedAfterYesAndStaleFilesGo) {
  WriteOld();
  for (const char* name : {"theme.sbn", "theme.QIX", "theme.qpj"}) folder.Write(name, "stale");
  folder.Write("theme.txt", "somebody's");
  EXPECT_TRUE(Export(made).isDone);
  EXPECT_THAT(yes.asked, ElementsAre(folder.Path() + "/theme"));
  EXPECT_THAT(folder.Names(),
              ElementsAre("theme.cpg", "theme.dbf", "theme.shp", "theme.shx", "theme.txt"));
}

TEST_F(ShapeSetFiles, NoKeepsWhatIsThereAndIsNoFailure) {
  WriteOld();
  Answer no(false);
  const ShapeOutcome outcome =
      files.Export({&made.Theme(), tdk::WString(folder.Path() + "\\"), 250, kShapeAsTheme, &no});
  EXPECT_FALSE(outcome.isDone);
  EXPECT_EQ(outcome.result, 0);
  EXPECT_THAT(no.asked, ElementsAre(folder.Path() + "\\theme"));
  ExpectOld();
  EXPECT_FALSE(
      files.Export({&made.Theme(), tdk::WString(folder.Path() + "/"), 250, 0, nullptr}).isDone);
  ExpectOld();
}

TEST_F(ShapeSetFiles, ATableAloneIsAskedForToo) {
  folder.Write("theme.dbf", "somebody's sheet");
  Answer no(false);
  EXPECT_FALSE(
      files.Export({&made.Theme(), tdk::WString(folder.Path() + "/"), 250, 0, &no}).isDone);
  EXPECT_EQ(ReadBytes(folder.File("theme.dbf")), "somebody's sheet");
}

TEST_F(ShapeSetFiles, AFolderInTheWayOfOneFileKeepsAllOfThem) {
  WriteOld();
  std::filesystem::remove(folder.File("theme.dbf"));
  std::filesystem::create_directory(folder.File("theme.dbf"));
  const ShapeOutcome outcome = Export(made);
  EXPECT_FALSE(outcome.isDone);
  EXPECT_EQ(outcome.result, kShapeTableFailed);
  EXPECT_EQ(ReadBytes(folder.File("theme.shp")), "old theme.shp");
  EXPECT_EQ(folder.Names().size(), 5U);
}

TEST_F(ShapeSetFiles, AFolderThatIsNotThereFailsBothFiles) {
  const ShapeOutcome outcome =
      files.Export({&made.Theme(), tdk::WString(folder.File("none/")), 250, kShapeAsTheme, &yes});
  EXPECT_FALSE(outcome.isDone);
  EXPECT_EQ(outcome.result, kShapeFileFailed | kShapeTableFailed);
}

TEST_F(ShapeSetFiles, AFolderThatTakesNoNewFilesKeepsTheOldSet) {
  WriteOld();
  for (const std::string& name : folder.Names())
    ASSERT_EQ(chmod(folder.File(name).c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
  ShapeOutcome outcome;
  {
    const OrdinaryUser user;
    outcome = Export(made);
  }
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  EXPECT_EQ(outcome.result, kShapeFileFailed | kShapeTableFailed);
  ExpectOld();
}

TEST_F(ShapeSetFiles, ThroughTheHostsFunction) {
  IShapeFiles::SetCurrent(&files);
  int failed = 77;
  EXPECT_TRUE(FExportFileShape(&made.library, &made.Theme(), tdk::WString(folder.Path() + "\\"),
                               250, 0, &yes, failed));
  EXPECT_EQ(failed, 0);
  EXPECT_EQ(FGetEntTypeFromFileShp(tdk::WString(folder.Path() + "\\theme.shp")), 1);
  IShapeFiles::SetCurrent(nullptr);
}

TEST_F(ShapeSetFiles, ANameMayHaveDotsBlanksAndWhatNoFileMayHave) {
  made.Theme().SetName("rilievo 1.2");
  EXPECT_TRUE(Export(made).isDone);
  EXPECT_TRUE(std::filesystem::exists(folder.File("rilievo 1.2.shp")));
  EXPECT_TRUE(std::filesystem::exists(folder.File("rilievo 1.2.shx")));
  made.Theme().SetName("../a\\b\nc");
  EXPECT_TRUE(Export(made).isDone);
  EXPECT_TRUE(std::filesystem::exists(folder.File(".._a_b_c.shp")));
}

TEST_F(ShapeSetFiles, AnOldReferenceSystemDoesNotStayBesideNewShapes) {
  WriteOld();
  made.Theme().SetReferenceSystem("GEOGCS[]");
  EXPECT_TRUE(Export(made).isDone);
  EXPECT_EQ(ReadBytes(folder.File("theme.prj")), "GEOGCS[]");
  made.Theme().SetReferenceSystem("");
  EXPECT_TRUE(Export(made).isDone);
  EXPECT_FALSE(std::filesystem::exists(folder.File("theme.prj")));
}

// ---- Placing files together ----

TEST(ShapeOutputSet, WhatCannotBePlacedPutsAllOldFilesBack) {
  const TemporaryFolder folder;
  folder.Write("a", "old a");
  platform::OutputFile first;
  platform::OutputFile fresh;
  platform::OutputFile second;
  ASSERT_TRUE(first.Open(folder.File("a")));
  ASSERT_TRUE(fresh.Open(folder.File("n")));
  ASSERT_TRUE(second.Open(folder.File("b")));
  for (platform::OutputFile* file : {&first, &fresh, &second}) {
    file->Buffer() += "new";
    ASSERT_TRUE(file->Complete());
  }
  std::filesystem::create_directories(folder.File("b/full"));  // now nothing can be put there
  platform::OutputFile* const all[] = {&first, &fresh, &second};
  const std::string stale = folder.Write("stale", "x");
  EXPECT_EQ(platform::PlaceTogether(all, std::span(&stale, 1)), 2U);
  EXPECT_EQ(ReadBytes(folder.File("a")), "old a");
  EXPECT_THAT(folder.Names(), ElementsAre("a", "b", "stale"));
}

constexpr std::array kNames = {"a", "b", "c", "d", "e"};

void PlaceNewFiles(const TemporaryFolder& folder) {
  std::array<platform::OutputFile, kNames.size()> files;
  std::vector<platform::OutputFile*> all;
  for (std::size_t i = 0; i < files.size(); ++i) {
    files[i].Open(folder.File(kNames[i]));
    files[i].Buffer() += "new";
    files[i].Complete();
    all.push_back(&files[i]);
  }
  platform::PlaceTogether(all, {});
}

// Runs it in a process that is killed after so many microseconds; ends when nothing of it is left.
void PlaceAndBeKilled(const TemporaryFolder& folder, useconds_t after) {
  std::array<int, 2> alive{};
  ASSERT_EQ(pipe(alive.data()), 0);
  const pid_t child = fork();
  if (child == 0) {
    PlaceNewFiles(folder);
    _exit(0);
  }
  close(alive[1]);
  usleep(after);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  char byte = 0;
  EXPECT_EQ(read(alive[0], &byte, 1), 0);  // whoever has its other end may still be at it
  close(alive[0]);
}

TEST(ShapeOutputSet, WhoIsKilledLeavesAllOldFilesOrAllNewOnes) {
  using Clock = std::chrono::steady_clock;
  const TemporaryFolder folder;
  Clock::duration whole = std::chrono::seconds(1);
  for (int i = 0; i < 5; ++i) {
    const auto start = Clock::now();
    PlaceNewFiles(folder);
    whole = std::min(whole, Clock::now() - start);
  }
  const double most = 2 * std::chrono::duration<double, std::micro>(whole).count();
  Random random;
  const auto end = Clock::now() + std::chrono::seconds(3);
  for (int round = 0; round < 200 && Clock::now() < end; ++round) {
    for (const char* const name : kNames) folder.Write(name, "old");
    PlaceAndBeKilled(folder, static_cast<useconds_t>(random.Real(0, most)));
    const std::string first = ReadBytes(folder.File("a"));
    for (const char* const name : kNames) ASSERT_EQ(ReadBytes(folder.File(name)), first) << round;
  }
}

TEST(ShapeOutputSet, RewritesBytesThatWereWrittenBefore) {
  const TemporaryFolder folder;
  platform::OutputFile file;
  ASSERT_TRUE(file.Open(folder.File("a")));
  file.Buffer() += "0000 and more";
  file.Overwrite(0, "1234");
  file.Buffer() += "!";
  file.Overwrite(5, "AND");
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(ReadBytes(folder.File("a")), "1234 AND more!");
}

TEST(ShapePaths, KnowTheFilesOfASetInAnyLetters) {
  const TemporaryFolder folder;
  folder.Write("a.DBF", "");
  EXPECT_EQ(shape::BaseOf("x\\y.z.SHP"), "x/y.z");
  EXPECT_EQ(shape::BaseOf("y.txt"), "y.txt");
  EXPECT_EQ(shape::Sibling(folder.File("a"), "dbf"), folder.File("a.DBF"));
  EXPECT_EQ(shape::Sibling(folder.File("a"), "prj"), folder.File("a.prj"));
  folder.Write("a.sHp", "");
  EXPECT_EQ(shape::Sibling(folder.File("a"), "shp"), folder.File("a.sHp"));
  folder.Write("a.shp", "");
  EXPECT_EQ(shape::Sibling(folder.File("a"), "shp"), folder.File("a.shp"));
}

}  // namespace
