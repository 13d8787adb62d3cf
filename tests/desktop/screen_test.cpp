// The program as a user has it, from the first window to the files: on a screen of its own, worked
// by keys. What it writes is what the command line writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "apps/desktop/job/exchange_table.h"
#include "tests/desktop/screen.h"
#include "tests/run_kalvio.h"
#include "tests/support/temporary_folder.h"

using namespace desktop_test;

namespace {

// How often Down is pressed in its menu to come to a function.
int PlaceInMenu(const char* function) {
  int place = 0;
  for (const ExchangeCommand& command : ExchangeTable()) {
    if (command.function != nullptr && std::strcmp(command.function, function) == 0) break;
    ++place;
  }
  const auto table = ExchangeTable();
  const auto imports = std::count_if(table.begin(), table.end(),
                                     [](const ExchangeCommand& each) { return each.isImport; });
  return place < imports ? place : place - static_cast<int>(imports);
}

class OnScreen : public testing::Test {
 protected:
  OnScreen() {
    folder.Write("field.jb2", e2e::SmallJb2());
    folder.Write("known.csv", "S1;1000;2000;100;\nS2;1010;2000;100;\nK1;1004;2003;101;\n");
  }

  void Choose(const char* menu, const char* function) {
    program.Press({menu});
    program.Press(QStringList(PlaceInMenu(function), "Down"));
    program.Press({"Return"});
  }
  void CloseReport(const QString& title) {
    program.Await(title);
    program.Press({"Escape"});
    program.Await(kMain);
  }
  /// Name, east, north, elevation and code, from the header rows on.
  void ChooseColumns() {
    program.Press({"Tab"});
    for (const int field : {0, 2, 1, 3, 4}) {
      program.Press(QStringList{"Home"} + QStringList(field, "Down") + QStringList{"Tab"});
    }
    program.Press({"Return"});
  }

  static constexpr const char* kMain = "new job* – Kalvio Exchange";
  TemporaryFolder folder;
  Shown program{KALVIO_DESKTOP, QString::fromStdString(folder.Path())};
};

TEST_F(OnScreen, ImportsShowsAndExportsAsTheCommandLineDoes) {
  program.Await("new job – Kalvio Exchange");
  Choose("alt+i", "FImportJB2File");
  program.Await("JB2 file import");
  program.Type("field.jb2");
  program.Press({"Return"});
  program.Await("JB2 file import");  // now its report
  program.Press({"alt+c"});
  const QString report =
      program.Clipboard([](const QString& text) { return text.contains("3 points"); });
  EXPECT_TRUE(report.contains("1 job, 2 stations, 3 points")) << report.toStdString();
  program.Press({"Escape"});
  program.Await(kMain);

  Choose("alt+i", "FImportCSVFile");
  program.Await("Import / Export text file / csv file");
  program.Press({"Tab", "Tab", "Tab", "space", "Return"});
  program.Await("Delimited fields");
  ChooseColumns();
  CloseReport("Csv file import");
  program.Press({"F9"});
  CloseReport("Coordinates");

  // The tree tells what it shows by way of the clipboard, the plan by its pixels.
  program.Click(100, 300);
  program.Press({"Home", "asterisk", "ctrl+c"});
  const QString tree =
      program.Clipboard([](const QString& text) { return text.startsWith("Jobs"); });
  EXPECT_TRUE(tree.startsWith("Jobs (1)\n\t")) << tree.toStdString();
  EXPECT_TRUE(tree.contains("\n\t\tS1 (2)\n")) << tree.toStdString();
  EXPECT_TRUE(tree.contains("\nKnown Points (1)\n")) << tree.toStdString();
  const QImage picture = Photograph();
  const QRect plan(240, 100, 740, 400);  // between the tree and the layers
  EXPECT_GT(CountOf(picture, plan, 0x006138), 20) << "the known point beside them";
  EXPECT_GT(CountOf(picture, plan, 0x0A2E8C), 20) << "the stations";

  Choose("alt+e", "FExportDXFDWGFile");
  program.Await("Dxf/Dwg file export");
  program.Type("desktop");
  program.Press({"Tab", "Down", "Down", "Return"});
  CloseReport("Dxf/Dwg file export");
  Choose("alt+e", "FExportCSVFile");
  program.Await("Import / Export text file / csv file");
  program.Press({"Down", "Down", "Tab", "Tab", "Tab", "Tab"});
  program.Type("desktop");
  program.Press({"Return"});
  program.Await("Delimited fields");
  program.Press({"Return"});
  CloseReport("Csv file export");

  for (const char* const output : {"kalvio.dxf", "kalvio.csv"}) {
    const auto run = e2e::RunKalvio(
        {"convert", folder.File("field.jb2"), folder.File("known.csv"), folder.File(output)});
    ASSERT_EQ(run.status, 0) << run.err;
  }
  EXPECT_EQ(ReadBytes(folder.File("desktop.csv")), ReadBytes(folder.File("kalvio.csv")));
  EXPECT_NE(ReadBytes(folder.File("desktop.dxf")), "");
  EXPECT_TRUE(ReadBytes(folder.File("desktop.dxf")) == ReadBytes(folder.File("kalvio.dxf")));
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  try {
    const Screen screen;
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
