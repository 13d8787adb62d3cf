// The dialogs of text and CSV exchange: what they show, check, store and refuse, driven through the
// exports as a host does.
#include <nlohmann/json.hpp>

#include "tests/support/current_settings.h"
#include "tests/support/exchange_frame.h"

using namespace exchange_test;
using Names = std::vector<std::string>;

namespace {

class TextDialogs : public FrameTest {
 protected:
  int ExportTxt() { return exports.exportTxt(&parent, &document, 0); }
  int ExportCsv() { return exports.exportCsv(&parent, &document, 0); }
  int ImportTxt() { return exports.importTxt(&parent, &document, 0); }
  int ImportCsv() { return exports.importCsv(&parent, &document, 0); }

  /// Sets all values, in their order, and presses a button; a dialog that stays open is cancelled.
  void Then(DialogState values, std::string button = "OK") {
    views.Then([values = std::move(values), button = std::move(button)](Dialog& dialog) {
      for (const auto& [key, value] : values.items()) {
        EXPECT_EQ(dialog.Set(key, value), DialogSet::kDone) << key << " " << value;
      }
      return dialog.Press(button).value_or(Dialog::kCancel);
    });
  }
  void AddKnown() {
    document.GetLibPnt()->AddGrp(true)->SetLabels("G1", "", "", "");
    document.GetLibPnt()->AddGrp(true)->SetLabels("G2", "", "", "");
    for (int i = 0; i < 2; ++i) {
      document.GetLibPnt()->AddPtn(i, true)->SetNomCoord("P", "c", 1, 2, 3);
    }
  }
  std::string Text(const char* name) { return ReadFile(folder.Path(name)); }
  static ShownMessage Error(const char* text) { return {"Error", text, 48}; }

  CurrentSettings current;
};

const DialogState kColumns = {0, 2, 1, 3, 4, 7};

// ---- The main dialog ----

TEST_F(TextDialogs, ShowTheMainDialogForAnExport) {
  AddKnown();
  EXPECT_EQ(ExportTxt(), 0);
  ASSERT_EQ(views.DialogNames(), Names{"text-main"});
  EXPECT_EQ(views.dialogs[0].title, "Import / Export text file / csv file");
  EXPECT_EQ(views.dialogs[0].state, (DialogState{{"kind", 0},
                                                 {"fieldType", "fixed"},
                                                 {"folder", folder.Path() + "\\"},
                                                 {"file", ""},
                                                 {"files", nullptr},
                                                 {"unit", "all"},
                                                 {"units", {"G1", "G2"}}}));
}

TEST_F(TextDialogs, ShowTheFilesOfTheFolderForAnImportAndNoUnits) {
  WriteFile(folder.Path("b.csv"), "");
  WriteFile(folder.Path("A.CSV"), "");
  WriteFile(folder.Path("c.txt"), "");
  ImportCsv();
  EXPECT_EQ(views.dialogs[0].state["files"], (DialogState{"A", "b"}));
  EXPECT_TRUE(views.dialogs[0].state["units"].is_null());
  EXPECT_TRUE(views.dialogs[0].state["fieldType"].is_null()) << "a CSV file has no choice";
}

TEST_F(TextDialogs, ListStationsOfAllJobsAndNothingForControlPoints) {
  FillJobs();
  document.GetLibCmp()->AddJob(true);
  document.GetLibCmp()->AddSta(1, true)->SetNome("T");
  CIniFile().WriteShort("DlgExpFileTxt", "CurSelLibs", 2);
  ExportTxt();
  EXPECT_EQ(views.dialogs[0].state["units"], (DialogState{"S", "T"}));
  CIniFile().WriteShort("DlgExpFileTxt", "CurSelLibs", 1);
  ExportTxt();
  EXPECT_TRUE(views.dialogs[1].state["units"].is_null());
}

struct Refusal {
  const char* name;
  bool isImport;
  DialogState values;
  const char* text;
};

class TextRefusal : public TextDialogs, public testing::WithParamInterface<Refusal> {};

TEST_P(TextRefusal, IsToldAndTheDialogStaysOpen) {
  views.Then([&](Dialog& dialog) {
    for (const auto& [key, value] : GetParam().values.items()) dialog.Set(key, value);
    EXPECT_FALSE(dialog.Press("OK").has_value());
    return Dialog::kCancel;
  });
  EXPECT_EQ(GetParam().isImport ? ImportTxt() : ExportTxt(), 0);
  EXPECT_EQ(views.messages, std::vector{Error(GetParam().text)});
}

INSTANTIATE_TEST_SUITE_P(
    Each, TextRefusal,
    testing::Values(
        Refusal{"NoStation", false, {{"kind", 2}, {"unit", nullptr}}, "Selected station not valid"},
        Refusal{"NoKnownGroup", false, {{"unit", nullptr}}, "Selected group not valid."},
        Refusal{"NoGpsGroup", false, {{"kind", 3}, {"unit", nullptr}}, "Selected group not valid."},
        Refusal{"NoStationAtAll",
                true,
                {{"kind", 2}},
                "No station created on which to import the data."},
        Refusal{"NoGpsGroupAtAll",
                true,
                {{"kind", 3}},
                "No group created on which to import the data."},
        Refusal{"NoName", false, {{"kind", 1}}, "Enter a valid name for the export file."},
        Refusal{"NoFile", true, {{"kind", 0}}, "Select a valid file to import."}),
    [](const auto& each) { return std::string(each.param.name); });

TEST_F(TextDialogs, AskBeforeAnOlderFileIsWrittenOverAndStayOpenOnNo) {
  AddKnown();
  WriteFile(folder.Path("old.csv"), "old");
  Then({{"file", "old"}});
  EXPECT_EQ(ExportCsv(), 0);
  ASSERT_EQ(views.messages.size(), 1u);
  EXPECT_EQ(views.messages[0], (ShownMessage{"Warning", "Export file exists. Overwrite it?", 52}));
  EXPECT_EQ(Text("old.csv"), "old");
}

TEST_F(TextDialogs, ExportOneGroupOrAll) {
  AddKnown();
  Then({{"file", "one"}, {"unit", 1}});
  Then({{"fields", kColumns}});
  EXPECT_EQ(ExportCsv(), 1);
  EXPECT_EQ(Text("one.csv"), "P;1.000;2.000;3.000;c;;\n");
  Then({{"file", "all"}, {"unit", "all"}});
  Then({{"fields", kColumns}});
  EXPECT_EQ(ExportCsv(), 1);
  EXPECT_EQ(Text("all.csv"), "P;1.000;2.000;3.000;c;;\nP;1.000;2.000;3.000;c;;\n");
}

TEST_F(TextDialogs, ExportEveryStationOfEveryJobAsText) {
  FillJobs();
  document.GetLibCmp()->AddJob(true);
  document.GetLibCmp()->AddSta(1, true);
  document.GetLibCmp()->AddPun(1, 0, true)->SetNome("Q");
  Then({{"kind", 2}, {"fieldType", "fixed"}, {"file", "ts"}, {"unit", "all"}});
  Then({{"fields", {0, 7, 7, 7, 7, 7}}, {"lengths", {3, 1, 1, 1, 1, 1}}});
  EXPECT_EQ(ExportTxt(), 1);
  EXPECT_EQ(Text("ts.txt"), "P       \nQ       \n");
}

TEST_F(TextDialogs, WriteACsvFileWithSemicolonsWhateverIsStored) {
  AddKnown();
  CIniFile().WriteShort("Importazione", "Delimit", 1);
  Then({{"file", "x"}, {"unit", 0}});
  Then({{"fields", kColumns}});
  ExportCsv();
  EXPECT_TRUE(views.dialogs[1].state["separator"].is_null());
  EXPECT_EQ(Text("x.csv"), "P;1.000;2.000;3.000;c;;\n");
  EXPECT_EQ(CIniFile().ReadShort("Importazione", "Delimit", 0), 1);
}

TEST_F(TextDialogs, KeepKindAndFieldTypeForTheNextTime) {
  AddKnown();
  Then({{"kind", 0}, {"fieldType", "delimited"}, {"file", "x"}});
  Then({{"separator", "tab"}, {"fields", kColumns}});
  EXPECT_EQ(ExportTxt(), 1);
  EXPECT_EQ(CIniFile().ReadShort("DlgExpFileTxt", "RadFieldType", 0), 1);
  EXPECT_EQ(CIniFile().ReadShort("DlgExpFileTxt", "CurSelLibs", 9), 0);
  EXPECT_EQ(CIniFile().ReadShort("Importazione", "Delimit", 0), 2);
  EXPECT_EQ(Text("x.txt").substr(0, 8), "P\t1.000\t");
}

TEST_F(TextDialogs, StayOpenWhenALayoutIsCancelled) {
  AddKnown();
  views.Then([](Dialog& dialog) {
    dialog.Set("file", "x");
    EXPECT_FALSE(dialog.Press("OK").has_value());
    return Dialog::kCancel;
  });
  EXPECT_EQ(ExportCsv(), 0);
  EXPECT_EQ(views.DialogNames(), (Names{"text-main", "delimited-fields"}));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("x.csv")));
}

TEST_F(TextDialogs, ChangeTheFolderThroughItsChooser) {
  std::filesystem::create_directory(folder.Path("other"));
  WriteFile(folder.Path("other/z.txt"), "P 1 2\n");
  views.Then([](Dialog& dialog) {
    EXPECT_FALSE(dialog.Press("Change").has_value());
    EXPECT_EQ(dialog.State()["files"], (DialogState{"z"}));
    return Dialog::kCancel;
  });
  Then({{"folder", folder.Path("other")}});
  ImportTxt();
  EXPECT_EQ(views.DialogNames(), (Names{"text-main", "job-folder"}));
}

TEST_F(TextDialogs, RefuseValuesThatTheirControlsCannotHold) {
  AddKnown();
  views.Then([](Dialog& dialog) {
    EXPECT_EQ(dialog.Set("kind", 4), DialogSet::kWrongValue);
    EXPECT_EQ(dialog.Set("unit", 2), DialogSet::kWrongValue);
    EXPECT_EQ(dialog.Set("units", DialogState::array()), DialogSet::kWrongValue);
    EXPECT_EQ(dialog.Set("fieldType", "both"), DialogSet::kWrongValue);
    EXPECT_EQ(dialog.Set("colour", 1), DialogSet::kUnknownKey);
    return Dialog::kCancel;
  });
  ExportTxt();
}

// ---- Which layout opens ----

struct LayoutCase {
  bool isImport;
  bool isText;
  int kind;
  const char* fieldType;
  const char* layout;
};

class TextLayoutChoice : public TextDialogs, public testing::WithParamInterface<LayoutCase> {};

TEST_P(TextLayoutChoice, FollowsFromTheMainDialog) {
  const LayoutCase& each = GetParam();
  FillJobs();
  document.GetLibGps()->AddGrp(true);
  WriteFile(folder.Path("f.txt"), "");
  WriteFile(folder.Path("f.csv"), "");
  DialogState values = {{"kind", each.kind}, {"file", each.isImport ? "f" : "new"}};
  if (each.isText) values["fieldType"] = each.fieldType;
  Then(values);
  if (each.isImport) {
    each.isText ? ImportTxt() : ImportCsv();
  } else {
    each.isText ? ExportTxt() : ExportCsv();
  }
  EXPECT_EQ(views.DialogNames(), (Names{"text-main", each.layout}));
}

INSTANTIATE_TEST_SUITE_P(Each, TextLayoutChoice,
                         testing::Values(LayoutCase{false, true, 0, "delimited",
                                                    "delimited-fields"},
                                         LayoutCase{false, true, 1, "fixed", "fixed-fields"},
                                         LayoutCase{false, true, 2, "delimited", "ts-export"},
                                         LayoutCase{false, true, 2, "fixed", "fixed-fields"},
                                         LayoutCase{false, true, 3, "delimited", "gps-export"},
                                         LayoutCase{false, true, 3, "fixed", "fixed-fields"},
                                         LayoutCase{false, false, 2, "", "delimited-fields"},
                                         LayoutCase{false, false, 3, "", "delimited-fields"},
                                         LayoutCase{true, true, 2, "delimited", "delimited-fields"},
                                         LayoutCase{true, true, 3, "fixed", "fixed-fields"},
                                         LayoutCase{true, false, 0, "", "delimited-fields"}));

TEST_F(TextDialogs, WriteAFullExportFromItsDialogAndCloseAsCancelled) {
  FillJobs();
  Then({{"kind", 2}, {"fieldType", "delimited"}, {"file", "full"}});
  DialogState fields = DialogState::array();
  for (int i = 0; i < 18; ++i) fields.push_back(i == 0 ? 0 : 21);
  Then({{"fields", fields}, {"separator", 2}, {"angleFormat", 4}, {"quoteNames", true}});
  EXPECT_EQ(ExportTxt(), 0);
  EXPECT_EQ(Text("full.txt"), "\"P\"\n");
  EXPECT_EQ(CIniFile().ReadShort("EsportazioneCel", "Campo2", 0), 21);
  EXPECT_EQ(CIniFile().ReadShort("EsportazioneCel", "Formato", 0), 4);
  EXPECT_TRUE(CIniFile().ReadBool("EsportazioneCel", "DelApice", false));
}

// ---- Layouts ----

class TextLayoutRefusal : public TextDialogs {
 protected:
  void ExpectRefused(bool isFixed, const DialogState& values, const char* text) {
    views.messages.clear();
    AddKnown();
    Then({{"kind", 0}, {"fieldType", isFixed ? "fixed" : "delimited"}, {"file", "x"}});
    views.Then([&](Dialog& dialog) {
      for (const auto& [key, value] : values.items()) dialog.Set(key, value);
      EXPECT_FALSE(dialog.Press("OK").has_value()) << values;
      return Dialog::kCancel;
    });
    EXPECT_EQ(ExportTxt(), 0);
    EXPECT_EQ(views.messages, (std::vector<ShownMessage>{{"Error !", text, 48}})) << values;
    EXPECT_EQ(CIniFile().ReadShort("Importazione", "Num_righe", -1), -1) << "nothing is stored";
  }
};

constexpr char kIncorrect[] = "Data enterd are incorrect !";

TEST_F(TextLayoutRefusal, OfHeaderRowsOutOfRange) {
  for (const bool isFixed : {true, false}) {
    ExpectRefused(isFixed, {{"headerRows", 101}}, kIncorrect);
    ExpectRefused(isFixed, {{"headerRows", -1}}, kIncorrect);
  }
}

TEST_F(TextLayoutRefusal, OfRepeatedFields) {
  for (const bool isFixed : {true, false}) {
    ExpectRefused(isFixed, {{"fields", {0, 1, 2, 0, 7, 7}}}, kIncorrect);
  }
}

TEST_F(TextLayoutRefusal, OfWidthsOutOfRange) {
  ExpectRefused(true, {{"lengths", {0, 1, 1, 1, 1, 1}}}, kIncorrect);
  ExpectRefused(true, {{"lengths", {101, 1, 1, 1, 1, 1}}}, kIncorrect);
}

TEST_F(TextLayoutRefusal, OfACoordinateNarrowerThanTwelve) {
  for (int field = 1; field <= 3; ++field) {
    ExpectRefused(true, {{"fields", {field, 7, 7, 7, 7, 7}}, {"lengths", {11, 1, 1, 1, 1, 1}}},
                  "Numeric data must be at least 12 long!");
  }
}

// ---- Imports ----

TEST_F(TextDialogs, ImportACsvFileAsDelimited) {
  WriteFile(folder.Path("A.CSV"), "h\nP;1;2;3;c\n");
  Then({{"file", "A"}});
  Then({{"headerRows", 1}, {"fields", kColumns}});
  EXPECT_EQ(ImportCsv(), 1);
  ASSERT_EQ(document.GetLibPnt()->GetPtnArSize(0), 1);
  EXPECT_EQ(document.GetLibPnt()->GetPtnAt(0, 0)->GetCoordY(), 2);
}

TEST_F(TextDialogs, ImportATextFileOfFixedWidths) {
  WriteFile(folder.Path("f.txt"), "P          1.0\n");
  Then({{"fieldType", "fixed"}, {"file", "f"}});
  Then({{"fields", {0, 2, 7, 7, 7, 7}}, {"lengths", {2, 12, 1, 1, 1, 1}}});
  EXPECT_EQ(ImportTxt(), 1);
  EXPECT_EQ(document.GetLibPnt()->GetPtnAt(0, 0)->GetCoordX(), 1);
}

}  // namespace
