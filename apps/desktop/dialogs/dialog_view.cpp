#include "apps/desktop/dialogs/dialog_view.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/button_bar.h"
#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"

DialogView::DialogView(Dialog& dialog, const DialogShape& shape, PreviewSource* preview,
                       QWidget* parent)
    : QDialog(parent), dialog_(dialog), shape_(shape), preview_(preview) {
  setObjectName(ToQt(dialog.Name()));
  setWindowTitle(ToQt(dialog.Title()));
  setWindowModality(Qt::ApplicationModal);
  DressForHandheld(*this, shape);
  AddButtons(*NewBody());
  Refresh();
  AssignMnemonics(this);
  if (!controls_.empty()) controls_.front().control->Focus()->setFocus();
}

DialogView::~DialogView() = default;

QWidget* DialogView::NewBody() {
  auto* const body = new QWidget;
  auto* const form = new QFormLayout(body);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  if (shape_.isHandheld) {
    constexpr int kMargin = 4;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->setContentsMargins(kMargin / 2, kMargin, kMargin / 2, kMargin);
    form->setVerticalSpacing(kMargin);
  }
  if (const DialogRow* const row = FindDialogRow(dialog_.Name())) {
    for (const ControlRow& control : row->controls) AddControl(control, *form);
  }
  if (!shape_.isHandheld) return body;
  auto* const scroll = new QScrollArea;
  scroll->setWidget(body);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return scroll;
}

QFormLayout* DialogView::FormOf(const ControlRow& row, QFormLayout& body, QGroupBox*& frame) {
  if (*row.group == '\0') return &body;
  if (!controls_.empty() && controls_.back().frame != nullptr &&
      std::string_view(controls_.back().row->group) == row.group) {
    frame = controls_.back().frame;
    return controls_.back().form;
  }
  frame = new QGroupBox;
  SetPlainText(frame, Translated(row.group));
  auto* const form = new QFormLayout(frame);
  form->setRowWrapPolicy(body.rowWrapPolicy());
  form->setFieldGrowthPolicy(body.fieldGrowthPolicy());
  body.addRow(frame);
  return form;
}

void DialogView::AddControl(const ControlRow& row, QFormLayout& body) {
  Shown shown{&row, MakeControl(row, *this)};
  shown.form = FormOf(row, body, shown.frame);
  QWidget* const widget = shown.control->Widget();
  if (widget->objectName().isEmpty()) widget->setObjectName(row.key);
  const bool hasOwnText = row.kind == ControlKind::kCheck || row.kind == ControlKind::kPress ||
                          row.kind == ControlKind::kHeading || row.kind == ControlKind::kColumns;
  if (!hasOwnText && (*row.label != '\0' || row.labelOf != nullptr)) {
    shown.label = new QLabel;
    shown.label->setBuddy(shown.control->Focus());
    shown.label->setWordWrap(shape_.isHandheld);
    SetPlainText(shown.label, Translated(row.label));
    widget->setAccessibleName(Translated(row.label));
  }
  if (!shown.control->IsWide()) {
    shown.form->addRow(shown.label, widget);
  } else {
    if (shown.label != nullptr) shown.form->addRow(shown.label);
    shown.form->addRow(widget);
  }
  if (shown.control->Grows()) {
    widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  }
  controls_.push_back(std::move(shown));
}

// All buttons but those that stand within the contents.
void DialogView::AddButtons(QWidget& body) {
  std::vector<std::string_view> labels = dialog_.Buttons();
  std::erase_if(labels, [this](std::string_view label) {
    return std::any_of(controls_.begin(), controls_.end(),
                       [&](const Shown& shown) { return shown.row->key == label; });
  });
  auto* const bar = new ButtonBar(labels, shape_, [this](std::string_view label) { Press(label); });
  const bool isBeside = shape_.isHandheld && !shape_.isUpright;
  auto* const layout =
      new QBoxLayout(isBeside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
  if (shape_.isHandheld) {
    constexpr int kMargin = 4;
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
  }
  layout->addWidget(&body, 1);
  layout->addWidget(bar);
  for (const char* const usual : {">>", "OK"}) {
    if (QPushButton* const button = bar->Button(usual)) button->setDefault(true);
  }
}

void DialogView::Refresh() {
  const DialogState state = dialog_.State();
  for (Shown& shown : controls_) Refresh(shown, state);
}

void DialogView::Refresh(Shown& shown, const DialogState& state) {
  const ControlRow& row = *shown.row;
  const bool isShown = row.isShown == nullptr || row.isShown(state);
  ShowRow(shown, isShown);
  if (!isShown) return;
  if (row.isEnabled != nullptr) shown.control->Widget()->setEnabled(row.isEnabled(state));
  if (row.labelOf != nullptr && shown.label != nullptr) {
    const QString text = Translated(row.labelOf(state));
    if (PlainText(shown.label) != text) {
      SetPlainText(shown.label, text);
      shown.control->Widget()->setAccessibleName(text);
      AssignMnemonics(this);
    }
  }
  shown.control->Refresh(state);
}

// A frame is hidden with its last row.
void DialogView::ShowRow(Shown& shown, bool isShown) {
  QFormLayout& form = *shown.form;
  form.setRowVisible(shown.control->Widget(), isShown);
  if (shown.label != nullptr && shown.control->IsWide()) form.setRowVisible(shown.label, isShown);
  if (shown.frame != nullptr) {
    const bool any = std::any_of(controls_.begin(), controls_.end(), [&](const Shown& each) {
      return each.frame == shown.frame && each.control->Widget()->isVisibleTo(each.frame);
    });
    shown.frame->setVisible(any);
  }
}

void DialogView::Put(const char* key, const DialogState& value) {
  // A value that the presenter does not take is shown as it was.
  dialog_.Set(key, value);
  Refresh();
}

// Nothing may be thrown through the toolkit, so it is kept until the dialog has closed.
void DialogView::Press(std::string_view button) {
  if (code_) return;
  try {
    if (const auto code = dialog_.Press(button)) return Close(*code);
    Refresh();
  } catch (...) {
    failure_ = std::current_exception();
    Close(Dialog::kCancel);
  }
}

std::optional<PointPreview> DialogView::Preview() {
  if (preview_ == nullptr) return std::nullopt;
  return preview_->Preview(dialog_.Name(), dialog_.State());
}

void DialogView::reject() { Press("Cancel"); }

void DialogView::Close(int code) {
  code_ = code;
  hide();
  if (onClosed) onClosed();
}
