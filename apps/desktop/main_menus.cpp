// The menus of the main window.
#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <array>

#include "apps/desktop/icons.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/plan/plan_view.h"
#include "apps/desktop/qt_text.h"
#include "apps/desktop/user_settings.h"
#include "services/measure_system.h"

namespace {

QMenu& AddMenu(QMenuBar& bar, const char* text, const char* name) {
  QMenu& menu = *bar.addMenu(Translated(text));
  menu.setObjectName(name);
  return menu;
}

void AddChoice(QMenu& menu, QActionGroup& group, const QString& text, const QString& name,
               bool isChosen, const std::function<void()>& action) {
  QAction* const choice = menu.addAction(text);
  choice->setObjectName(name);
  choice->setCheckable(true);
  choice->setChecked(isChosen);
  group.addAction(choice);
  QObject::connect(choice, &QAction::triggered, choice, action);
}

}  // namespace

QAction* MainWindow::AddAction(QMenu& menu, const char* text, const char* name,
                               std::function<void()> action) {
  QAction* const added = menu.addAction(Translated(text));
  added->setObjectName(name);
  connect(added, &QAction::triggered, this, [action = std::move(action)] { action(); });
  return added;
}

// Anew for every language.
void MainWindow::MakeMenus() {
  if (tools_ != nullptr) tools_->clear();
  menuBar()->clear();
  qDeleteAll(menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
  MakeJobMenu();
  MakeExchangeMenus();
  MakeEditMenu();
  MakeViewMenu();
  MakeSettingsMenu();
  MakeToolBar();
}

// What is used most, with icons; all of it stands in the menus as well.
void MainWindow::MakeToolBar() {
  constexpr std::pair<const char*, Picture> kTools[] = {{"new", Picture::kNew},
                                                        {"openFolder", Picture::kOpen},
                                                        {"save", Picture::kSave},
                                                        {"", {}},
                                                        {"menuImport", Picture::kImport},
                                                        {"menuExport", Picture::kExport},
                                                        {"", {}},
                                                        {"undo", Picture::kUndo},
                                                        {"compute", Picture::kCompute},
                                                        {"", {}},
                                                        {"fit", Picture::kFit},
                                                        {"zoomIn", Picture::kZoomIn},
                                                        {"zoomOut", Picture::kZoomOut}};
  for (const auto& [name, picture] : kTools) {
    if (auto* const menu = findChild<QMenu*>(name); *name != '\0' && menu != nullptr) {
      AddTool(*menu, IconOf(picture));
    } else if (auto* const action = findChild<QAction*>(name); *name != '\0') {
      action->setIcon(IconOf(picture));
      AddTool(*action);
    } else if (tools_ != nullptr) {
      tools_->addSeparator();
    }
  }
}

void MainWindow::AddTool(QAction& action) {
  if (tools_ == nullptr) return;
  tools_->addAction(&action);
  QWidget* const button = tools_->widgetForAction(&action);
  button->setAccessibleName(action.text());
  button->setFocusPolicy(Qt::TabFocus);
}

// The menu bar shows the menu by its name alone.
void MainWindow::AddTool(QMenu& menu, const QIcon& icon) {
  if (tools_ == nullptr) return;
  auto* const button = new QToolButton;
  button->setText(menu.title().remove('&'));
  button->setToolTip(button->text());
  button->setAccessibleName(button->text());
  button->setIcon(icon);
  button->setMenu(&menu);
  button->setPopupMode(QToolButton::InstantPopup);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setFocusPolicy(Qt::TabFocus);
  tools_->addWidget(button);
}

void MainWindow::MakeJobMenu() {
  QMenu& menu = AddMenu(*menuBar(), ToXlate("&Job"), "menuJob");
  AddAction(menu, ToXlate("New"), "new", [this] { NewJob(); })->setShortcut(QKeySequence::New);
  AddAction(menu, ToXlate("Open a job folder…"), "openFolder", [this] {
    AskAndOpen(true);
  })->setShortcut(QKeySequence::Open);
  AddAction(menu, ToXlate("Open a JSON document…"), "openDocument", [this] { AskAndOpen(false); });
  QMenu* const recent = menu.addMenu(Translated(ToXlate("Recent jobs")));
  recent->setObjectName("recent");
  connect(recent, &QMenu::aboutToShow, this, [this, recent] {
    recent->clear();
    for (const QString& path : RecentJobs()) {
      connect(recent->addAction(QString(path).replace('&', "&&")), &QAction::triggered, this,
              [this, path] { OpenOrImport(ToUtf8(path)); });
    }
    if (recent->isEmpty()) {
      recent->addAction(Translated(ToXlate("No job was open yet")))->setEnabled(false);
    }
  });
  menu.addSeparator();
  AddAction(menu, ToXlate("Save"), "save", [this] { Save(); })->setShortcut(QKeySequence::Save);
  AddAction(menu, ToXlate("Save as a job folder…"), "saveFolder", [this] { SaveAs(true); });
  AddAction(menu, ToXlate("Save as a JSON document…"), "saveDocument", [this] { SaveAs(false); });
  menu.addSeparator();
  AddAction(menu, ToXlate("Quit"), "quit", [this] { close(); })->setShortcut(QKeySequence::Quit);
}

void MainWindow::MakeExchangeMenus() {
  QMenu& imports = AddMenu(*menuBar(), ToXlate("&Import"), "menuImport");
  QMenu& exports = AddMenu(*menuBar(), ToXlate("&Export"), "menuExport");
  for (const ExchangeCommand& command : ExchangeTable()) {
    const char* const name = command.function == nullptr ? "LandXmlImport" : command.function;
    AddAction(command.isImport ? imports : exports, command.text, name,
              [this, &command] { Run(command); });
  }
}

void MainWindow::MakeEditMenu() {
  QMenu& menu = AddMenu(*menuBar(), ToXlate("E&dit"), "menuEdit");
  undo_ = AddAction(menu, ToXlate("Undo the last import"), "undo", [this] { Undo(); });
  undo_->setShortcut(QKeySequence::Undo);
  menu.addSeparator();
  AddAction(menu, ToXlate("Copy"), "copy", [this] { Copy(); })->setShortcut(QKeySequence::Copy);
  menu.addSeparator();
  AddAction(menu, ToXlate("Work out coordinates"), "compute", [this] {
    Compute(false);
  })->setShortcut(Qt::Key_F9);
  AddAction(menu, ToXlate("Work out all coordinates anew"), "computeAnew",
            [this] { Compute(true); });
}

void MainWindow::MakeViewMenu() {
  QMenu& menu = AddMenu(*menuBar(), ToXlate("&Plan"), "menuPlan");
  AddAction(menu, ToXlate("Fit"), "fit", [this] {
    plan_->Fit();
  })->setShortcut(QKeySequence("Ctrl+0"));
  AddAction(menu, ToXlate("Zoom in"), "zoomIn", [this] {
    plan_->ZoomIn();
  })->setShortcut(QKeySequence::ZoomIn);
  AddAction(menu, ToXlate("Zoom out"), "zoomOut", [this] {
    plan_->ZoomOut();
  })->setShortcut(QKeySequence::ZoomOut);
  if (auto* const dock = findChild<QDockWidget*>("layersDock")) {
    menu.addSeparator();
    menu.addAction(dock->toggleViewAction());
  }
}

void MainWindow::MakeSettingsMenu() {
  QMenu& menu = AddMenu(*menuBar(), ToXlate("&Settings"), "menuSettings");
  QMenu* const languages = menu.addMenu(Translated(ToXlate("Language")));
  auto* const languageGroup = new QActionGroup(languages);
  for (const std::string_view code : Languages()) {
    const std::string name(code);
    AddChoice(*languages, *languageGroup, name == "it" ? "Italiano" : "English",
              ToQt("language." + name), code == Language(), [this, name] {
                // Not while the menu that this comes from is still there.
                QMetaObject::invokeMethod(
                    this, [this, name] { SetLanguageTo(name); }, Qt::QueuedConnection);
              });
  }
  QMenu* const angles = menu.addMenu(Translated(ToXlate("Angle unit")));
  auto* const angleGroup = new QActionGroup(angles);
  constexpr std::array kUnits = {ToXlate("Gon"), ToXlate("Decimal degrees"),
                                 ToXlate("Degrees, minutes, seconds")};
  connect(angles, &QMenu::aboutToShow, angleGroup, [angleGroup] {
    angleGroup->actions().at(static_cast<int>(CMeasureSystem::GetAngleUnit()))->setChecked(true);
  });
  for (int unit = 0; unit < static_cast<int>(kUnits.size()); ++unit) {
    AddChoice(*angles, *angleGroup, Translated(kUnits[static_cast<std::size_t>(unit)]),
              QString("angle.%1").arg(unit),
              unit == static_cast<int>(CMeasureSystem::GetAngleUnit()),
              [this, unit] { SetAngleUnit(unit); });
  }
  AddAction(menu, ToXlate("Reference system…"), "referenceSystem",
            [this] { AskReferenceSystem(); });
}
