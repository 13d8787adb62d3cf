// The windows of text and CSV exchange, with the answers that the scripted host gives.
#include <QLabel>
#include <QTableWidget>

#include "tests/desktop/desktop_frame.h"

using namespace desktop_test;
using Names = std::vector<std::string>;

namespace {

const DialogState kColumns = {0, 2, 1, 3, 4, 7};

class TextWindows : public DesktopTest {};

TEST_F(TextWindows, ExportOneGroupAsCsv) {
  AddKnown();
  driver.Then({{"kind", 0}, {"unit", 1}, {"file", "one"}});
  driver.Then({{"fields", kColumns}});
  EXPECT_EQ(Call("FExportCSVFile"), 1);
  EXPECT_EQ(driver.names, (Names{"text-main", "delimited-fields"}));
  EXPECT_EQ(Text("one.csv"), "P;1.000;2.000;3.000;c;;\n");
}

TEST_F(TextWindows, ShowWhatTheExchangeIs) {
  AddKnown();
  driver.Then([](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), "Import / Export text file / csv file");
    EXPECT_EQ(Find<QLabel>(window, "direction").text(), "Export");
    EXPECT_EQ(Find<QLabel>(window, "fileKind").text(), "Text file export");
    EXPECT_FALSE(Find<QListWidget>(window, "files").isVisible());
    auto& unit = Find<QComboBox>(window, "unit");
    EXPECT_EQ(unit.itemText(0), "----------");
    EXPECT_EQ(unit.count(), 3);
    Enter(window, "kind", 1);
    EXPECT_FALSE(unit.isVisible());
    window.reject();
  });
  EXPECT_EQ(Call("FExportTXTFile"), 0);
}

TEST_F(TextWindows, ShowNoFieldTypeForACsvFile) {
  driver.Then([](QDialog& window) {
    EXPECT_EQ(Find<QLabel>(window, "fileKind").text(), "Csv file import");
    EXPECT_FALSE(Find<QRadioButton>(window, "fieldType.fixed").isVisible());
    window.reject();
  });
  EXPECT_EQ(Call("FImportCSVFile"), 0);
}

TEST_F(TextWindows, LeaveAnOlderFileAloneOnNo) {
  AddKnown();
  folder.Write("old.csv", "old");
  driver.Then({{"file", "old"}});
  driver.Answer("No");
  EXPECT_EQ(Call("FExportCSVFile"), 0);
  EXPECT_EQ(driver.messages, Names{"Export file exists. Overwrite it?"});
  EXPECT_EQ(Text("old.csv"), "old");
}

TEST_F(TextWindows, ReplaceAnOlderFileOnYes) {
  AddKnown();
  folder.Write("old.csv", "old");
  driver.Then({{"file", "old"}, {"unit", 0}});
  driver.Answer("Yes");
  driver.Then({{"fields", kColumns}});
  EXPECT_EQ(Call("FExportCSVFile"), 1);
  EXPECT_EQ(Text("old.csv"), "P;1.000;2.000;3.000;c;;\n");
}

TEST_F(TextWindows, StayOpenWhenALayoutIsCancelled) {
  AddKnown();
  driver.Then([](QDialog& window) {
    Enter(window, "file", "x");
    Press(window, "OK");
    EXPECT_TRUE(window.isVisible());
    window.reject();
  });
  driver.Push("Cancel");
  EXPECT_EQ(Call("FExportCSVFile"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder.File("x.csv")));
}

TEST_F(TextWindows, RefuseWithTheWordsOfTheirPresenter) {
  driver.Then([](QDialog& window) {
    Enter(window, "kind", 2);
    Press(window, "OK");
    EXPECT_TRUE(window.isVisible());
    window.reject();
  });
  driver.Answer("OK");
  EXPECT_EQ(Call("FImportTXTFile"), 0);
  EXPECT_EQ(driver.messages, Names{"No station created on which to import the data."});
}

TEST_F(TextWindows, KeepTheDelimitedLayoutForTheNextTime) {
  AddKnown();
  const DialogState main = {{"kind", 0}, {"fieldType", "delimited"}};
  const DialogState layout = {
      {"headerRows", 3}, {"separator", "tab"}, {"fields", kColumns}, {"quoteNames", true}};
  DialogState chosen = main;
  chosen["file"] = "x";
  driver.Then(chosen);
  driver.Then(layout);
  EXPECT_EQ(Call("FExportTXTFile"), 1);
  driver.Then([&](QDialog& window) {
    EXPECT_EQ(Shown(window, main), main);
    Enter(window, "file", "y");
    Press(window, "OK");
    window.reject();
  });
  driver.Then([&](QDialog& window) {
    EXPECT_EQ(Shown(window, layout), layout);
    window.reject();
  });
  EXPECT_EQ(Call("FExportTXTFile"), 0);
}

TEST_F(TextWindows, KeepTheFixedLayoutForTheNextTime) {
  AddKnown();
  const DialogState layout = {
      {"headerRows", 1}, {"fields", {0, 2, 1, 7, 7, 7}}, {"lengths", {5, 12, 13, 1, 1, 100}}};
  for (int round = 0; round < 2; ++round) {
    driver.Then({{"kind", 0}, {"fieldType", "fixed"}, {"file", round == 0 ? "x" : "y"}});
    driver.Then([&, round](QDialog& window) {
      if (round == 1) {
        EXPECT_EQ(Shown(window, layout), layout);
        return window.reject();
      }
      for (const auto& [key, value] : layout.items()) Enter(window, key, value);
      Press(window, "OK");
    });
    EXPECT_EQ(Call("FExportTXTFile"), round == 0 ? 1 : 0);
  }
}

struct Refusal {
  bool isFixed;
  DialogState values;
  const char* text;
};

class LayoutRefusal : public DesktopTest, public testing::WithParamInterface<Refusal> {};

TEST_P(LayoutRefusal, IsToldAndTheWindowStays) {
  AddKnown();
  driver.Then(
      {{"kind", 0}, {"fieldType", GetParam().isFixed ? "fixed" : "delimited"}, {"file", "x"}});
  driver.Then([](QDialog& window) {
    for (const auto& [key, value] : GetParam().values.items()) Enter(window, key, value);
    Press(window, "OK");
    EXPECT_TRUE(window.isVisible());
    window.reject();
  });
  driver.Answer("OK");
  EXPECT_EQ(Call("FExportTXTFile"), 0);
  EXPECT_EQ(driver.messages, Names{GetParam().text});
}

constexpr char kIncorrect[] = "Data enterd are incorrect !";
INSTANTIATE_TEST_SUITE_P(
    Each, LayoutRefusal,
    testing::Values(Refusal{false, {{"headerRows", 101}}, kIncorrect},
                    Refusal{true, {{"headerRows", -1}}, kIncorrect},
                    Refusal{false, {{"fields", {0, 1, 2, 0, 7, 7}}}, kIncorrect},
                    Refusal{true, {{"lengths", {0, 1, 1, 1, 1, 1}}}, kIncorrect},
                    Refusal{true,
                            {{"fields", {1, 7, 7, 7, 7, 7}}, {"lengths", {11, 1, 1, 1, 1, 1}}},
                            "Numeric data must be at least 12 long!"}),
    [](const auto& each) { return "Number" + std::to_string(each.index); });

TEST_F(TextWindows, PreviewTheFileAsTheLayoutReadsIt) {
  folder.Write("A.CSV", "head\nP1;1;2;3;c\nP2;4;5;6;d\n");
  driver.Then({{"kind", 0}, {"file", "A"}});
  driver.Then([](QDialog& window) {
    Enter(window, "headerRows", 1);
    Enter(window, "fields", kColumns);
    auto& table = Find<QTableWidget>(window, "preview");
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.columnCount(), 5);
    if (table.rowCount() == 2 && table.columnCount() == 5) {
      EXPECT_EQ(table.horizontalHeaderItem(1)->text(), "East");
      EXPECT_EQ(table.item(1, 0)->text(), "P2");
      EXPECT_EQ(table.item(1, 2)->text(), "5.000");
      EXPECT_EQ(table.item(0, 4)->text(), "c");
    }
    Press(window, "OK");
  });
  EXPECT_EQ(Call("FImportCSVFile"), 1);
  // The preview itself brought nothing into the job.
  EXPECT_EQ(document.GetLibPnt()->GetGrpArSize(), 1);
  EXPECT_EQ(document.GetLibPnt()->GetPtnArSize(0), 2);
  EXPECT_EQ(CIniFile().ReadShort("Importazione", "Num_righe", 0), 1);
}

TEST_F(TextWindows, ChangeTheFolderThroughItsChooser) {
  std::filesystem::create_directory(folder.File("other"));
  folder.Write("other/z.txt", "P 1 2\n");
  driver.Then([](QDialog& window) {
    Press(window, "Change");
    EXPECT_EQ(Find<QListWidget>(window, "files").count(), 1);
    window.reject();
  });
  driver.Then([&](QDialog& window) {
    EXPECT_EQ(window.objectName(), "job-folder");
    Type(window, "folder", folder.File("other"));
    Press(window, "OK");
  });
  EXPECT_EQ(Call("FImportTXTFile"), 0);
}

TEST_F(TextWindows, WriteAFullExportAndKeepItsThreeTabs) {
  AddJob();
  DialogState layout = {{"fields", DialogState::array()},
                        {"decimals", DialogState::array()},
                        {"separator", 2},
                        {"quoteNames", true},
                        {"angleFormat", 4}};
  for (int i = 0; i < 18; ++i) {
    layout["fields"].push_back(i == 0 ? 0 : 21);
    layout["decimals"].push_back(i % 10);
  }
  driver.Then({{"kind", 2}, {"fieldType", "delimited"}, {"file", "full"}});
  driver.Then([&](QDialog& window) {
    auto& tabs = Find<QTabWidget>(window, "fields");
    EXPECT_EQ(tabs.count(), 3);
    EXPECT_EQ(Find<QComboBox>(window, "fields.0").itemText(12), "C.Noth - Sing.Pt");
    EXPECT_EQ(Find<QComboBox>(window, "angleFormat").itemText(4), "Grads ( gg.ddddddddd )");
    for (const auto& [key, value] : layout.items()) Enter(window, key, value);
    Press(window, "OK");
  });
  EXPECT_EQ(Call("FExportTXTFile"), 0) << "the dialog has written the file itself";
  EXPECT_TRUE(views.HasWritten());
  EXPECT_EQ(Text("full.txt"), "\"P\"\n");
  driver.Then({{"kind", 2}, {"fieldType", "delimited"}, {"file", "again"}});
  driver.Then([&](QDialog& window) {
    EXPECT_EQ(Shown(window, layout), layout);
    window.reject();
  });
  Call("FExportTXTFile");
}

TEST_F(TextWindows, ShowTheGpsCatalogueForAGpsExport) {
  document.GetLibGps()->AddGrp(true)->SetNomeGrp("base");
  driver.Then({{"kind", 3}, {"fieldType", "delimited"}, {"file", "g"}});
  driver.Then([](QDialog& window) {
    EXPECT_EQ(window.objectName(), "gps-export");
    EXPECT_EQ(Find<QComboBox>(window, "fields.5").itemText(13), "Quality");
    window.reject();
  });
  Call("FExportTXTFile");
}

}  // namespace
