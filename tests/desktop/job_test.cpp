// The job as a tree and a table, undo, the report.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "apps/desktop/job/desktop_job.h"
#include "apps/desktop/job/exchange_report.h"
#include "apps/desktop/job/exchange_table.h"
#include "apps/desktop/job/job_table.h"
#include "apps/desktop/job/job_tree.h"
#include "apps/desktop/qt_text.h"
#include "module.h"
#include "services/jobs_folder.h"
#include "tests/desktop/screenshots_job.h"
#include "tests/support/temporary_folder.h"

namespace {

class JobModels : public testing::Test {
 protected:
  JobModels() { FillExample(document); }

  HostDocument document;
};

TEST_F(JobModels, EveryNodeIsTheChildOfItsParent) {
  const std::function<int(const JobNode&)> walk = [&](const JobNode& node) {
    int seen = 0;
    for (int row = 0; row < ChildCount(document, node); ++row) {
      const JobNode child = ChildAt(node, row);
      EXPECT_EQ(ParentOf(child), node);
      EXPECT_EQ(RowOf(child), row);
      seen += 1 + walk(child);
    }
    return seen;
  };
  // Sections 8; a job, 2 stations, 48 points; a GPS group; a group with 3 points; 2 layers.
  EXPECT_EQ(walk({}), 8 + 1 + 2 + 48 + 1 + 1 + 3 + 2);
}

TEST_F(JobModels, FindsTheNodeOfAPointAndOfAName) {
  const CPun& point = *document.GetLibCmp()->GetPunAt(0, 1, 3);
  EXPECT_EQ(NodeOf(document, point), (JobNode{NodeKind::kPoint, 0, 1, 3}));
  EXPECT_EQ(NodeOf(document, *document.GetLibCmp()->GetStaAt(0, 1)),
            (JobNode{NodeKind::kStation, 0, 1}));
  EXPECT_EQ(NodeOf(document, *document.GetLibPnt()->GetPtnAt(0, 2)),
            (JobNode{NodeKind::kKnownPoint, 0, 2}));
  EXPECT_EQ(FindNamed(document, "S2"), (JobNode{NodeKind::kStation, 0, 1}));
  EXPECT_EQ(FindNamed(document, "KERBS"), (JobNode{NodeKind::kLayer, 1}));
  EXPECT_EQ(FindNamed(document, "nobody").kind, NodeKind::kRoot);
}

TEST_F(JobModels, KeepTheRulesOfModels) {
  JobTree tree;
  JobTable table;
  const QAbstractItemModelTester treeTester(&tree,
                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
  const QAbstractItemModelTester tableTester(&table,
                                             QAbstractItemModelTester::FailureReportingMode::Fatal);
  tree.Show(&document);
  table.Show(&document, {NodeKind::kStation, 0, 0});
  EXPECT_EQ(table.rowCount(), 24);
  tree.Show(nullptr);
  table.Show(nullptr, {});
  EXPECT_EQ(tree.rowCount(), 0);
}

TEST_F(JobModels, TreeTellsNamesAndNumbers) {
  JobTree tree;
  tree.Show(&document);
  const auto text = [&](const JobNode& node) {
    return ToUtf8(tree.data(tree.IndexOf(node), Qt::DisplayRole).toString());
  };
  EXPECT_EQ(text({NodeKind::kJobs}), "Jobs (1)");
  EXPECT_EQ(text({NodeKind::kStation, 0, 1}), "S2 (24)");
  EXPECT_EQ(text({NodeKind::kPoint, 0, 1, 3}), "203");
  EXPECT_EQ(tree.NodeAt(tree.IndexOf({NodeKind::kPoint, 0, 1, 3})),
            (JobNode{NodeKind::kPoint, 0, 1, 3}));
}

TEST_F(JobModels, TableTellsWhatIsChosen) {
  JobTable table;
  table.Show(&document, {NodeKind::kKnownPoint, 0, 1});
  EXPECT_EQ(table.Shown(), (JobNode{NodeKind::kKnownGroup, 0})) << "a point among its neighbours";
  EXPECT_EQ(table.data(table.index(1, 0), Qt::DisplayRole).toString(), "K2");
  EXPECT_EQ(table.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "East");
  EXPECT_EQ(table.data(table.index(1, 2), Qt::DisplayRole).toString(), "1590.000");
  for (const NodeKind kind : {NodeKind::kJobs, NodeKind::kGpsGroups, NodeKind::kKnownGroups,
                              NodeKind::kLayers, NodeKind::kRoot}) {
    table.Show(&document, {kind});
    for (int row = 0; row < table.rowCount(); ++row) {
      for (int column = 0; column < table.columnCount(); ++column) {
        EXPECT_TRUE(table.data(table.index(row, column), Qt::DisplayRole).isValid());
      }
    }
  }
}

TEST_F(JobModels, AMillionPointsCostTheTreeNothing) {
  constexpr int kPoints = 1'000'000;
  CLibPnt& known = *document.GetLibPnt();
  known.AddGrp(true);
  for (int i = 0; i < kPoints; ++i) known.AddPtn(1, true);
  JobTree tree;
  tree.Show(&document);
  const QModelIndex group = tree.IndexOf({NodeKind::kKnownGroup, 1});
  EXPECT_EQ(tree.rowCount(group), kPoints);
  const QModelIndex last = tree.index(kPoints - 1, 0, group);
  EXPECT_EQ(tree.NodeAt(last), (JobNode{NodeKind::kKnownPoint, 1, kPoints - 1}));
  EXPECT_EQ(tree.parent(last), group);
}

// ---- Undo ----

TEST(DesktopJobs, UndoBringsBackWhatWasKeptWithTheSettingsOfNow) {
  DesktopJob job;
  FillExample(job.Document());
  job.KeepForUndo();
  job.Document().GetLibCmp()->AddJob(true);
  job.MarkChanged();
  CIniFile().WriteShort("Importazione", "Num_righe", 7);
  job.Undo();
  EXPECT_EQ(job.Document().GetLibCmp()->GetJobArSize(), 1);
  EXPECT_EQ(job.Document().GetLibCmp()->GetPunArSize(0, 1), 24);
  EXPECT_EQ(CIniFile().ReadShort("Importazione", "Num_righe", 0), 7);
  EXPECT_FALSE(job.CanUndo());
  EXPECT_FALSE(job.IsChanged());
}

TEST(DesktopJobs, UndoOfTheFirstImportLeavesAnEmptyJob) {
  DesktopJob job;
  job.KeepForUndo();
  FillExample(job.Document());
  job.Undo();
  EXPECT_EQ(job.Document().GetLibCmp()->GetJobArSize(), 0);
}

TEST(DesktopJobs, UndoOfAJobThatLiesOnTheDiskLeavesThatAlone) {
  const TemporaryFolder folder;
  const std::string path = folder.File("job");
  DesktopJob job;
  FillExample(job.Document());
  job.SaveTo(path);
  job.KeepForUndo();
  job.Document().GetLibCmp()->AddJob(true);
  job.MarkChanged();
  job.SaveTo(path);
  job.Undo();
  EXPECT_EQ(job.Document().GetLibCmp()->GetJobArSize(), 1);
  job.Open(path);
  EXPECT_EQ(job.Document().GetLibCmp()->GetJobArSize(), 2);
}

TEST(DesktopJobs, AJobThatCannotBeOpenedLeavesTheOtherOneOpen) {
  const TemporaryFolder folder;
  const std::string broken = folder.Write("broken.json", "{");
  DesktopJob job;
  FillExample(job.Document());
  EXPECT_THROW(job.Open(broken), JobError);
  EXPECT_EQ(job.Document().GetLibCmp()->GetJobArSize(), 1);
  CIniFile().WriteShort("Importazione", "Num_righe", 3);
  EXPECT_EQ(job.Document().Settings().Get("Importazione", "Num_righe", ""), "3");
}

TEST(DesktopJobs, OpeningMakesFolderAndSettingsCurrent) {
  const TemporaryFolder folder;
  DesktopJob job;
  job.SaveTo(folder.File("one"));
  job.SaveTo(folder.File("two"));
  job.Open(folder.File("one"));
  EXPECT_EQ(CJobsFolder::GetJobNameFolderNoSlash().ToUtf8(), folder.File("one"));
  CIniFile().WriteShort("Importazione", "Num_righe", 5);
  job.KeepSettings();
  job.Open(folder.File("two"));
  EXPECT_EQ(CIniFile().ReadShort("Importazione", "Num_righe", 0), 0);
  job.Open(folder.File("one"));
  EXPECT_EQ(CIniFile().ReadShort("Importazione", "Num_righe", 0), 5);
}

// ---- Reports and commands ----

TEST_F(JobModels, AWarningLeadsToTheObjectThatItNames) {
  ExchangeReport report;
  report.Warn("road \"KERBS\": something", document);
  report.Warn("nothing \"unknown\" and \"S1\" here", document);
  report.Warn("no name \" at all", document);
  EXPECT_EQ(report.lines[0].object, (JobNode{NodeKind::kLayer, 1}));
  EXPECT_EQ(report.lines[1].object, (JobNode{NodeKind::kStation, 0, 0}));
  EXPECT_FALSE(report.lines[2].object.has_value());
  EXPECT_EQ(report.AsText().count('\n'), 4);
}

TEST(Report, FindsAPointByItsName) {
  HostDocument document;
  document.GetLibCmp()->AddJob(true);
  document.GetLibCmp()->AddSta(0, true)->SetNome("S1");
  document.GetLibCmp()->AddPun(0, 0, true)->SetNome("P1");
  document.GetLibPnt()->AddGrp(true);
  document.GetLibPnt()->AddPtn(0, true)->SetNome("K1");
  ExchangeReport report;
  for (const char* const name : {"P1", "K1", "none"}) report.Warn("text", name, document);
  EXPECT_EQ(report.lines[0].object, (JobNode{NodeKind::kPoint, 0, 0, 0}));
  EXPECT_EQ(report.lines[1].object, (JobNode{NodeKind::kKnownPoint, 0, 0}));
  EXPECT_FALSE(report.lines[2].object.has_value());
}

TEST(ExchangeCommands, AreFunctionsOfTheModule) {
  for (const ExchangeCommand& command : ExchangeTable()) {
    if (command.function == nullptr) continue;
    EXPECT_TRUE(IsModuleFunction(command.function));
  }
}

TEST(ExchangeCommands, AreFoundByTheExtensionOfAFile) {
  ASSERT_NE(ImportOf("/a/B.JB2"), nullptr);
  EXPECT_STREQ(ImportOf("/a/B.JB2")->function, "FImportJB2File");
  EXPECT_STREQ(ImportOf("x.dwg")->function, "FImportDXFDWGFile");
  EXPECT_EQ(ImportOf("x.xml")->function, nullptr);
  EXPECT_EQ(ImportOf("x.dat"), nullptr);
  EXPECT_EQ(ImportOf("x"), nullptr);
}

}  // namespace
