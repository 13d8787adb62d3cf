#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/control.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/dialogs/rows_list.h"
#include "apps/desktop/qt_text.h"
#include "platform/paths.h"

namespace {

constexpr int kIsFolder = Qt::UserRole;

// A folder with what is in it: folders to go to and, for a file dialog, files and a name.
class Places : public Control {
 public:
  Places(const ControlRow& row, ControlHost& host)
      : isFile_(row.kind == ControlKind::kFile), host_(host), frame_(new QWidget) {
    auto* const layout = new QVBoxLayout(frame_);
    layout->setContentsMargins(0, 0, 0, 0);
    AddFolder(*layout);
    AddList(*layout);
    if (isFile_) {
      AddName(*layout);
    } else {
      AddNewFolder(*layout);
    }
  }

  QWidget* Widget() override { return frame_; }
  QWidget* Focus() override { return isFile_ ? name_ : folder_; }
  bool IsWide() const override { return true; }
  bool Grows() const override { return true; }

  void Refresh(const DialogState& state) override {
    const std::string folder = state.value("folder", std::string());
    const QString shown = ToQt(platform::NativePath(folder));
    if (folder_->text() != shown) folder_->setText(shown);
    ListPlaces(QDir(shown), ToQt(state.value("extensions", std::string())));
    if (isFile_) {
      const QString name = ToQt(state.value("path", std::string()));
      if (name_->text() != name) name_->setText(name);
    } else {
      newFolder_->setEnabled(!shown.isEmpty() && !QDir(shown).exists());
    }
  }

 private:
  void AddFolder(QVBoxLayout& layout) {
    folder_ = new QLineEdit;
    folder_->setObjectName("folder");
    AddLabelled(layout, ToXlate("Folder:"), *folder_);
    folder_->setReadOnly(isFile_);
    QObject::connect(folder_, &QLineEdit::textEdited, folder_,
                     [this](const QString& text) { host_.Put("folder", ToUtf8(text)); });
  }

  void AddList(QVBoxLayout& layout) {
    const DialogShape& shape = host_.Shape();
    list_ = new RowsList(!shape.isHandheld ? 10 : shape.isUpright ? 4 : 2, shape);
    list_->setObjectName("places");
    list_->setAccessibleName(isFile_ ? Translated(ToXlate("Files of the folder"))
                                     : Translated(ToXlate("Folders in the folder")));
    const int icon = list_->style()->pixelMetric(QStyle::PM_SmallIconSize);
    list_->setIconSize({icon, icon});
    layout.addWidget(list_, 1);
    QObject::connect(list_, &QListWidget::itemClicked, list_, [this](QListWidgetItem* item) {
      const bool isFolder = item->data(kIsFolder).toBool();
      if (!isFolder) host_.Put("path", ToUtf8(item->text()));
      // A finger taps once.
      if (isFolder && host_.Shape().isHandheld) GoTo(item->text());
    });
    QObject::connect(list_, &QListWidget::itemActivated, list_, [this](QListWidgetItem* item) {
      if (item->data(kIsFolder).toBool()) return GoTo(item->text());
      host_.Put("path", ToUtf8(item->text()));
      host_.Press("OK");
    });
  }

  void AddName(QVBoxLayout& layout) {
    name_ = new QLineEdit;
    name_->setObjectName("path");
    AddLabelled(layout, ToXlate("File:"), *name_);
    QObject::connect(name_, &QLineEdit::textEdited, name_,
                     [this](const QString& text) { host_.Put("path", ToUtf8(text)); });
  }

  void AddNewFolder(QVBoxLayout& layout) {
    newFolder_ = new QPushButton;
    newFolder_->setObjectName("newFolder");
    newFolder_->setAutoDefault(false);
    SetPlainText(newFolder_, Translated(ToXlate("Make this folder")));
    layout.addWidget(newFolder_);
    QObject::connect(newFolder_, &QPushButton::clicked, newFolder_, [this] {
      const QString folder = folder_->text();
      QDir().mkpath(folder);
      listed_.clear();
      host_.Put("folder", ToUtf8(folder));
    });
  }

  static void AddLabelled(QVBoxLayout& layout, const char* text, QLineEdit& line) {
    auto* const label = new QLabel;
    label->setBuddy(&line);
    SetPlainText(label, Translated(text));
    line.setAccessibleName(Translated(text));
    layout.addWidget(label);
    layout.addWidget(&line);
  }

  void GoTo(const QString& name) {
    const QString folder = QDir::cleanPath(QDir(folder_->text()).absoluteFilePath(name));
    host_.Put("folder", ToUtf8(folder));
  }

  void ListPlaces(const QDir& folder, const QString& extensions) {
    const QString listed = folder.absolutePath() + '\n' + extensions;
    if (listed == listed_) return;
    listed_ = listed;
    list_->clear();
    if (!folder.isRoot()) Add("..", true);
    for (const QString& name :
         folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase)) {
      Add(name, true);
    }
    if (!isFile_) return;
    QStringList patterns;
    for (const QString& extension : extensions.split(';')) patterns.append("*." + extension);
    for (const QString& name :
         folder.entryList(patterns, QDir::Files, QDir::Name | QDir::IgnoreCase)) {
      Add(name, false);
    }
  }

  void Add(const QString& name, bool isFolder) {
    auto* const item = new QListWidgetItem(
        list_->style()->standardIcon(isFolder ? QStyle::SP_DirIcon : QStyle::SP_FileIcon), name);
    item->setData(kIsFolder, isFolder);
    list_->addItem(item);
  }

  bool isFile_;
  ControlHost& host_;
  QWidget* frame_;
  QLineEdit* folder_ = nullptr;
  RowsList* list_ = nullptr;
  QLineEdit* name_ = nullptr;
  QPushButton* newFolder_ = nullptr;
  QString listed_;  // the folder and the extensions that the list shows
};

}  // namespace

std::unique_ptr<Control> MakeFileControl(const ControlRow& row, ControlHost& host) {
  return std::make_unique<Places>(row, host);
}
