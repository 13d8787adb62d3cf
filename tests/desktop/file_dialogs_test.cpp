// The windows that choose files and folders, the options of drawings, message boxes, waiting.
#include <QLabel>
#include <QProgressBar>

#include "apps/desktop/dialogs/message_view.h"
#include "apps/desktop/dialogs/wait_view.h"
#include "platform/paths.h"
#include "services/file_dialog.h"
#include "services/job_folder_dialog.h"
#include "services/message_box.h"
#include "tests/desktop/desktop_frame.h"

using namespace desktop_test;
using Names = std::vector<std::string>;

namespace {

class FileWindow : public DesktopTest {
 protected:
  /// Runs the file dialog; the path that it gives, empty when it was cancelled.
  std::string Ask(bool isImport, const char* extensions = "jb2") {
    CDlgImportExportGeneric dialog(CCloudManager::GetInstance(), &parent, -1);
    dialog.SetVars(CJobsFolder::GetJobNameFolderWthSlash(), "Choose", extensions, isImport, {});
    if (dialog.DoModal() != Dialog::kOk) return {};
    tdk::WString path;
    dialog.GetVars(path);
    return platform::NativePath(path.ToUtf8());
  }
};

TEST_F(FileWindow, ListsFoldersAndTheFilesOfItsExtensions) {
  std::filesystem::create_directory(folder.File("sub"));
  folder.Write("a.jb2", "");
  folder.Write("B.JB2", "");
  folder.Write("c.txt", "");
  driver.Then([](QDialog& window) {
    QStringList names;
    auto& list = Find<QListWidget>(window, "places");
    for (int i = 0; i < list.count(); ++i) names.append(list.item(i)->text());
    EXPECT_EQ(names, (QStringList{"..", "sub", "a.jb2", "B.JB2"}));
    EXPECT_EQ(window.windowTitle(), "Choose");
    window.reject();
  });
  EXPECT_EQ(Ask(true), "");
}

TEST_F(FileWindow, TakesAFileByAClick) {
  folder.Write("a.jb2", "");
  driver.Then([](QDialog& window) {
    auto& list = Find<QListWidget>(window, "places");
    Q_EMIT list.itemClicked(list.item(1));
    EXPECT_EQ(Find<QLineEdit>(window, "path").text(), "a.jb2");
    Press(window, "OK");
  });
  EXPECT_EQ(Ask(true), folder.File("a.jb2"));
}

TEST_F(FileWindow, GoesIntoAFolderAndTakesAFileThere) {
  std::filesystem::create_directory(folder.File("sub"));
  folder.Write("sub/b.jb2", "");
  driver.Then([](QDialog& window) {
    auto& list = Find<QListWidget>(window, "places");
    Q_EMIT list.itemActivated(list.item(1));
    EXPECT_EQ(list.count(), 2);
    Q_EMIT list.itemActivated(list.item(1));
  });
  EXPECT_EQ(Ask(true), folder.File("sub/b.jb2"));
}

TEST_F(FileWindow, AddsTheExtensionToATypedName) {
  driver.Then({{"path", "plan"}});
  EXPECT_EQ(Ask(false), folder.File("plan.jb2"));
  driver.Then({{"path", "plan.JB2"}});
  EXPECT_EQ(Ask(false), folder.File("plan.JB2"));
}

TEST_F(FileWindow, TakesAPathFromTheRoot) {
  driver.Then({{"path", folder.File("x.jb2")}});
  EXPECT_EQ(Ask(false), folder.File("x.jb2"));
}

TEST_F(FileWindow, AsksBeforeAnExportReplacesAFile) {
  folder.Write("old.jb2", "old");
  driver.Then({{"path", "old"}});
  driver.Answer("No");
  EXPECT_EQ(Ask(false), "");
  driver.Then({{"path", "old"}});
  driver.Answer("Yes");
  EXPECT_EQ(Ask(false), folder.File("old.jb2"));
  EXPECT_EQ(driver.messages, Names(2, "Export file exists. Overwrite it?"));
}

TEST_F(FileWindow, WantsAFile) {
  driver.Push("OK");
  driver.Answer("OK");
  EXPECT_EQ(Ask(true), "");
  driver.Then({{"path", "nothing-there"}});
  driver.Answer("OK");
  EXPECT_EQ(Ask(true), "");
  driver.Push("OK");
  driver.Answer("OK");
  EXPECT_EQ(Ask(false), "");
  EXPECT_EQ(driver.messages,
            (Names{"Select a valid file to import.", "Select a valid file to import.",
                   "Enter a valid name for the export file."}));
}

TEST_F(FileWindow, ImportsAJb2FileThroughTheModule) {
  folder.Write("a.jb2", "J|JOB,,,\n");
  driver.Then({{"path", "a.jb2"}});
  EXPECT_EQ(Call("FImportJB2File"), 1);
  EXPECT_EQ(driver.names, Names{"file"});
}

// ---- Drawings ----

TEST_F(FileWindow, KeepsTheOptionsOfADrawing) {
  const DialogState options = {{"version", 3}, {"explode", true}, {"notVisible", true}};
  driver.Then([&](QDialog& window) {
    EXPECT_EQ(Find<QComboBox>(window, "version").itemText(0), "DWG AutoCAD 2000(*.DWG)");
    for (const auto& [key, value] : options.items()) Enter(window, key, value);
    Enter(window, "path", "plan");
    Press(window, "OK");
  });
  EXPECT_EQ(Call("FExportDXFDWGFile"), 1);
  EXPECT_TRUE(std::filesystem::exists(folder.File("plan.dxf")));
  driver.Then([&](QDialog& window) {
    EXPECT_EQ(Shown(window, options), options);
    window.reject();
  });
  EXPECT_EQ(Call("FExportDXFDWGFile"), 0);
}

TEST_F(FileWindow, AsksAboutTheDrawingThatTheVersionCallsFor) {
  folder.Write("plan.dwg", "old");
  driver.Then({{"version", 0}, {"path", "plan"}});
  driver.Answer("No");
  EXPECT_EQ(Call("FExportDXFDWGFile"), 0);
  EXPECT_EQ(driver.messages, Names{"Export file exists. Overwrite it?"});
}

TEST_F(FileWindow, ShowsNoOptionsForTheImportOfADrawing) {
  driver.Then([](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), "Dxf/Dwg file import");
    EXPECT_FALSE(Find<QComboBox>(window, "version").isVisible());
    EXPECT_FALSE(Find<QCheckBox>(window, "explode").isVisible());
    window.reject();
  });
  EXPECT_EQ(Call("FImportDXFDWGFile"), 0);
}

// ---- Folders ----

TEST_F(FileWindow, ChoosesAJobFolder) {
  std::filesystem::create_directory(folder.File("job"));
  driver.Then([](QDialog& window) {
    auto& list = Find<QListWidget>(window, "places");
    Q_EMIT list.itemActivated(list.item(1));
    Press(window, "OK");
  });
  tdk::WString chosen(folder.Path());
  EXPECT_TRUE(DlgSelectJobFolder(CCloudManager::GetInstance(), &parent, chosen));
  EXPECT_EQ(platform::NativePath(chosen.ToUtf8()), folder.File("job"));
}

TEST_F(FileWindow, MakesAFolderThatIsNotThere) {
  driver.Then([&](QDialog& window) {
    EXPECT_FALSE(Find<QPushButton>(window, "newFolder").isEnabled());
    Type(window, "folder", folder.File("new"));
    Press(window, "newFolder");
    EXPECT_FALSE(Find<QPushButton>(window, "newFolder").isEnabled());
    Press(window, "OK");
  });
  tdk::WString chosen(folder.Path());
  EXPECT_TRUE(DlgSelectJobFolder(CCloudManager::GetInstance(), &parent, chosen));
  EXPECT_TRUE(std::filesystem::is_directory(folder.File("new")));
}

// ---- Message boxes ----

class MessageWindow : public DesktopTest {
 protected:
  int Show(unsigned flags) { return views.ShowMessage("Caption", "Line 1\r\nLine 2", flags); }
};

TEST_F(MessageWindow, HasItsTextAndIcon) {
  for (const unsigned flags : {kBoxExclamation, kBoxInformation}) {
    driver.Then([](QDialog& window) {
      EXPECT_EQ(window.windowTitle(), "Caption");
      EXPECT_EQ(Find<QLabel>(window, "text").text(), "Line 1\nLine 2");
      EXPECT_FALSE(Find<QLabel>(window, "icon").pixmap().isNull());
      EXPECT_EQ(window.findChild<QPushButton*>("Yes"), nullptr);
      Press(window, "OK");
    });
    EXPECT_EQ(Show(flags), kAnswerOk);
  }
}

TEST_F(MessageWindow, HasNoIconWithoutAFlag) {
  driver.Then([](QDialog& window) {
    EXPECT_TRUE(Find<QLabel>(window, "icon").pixmap().isNull());
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  EXPECT_EQ(Show(0), kAnswerOk);
}

TEST_F(MessageWindow, AsksYesOrNo) {
  driver.Answer("Yes");
  EXPECT_EQ(Show(kBoxYesNo | kBoxExclamation), kAnswerYes);
  driver.Answer("No");
  EXPECT_EQ(Show(kBoxYesNo | kBoxExclamation), kAnswerNo);
}

TEST_F(MessageWindow, TakesEscapeAndEnterForNo) {
  for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
    driver.Then([key](QDialog& window) {
      QTest::keyClick(window.focusWidget() == nullptr ? &window : window.focusWidget(), key);
    });
    EXPECT_EQ(Show(kBoxYesNo), kAnswerNo);
  }
}

// ---- Waiting ----

TEST_F(DesktopTest, WaitWindowShowsHowFarItIs) {
  WaitView wait(DialogShape{}, true, nullptr);
  wait.ShowProgress(1, 4);
  EXPECT_EQ(Find<QProgressBar>(wait, "progress").value(), 250);
  Press(wait, "Cancel");
  EXPECT_TRUE(wait.IsCancelled());
}

TEST_F(DesktopTest, WaitWindowOffersNoCancelWhereSomethingWouldBeHalfDone) {
  WaitView wait(DialogShape{}, false, nullptr);
  EXPECT_EQ(wait.findChild<QPushButton*>("Cancel"), nullptr);
  wait.reject();
  EXPECT_FALSE(wait.IsCancelled());
}

TEST_F(DesktopTest, StoppedWorkIsLeftByAnException) {
  views.AllowCancel(true);
  views.StartWait();
  QTimer::singleShot(0, [] {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "wait") Press(*window, "Cancel");
    }
  });
  EXPECT_THROW(
      {
        QTest::qWait(100);
        views.ShowProgress(1, 2);
      },
      ExchangeStopped);
  EXPECT_TRUE(views.WasCancelled());
}

}  // namespace
