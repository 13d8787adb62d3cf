// The host's writer: the file on disk, and what is said when it cannot be written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/file_trouble.h"
#include "services/cts_out_dat_string.h"
#include "support/cadastral_jobs.h"
#include "support/fake_views.h"
#include "support/ordinary_user.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class DatWrite : public testing::Test {
 protected:
  DatWrite() { cadastral_jobs::LoadExample(document); }
  bool Write(const std::string& path) {
    return CCtsOutDatString(window.GetSafeHwnd(), document.GetCts(), document.GetLibCmp(),
                            document.GetLibGps())
        .WriteFileText(tdk::WString(path));
  }
  std::string Message() const {
    return views.messages.size() == 1 ? views.messages[0].text : "not one message";
  }

  TemporaryFolder folder;
  HostDocument document;
  FakeViews views;
  CWnd window{&views};
};

TEST_F(DatWrite, WritesTheFileAndTellsRemarks) {
  EXPECT_TRUE(Write(folder.File("a.dat")));
  EXPECT_EQ(ReadBytes(folder.File("a.dat")), ReadBytes(KALVIO_TEST_DATA "/cadastral/libretto.dat"));
  EXPECT_THAT(views.messages, IsEmpty());
  ASSERT_THAT(views.notes, SizeIs(1));
  EXPECT_EQ(views.notes[0].path, tdk::WString(folder.File("a.dat")));
  EXPECT_THAT(views.notes[0].text.ToUtf8(), HasSubstr("103"));
}

TEST_F(DatWrite, MissingDataAreNamedAndTheOldFileStays) {
  folder.Write("a.dat", "old");
  document.GetCts()->Survey().heading.date.clear();
  document.GetLibGps()->GetPunAt(0, 0)->SetPosCov_xx(-1);
  EXPECT_FALSE(Write(folder.File("a.dat")));
  EXPECT_EQ(ReadBytes(folder.File("a.dat")), "old");
  ASSERT_THAT(views.messages, SizeIs(1));
  EXPECT_EQ(views.messages[0],
            (FakeViews::Message{"Warning",
                                "missing in the cadastral data: date\n"
                                "GPS point 1001: its covariance matrix is not positive definite",
                                48}));
  EXPECT_THAT(views.notes, IsEmpty());
}

TEST_F(DatWrite, NothingIsMadeWhenDataAreMissing) {
  document.GetCts()->Survey() = {};
  EXPECT_FALSE(Write(folder.File("a.dat")));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(DatWrite, OfManyFaultsTheFirstAreTold) {
  document.GetCts()->Survey().contours.assign(30, {{"a"}, "NC"});
  EXPECT_FALSE(Write(folder.File("a.dat")));
  EXPECT_THAT(Message(), testing::EndsWith("contour 10 has too few points\n…"));
}

TEST_F(DatWrite, AFolderThatIsNotThereIsToldTwiceOver) {
  std::string trouble;
  const auto before = platform::SetFileTroubleListener(
      [&](const platform::FileTrouble& told) { trouble = told.path; });
  EXPECT_FALSE(Write(folder.File("none/a.dat")));
  platform::SetFileTroubleListener(before);
  EXPECT_EQ(Message(), folder.File("none/a.dat") + " cannot be written.");
  EXPECT_THAT(trouble, HasSubstr("none/"));
}

TEST_F(DatWrite, AFileThatCannotBeReplacedStays) {
  std::filesystem::create_directory(folder.File("a.dat"));
  EXPECT_FALSE(Write(folder.File("a.dat")));
  EXPECT_THAT(folder.Names(), ElementsAre("a.dat"));
  EXPECT_THAT(Message(), HasSubstr("cannot be written"));
}

TEST_F(DatWrite, WithoutViewsItWritesAllTheSame) {
  const CCtsOutDatString writer(nullptr, document.GetCts(), document.GetLibCmp(),
                                document.GetLibGps());
  EXPECT_TRUE(writer.WriteFileText(tdk::WString(folder.File("a.dat"))));
}

}  // namespace
