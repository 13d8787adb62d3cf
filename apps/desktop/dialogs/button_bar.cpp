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

bool IsOnContents(const QPushButton& button) {
  const QString name = button.objectName();
  return name == "Select All" || name == "Deselect All" || name == "Copy";
}

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
  if (!shape.isHandheld) return LayOutOnDesktop();
  if (shape.isUpright) return LayOutInRows(shape.screen.width());
  auto* const layout = new QVBoxLayout(this);
  for (QPushButton* const button : buttons_) layout->addWidget(button);
  layout->addStretch();
}

void ButtonBar::LayOutOnDesktop() {
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (QPushButton* const button : buttons_) {
    if (IsOnContents(*button)) layout->addWidget(button);
  }
  layout->addStretch();
  for (QPushButton* const button : buttons_) {
    if (!IsOnContents(*button)) layout->addWidget(button);
  }
}

// As many in a row as find room.
void ButtonBar::LayOutInRows(int width) {
  auto* const layout = new QVBoxLayout(this);
  const int margins = layout->contentsMargins().left() + layout->contentsMargins().right();
  QHBoxLayout* row = nullptr;
  int used = 0;
  for (QPushButton* const button : buttons_) {
    button->ensurePolished();
    const int wanted = button->sizeHint().width() + layout->spacing();
    if (row == nullptr || used + wanted > width - margins) {
      row = new QHBoxLayout;
      layout->addLayout(row);
      used = 0;
    }
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row->addWidget(button);
    used += wanted;
  }
}
