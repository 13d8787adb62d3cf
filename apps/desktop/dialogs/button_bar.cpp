#include "apps/desktop/dialogs/button_bar.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>

#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"

namespace {

// What presenters call their buttons, for the catalogues.
[[maybe_unused]] constexpr std::array kLabels = {ToXlate("OK"), ToXlate("Cancel"),
                                                 ToXlate("Select All"), ToXlate("Deselect All")};

}  // namespace

ButtonBar::ButtonBar(const std::vector<std::string_view>& labels, const DialogShape& shape,
                     const std::function<void(std::string_view)>& press) {
  for (const std::string_view label : labels) {
    const std::string name(label);
    auto* const button = new QPushButton(this);
    button->setObjectName(ToQt(name));
    button->setAutoDefault(true);
    SetPlainText(button, Translated(name.c_str()));
    connect(button, &QPushButton::clicked, button, [press, name] { press(name); });
    buttons_.push_back(button);
  }
  LayOut(shape);
}

QPushButton* ButtonBar::Button(std::string_view label) const {
  for (QPushButton* const button : buttons_) {
    if (button->objectName() == ToQt(label)) return button;
  }
  return nullptr;
}

void ButtonBar::LayOut(const DialogShape& shape) {
  if (shape.isHandheld && shape.isUpright) return LayOutInRows(shape.screen.width());
  QBoxLayout* layout = nullptr;
  if (shape.isHandheld) {
    layout = new QVBoxLayout(this);
  } else {
    layout = new QHBoxLayout(this);
    layout->addStretch();
  }
  layout->setContentsMargins(0, 0, 0, 0);
  for (QPushButton* const button : buttons_) layout->addWidget(button);
  if (shape.isHandheld) layout->addStretch();
}

// As many in a row as find room.
void ButtonBar::LayOutInRows(int width) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  constexpr int kMargin = 12;
  QHBoxLayout* row = nullptr;
  int used = 0;
  for (QPushButton* const button : buttons_) {
    button->ensurePolished();
    const int wanted = button->sizeHint().width() + layout->spacing();
    if (row == nullptr || used + wanted > width - kMargin) {
      row = new QHBoxLayout;
      layout->addLayout(row);
      used = 0;
    }
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row->addWidget(button);
    used += wanted;
  }
}
