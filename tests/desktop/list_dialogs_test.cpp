// The windows with lists of items: the LandXML pages, the Shape dialogs.
#include "model/gis.h"
#include "tests/desktop/desktop_frame.h"

using namespace desktop_test;
using Names = std::vector<std::string>;

namespace {

class ListWindows : public DesktopTest {
 protected:
  void AddTheme(const char* name) {
    auto theme = std::make_unique<gis::CTheme>(name, gis::EntityType::kPoint, false, false);
    theme->AddFeature();
    theme->AddPart();
    theme->AddVertex({1, 2});
    auto table = std::make_unique<gis::CTable>(name);
    table->AddField({"NAME", gis::FieldType::kText, 10, 0});
    const gis::Value value = std::string_view("p");
    table->AddRow({&value, 1});
    gis::CLibGis& library = *document.GetLibGis();
    theme->SetTable(library.AddTable(std::move(table), true));
    library.AddTheme(std::move(theme), true);
  }
};

TEST_F(ListWindows, WalkThroughTheLandXmlPages) {
  AddJob();
  AddKnown();
  driver.Then([](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), "Survey");
    EXPECT_EQ(Find<QListWidget>(window, "pointGroups").count(), 2);
    Enter(window, "pointGroups", {1});
    Press(window, ">>");
  });
  driver.Then([](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), "Triangulation");
    Press(window, "<<");
  });
  driver.Then([](QDialog& window) {
    EXPECT_EQ(Find<QListWidget>(window, "pointGroups").item(1)->checkState(), Qt::Checked)
        << "a page shown again keeps its marks";
    Press(window, ">>");
  });
  driver.Push(">>");
  driver.Then([](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), "Road Projects");
    Press(window, "Cancel");
  });
  driver.Then({{"path", "out"}});
  EXPECT_EQ(Call("FExportLandXMLFile"), 1);
  EXPECT_EQ(driver.names, (Names{"landxml-survey", "landxml-triangulation", "landxml-survey",
                                 "landxml-triangulation", "landxml-roads", "file"}));
  const std::string xml = Text("out.xml");
  EXPECT_NE(xml.find("G2"), std::string::npos);
  EXPECT_EQ(xml.find("G1"), std::string::npos);
}

TEST_F(ListWindows, SelectAndDeselectAll) {
  AddJob();
  AddKnown();
  driver.Then([](QDialog& window) {
    auto& jobs = Find<QListWidget>(window, "jobs");
    Press(window, "Select All");
    EXPECT_EQ(jobs.item(0)->checkState(), Qt::Checked);
    EXPECT_TRUE(window.isVisible());
    Press(window, "Deselect All");
    EXPECT_EQ(jobs.item(0)->checkState(), Qt::Unchecked);
    window.reject();
  });
  driver.Push("Cancel");
  EXPECT_EQ(Call("FExportLandXMLFile"), 1) << "the file dialog was shown";
}

TEST_F(ListWindows, ExportTheCheckedThemesAsShapeFiles) {
  AddTheme("roads");
  AddTheme("trees");
  std::filesystem::create_directory(folder.File("out"));
  driver.Then([&](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), "Export to Shape file");
    EXPECT_EQ(Find<QComboBox>(window, "coordinateType").itemText(0), "From Theme");
    Enter(window, "themes", {1});
    Enter(window, "coordinateType", 1);
    Enter(window, "maxChars", 20);
    Press(window, "OK");
  });
  EXPECT_EQ(Call("FExportEntInFileShape"), 1);
  EXPECT_TRUE(std::filesystem::exists(folder.File("trees.shp")));
  EXPECT_FALSE(std::filesystem::exists(folder.File("roads.shp")));
}

TEST_F(ListWindows, RefuseTooFewCharactersForShapeFiles) {
  AddTheme("trees");
  driver.Then([](QDialog& window) {
    Enter(window, "themes", {0});
    Enter(window, "maxChars", 9);
    Press(window, "OK");
    EXPECT_TRUE(window.isVisible());
    window.reject();
  });
  driver.Answer("OK");
  EXPECT_EQ(Call("FExportEntInFileShape"), 0);
  EXPECT_EQ(driver.messages.size(), 1u);
}

TEST_F(ListWindows, ImportAShapeFileWithItsPoints) {
  AddTheme("trees");
  driver.Then({{"themes", {0}}});
  ASSERT_EQ(Call("FExportEntInFileShape"), 1);
  HostDocument other;
  driver.Then([](QDialog& window) {
    auto& create = Find<QCheckBox>(window, "createPoints");
    EXPECT_FALSE(create.isVisible()) << "no file is chosen";
    Enter(window, "file", "trees");
    EXPECT_TRUE(create.isVisible());
    auto& name = Find<QComboBox>(window, "nameField");
    EXPECT_TRUE(name.isVisible());
    EXPECT_FALSE(name.isEnabled());
    create.click();
    EXPECT_TRUE(name.isEnabled());
    EXPECT_EQ(name.itemText(1), "NAME");
    Enter(window, "nameField", 1);
    Press(window, "OK");
  });
  driver.Answer("OK");
  EXPECT_EQ(module.Call("FImportEntFromFileShape", parent, other).value, 1);
  EXPECT_EQ(driver.messages, Names{"File imported successfully"});
  ASSERT_EQ(other.GetLibPnt()->GetGrpArSize(), 1);
  EXPECT_EQ(other.GetLibPnt()->GetPtnAt(0, 0)->GetNome().ToUtf8(), "p");
}

TEST_F(ListWindows, WantAShapeFile) {
  driver.Then([](QDialog& window) {
    Press(window, "OK");
    EXPECT_TRUE(window.isVisible());
    window.reject();
  });
  driver.Answer("OK");
  EXPECT_EQ(Call("FImportEntFromFileShape"), 1);
  EXPECT_EQ(driver.messages, Names{"Select a file to be imported before continuing."});
}

}  // namespace
