// Every dialog in each of its shapes: all of it can be reached, by finger and by keyboard.
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <set>

#include "apps/desktop/dialogs/dialog_view.h"
#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/message_view.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "module.h"
#include "services/translate.h"
#include "tests/desktop/driver.h"
#include "tests/desktop/every_dialog.h"
#include "tests/support/temporary_folder.h"

using namespace desktop_test;

namespace {

struct Look {
  QSize screen;
  const char* language;
};

class EveryWindow : public testing::TestWithParam<Look> {
 protected:
  EveryWindow() {
    SetLanguage(GetParam().language);
    UseStyleFor(shape);
  }
  ~EveryWindow() override {
    SetLanguage("en");
    UseStyleFor({});
  }

  /// Calls `check` with each dialog's window, shown.
  void ForEach(const std::function<void(DialogView&)>& check) {
    for (const auto& dialog : EveryDialog(folder.Path())) {
      SCOPED_TRACE(std::string(dialog->Name()));
      DialogView view(*dialog, shape, nullptr, nullptr);
      view.show();
      QApplication::processEvents();
      check(view);
    }
  }

  static QList<QWidget*> Inputs(QWidget& window) {
    QList<QWidget*> inputs;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
      const bool isInput = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                           qobject_cast<QComboBox*>(widget) != nullptr ||
                           qobject_cast<QLineEdit*>(widget) != nullptr ||
                           qobject_cast<QSpinBox*>(widget) != nullptr ||
                           qobject_cast<QAbstractItemView*>(widget) != nullptr;
      const bool isPart = qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) != nullptr ||
                          qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr ||
                          qobject_cast<QTabBar*>(widget->parentWidget()) != nullptr ||
                          qobject_cast<QAbstractItemView*>(widget->parentWidget()) != nullptr;
      if (isInput && !isPart && !widget->objectName().startsWith("qt_") &&
          widget->isVisibleTo(&window)) {
        inputs.append(widget);
      }
    }
    return inputs;
  }

  TemporaryFolder folder;
  Module module;
  DialogShape shape = CPalmDevice::SelectIdDlgStd(GetParam().screen);
};

TEST_P(EveryWindow, FitsItsScreen) {
  ForEach([&](DialogView& view) {
    if (shape.isHandheld) {
      EXPECT_EQ(view.size(), shape.screen);
    } else {
      EXPECT_LE(view.sizeHint().width(), GetParam().screen.width());
      EXPECT_LE(view.sizeHint().height(), GetParam().screen.height());
    }
    for (auto* const button : view.findChildren<QPushButton*>()) {
      if (button->isHidden()) continue;
      const QRect place(button->mapTo(&view, QPoint()), button->size());
      EXPECT_GE(place.left(), 0) << button->objectName().toStdString();
      EXPECT_LE(place.right(), view.width()) << button->objectName().toStdString();
      EXPECT_GE(button->width(), button->minimumSizeHint().width());
    }
  });
}

TEST_P(EveryWindow, HasNothingWiderThanWhatScrolls) {
  if (!shape.isHandheld) GTEST_SKIP() << "a desktop makes room";
  ForEach([&](DialogView& view) {
    auto* const scroll = view.findChild<QScrollArea*>();
    ASSERT_NE(scroll, nullptr);
    EXPECT_LE(scroll->widget()->width(), scroll->viewport()->width());
    EXPECT_LE(scroll->widget()->minimumSizeHint().width(), scroll->viewport()->width());
  });
}

TEST_P(EveryWindow, CutsNoTextThatIsOnlyRead) {
  ForEach([&](DialogView& view) {
    for (auto* const label : view.findChildren<QLabel*>()) {
      if (!label->isVisibleTo(&view) || label->text().isEmpty()) continue;
      const int needed =
          label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
      EXPECT_GE(label->height(), needed) << label->text().toStdString();
      if (!label->wordWrap()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
      }
    }
    for (auto* const check : view.findChildren<QAbstractButton*>()) {
      if (!check->isVisibleTo(&view) || check->text().isEmpty()) continue;
      EXPECT_GE(check->width(), check->minimumSizeHint().width()) << check->text().toStdString();
    }
  });
}

TEST_P(EveryWindow, HasControlsForFingers) {
  if (!shape.isHandheld) GTEST_SKIP() << "a desktop has a mouse";
  ForEach([&](DialogView& view) {
    for (QWidget* const input : Inputs(view)) {
      EXPECT_GE(input->height(), shape.finger) << input->objectName().toStdString();
    }
  });
}

TEST_P(EveryWindow, HasNumbersThatFingersChange) {
  if (!shape.isHandheld) GTEST_SKIP() << "a desktop has a mouse";
  ForEach([&](DialogView& view) {
    for (auto* const box : view.findChildren<QSpinBox*>()) {
      if (!box->isVisibleTo(&view)) continue;
      const int before = box->value();
      QTest::mouseClick(box, Qt::LeftButton, {},
                        {box->width() - shape.finger / 2, shape.finger / 2});
      EXPECT_EQ(box->value(), before + 1) << box->objectName().toStdString();
      QTest::mouseClick(box, Qt::LeftButton, {},
                        {box->width() - shape.finger * 3 / 2, shape.finger / 2});
      EXPECT_EQ(box->value(), before) << box->objectName().toStdString();
    }
  });
}

TEST_P(EveryWindow, TellsItsTitle) {
  ForEach([&](DialogView& view) {
    const auto* const title = view.findChild<QLabel*>("title");
    EXPECT_EQ(title != nullptr, shape.isHandheld) << "a desktop has frames";
    if (title == nullptr) return;
    EXPECT_EQ(title->text(), view.windowTitle());
  });
}

TEST_P(EveryWindow, BeginsAtAControl) {
  ForEach([&](DialogView& view) {
    ASSERT_NE(view.focusWidget(), nullptr);
    EXPECT_TRUE(Inputs(view).contains(view.focusWidget()) ||
                qobject_cast<QAbstractSpinBox*>(view.focusWidget()->parentWidget()) != nullptr)
        << view.focusWidget()->objectName().toStdString();
  });
}

TEST_P(EveryWindow, ReachesEveryControlByTab) {
  ForEach([&](DialogView& view) {
    std::set<QWidget*> reached;
    for (QWidget* widget = view.nextInFocusChain(); widget != &view;
         widget = widget->nextInFocusChain()) {
      if ((widget->focusPolicy() & Qt::TabFocus) != 0) reached.insert(widget);
    }
    for (QWidget* const input : Inputs(view)) {
      EXPECT_TRUE(reached.contains(input)) << input->objectName().toStdString();
    }
  });
}

TEST_P(EveryWindow, NamesEveryControlForScreenReaders) {
  ForEach([&](DialogView& view) {
    for (QWidget* const input : Inputs(view)) {
      const auto* const button = qobject_cast<QAbstractButton*>(input);
      const bool hasText = button != nullptr && !button->text().isEmpty();
      const QString name = hasText ? button->text() : input->accessibleName();
      EXPECT_FALSE(name.isEmpty()) << input->objectName().toStdString();
    }
  });
}

TEST_P(EveryWindow, GivesEachLetterToOneControlOnly) {
  ForEach([&](DialogView& view) {
    std::set<QChar> letters;
    const auto take = [&](const QString& text) {
      const QString plain = QString(text).remove("&&");
      const qsizetype at = plain.indexOf('&');
      if (at < 0 || at + 1 >= plain.size()) return;
      EXPECT_TRUE(letters.insert(plain[at + 1].toLower()).second) << text.toStdString();
    };
    for (auto* const label : view.findChildren<QLabel*>()) take(label->text());
    for (auto* const button : view.findChildren<QAbstractButton*>()) take(button->text());
    EXPECT_FALSE(letters.empty());
  });
}

TEST_P(EveryWindow, ShowsMessagesWhole) {
  MessageView view(QString("Caption"),
                   QString("Impossible to write the file \"a rather long name of a file.shp\"!\n"
                           "Check if the path is valid and not proteced"),
                   52, shape, nullptr);
  view.show();
  QApplication::processEvents();
  auto& text = Find<QLabel>(view, "text");
  EXPECT_GE(text.height(), text.heightForWidth(text.width()));
  for (auto* const button : view.findChildren<QPushButton*>()) {
    EXPECT_TRUE(view.rect().contains(QRect(button->mapTo(&view, QPoint()), button->size())));
  }
}

INSTANTIATE_TEST_SUITE_P(At, EveryWindow,
                         testing::Values(Look{{240, 320}, "en"}, Look{{240, 320}, "it"},
                                         Look{{320, 240}, "en"}, Look{{320, 240}, "it"},
                                         Look{{480, 640}, "en"}, Look{{480, 640}, "it"},
                                         Look{{640, 480}, "en"}, Look{{640, 480}, "it"},
                                         Look{{1280, 1024}, "en"}, Look{{1280, 1024}, "it"}),
                         [](const auto& each) {
                           return std::to_string(each.param.screen.width()) + "x" +
                                  std::to_string(each.param.screen.height()) + each.param.language;
                         });

TEST(DialogShapes, AreChosenByTheScreen) {
  EXPECT_TRUE(CPalmDevice::SelectIdDlgStd({240, 320}).isUpright);
  EXPECT_TRUE(CPalmDevice::SelectIdDlgStd({480, 640}).isHandheld);
  EXPECT_FALSE(CPalmDevice::SelectIdDlgStd({320, 240}).isUpright);
  EXPECT_TRUE(CPalmDevice::SelectIdDlgStd({640, 480}).isHandheld);
  EXPECT_FALSE(CPalmDevice::SelectIdDlgStd({800, 600}).isHandheld);
  EXPECT_FALSE(CPalmDevice::SelectIdDlgStd({1920, 1080}).isHandheld);
}

TEST(Mnemonics, KeepAnAmpersandThatBelongsToTheText) {
  QWidget window;
  QPushButton button(&window);
  SetPlainText(&button, "&x & y");
  AssignMnemonics(&window);
  EXPECT_EQ(button.text(), "&&&x && y");
}

}  // namespace
