#include "apps/desktop/dialogs/dialog_view.h"

#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/button_bar.h"
#include "apps/desktop/dialogs/form_grid.h"
#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"

namespace {

QGroupBox* NewFrame(const char* text) {
  auto* const frame = new QGroupBox;
  SetPlainText(frame, Translated(text));
  return frame;
}

}  // namespace

DialogView::DialogView(Dialog& dialog, const DialogShape& shape, PreviewSource* preview,
                       QWidget* parent)
    : QDialog(parent), dialog_(dialog), shape_(shape), preview_(preview) {
  setObjectName(ToQt(dialog.Name()));
  setWindowTitle(ToQt(dialog.Title()));
  setWindowModality(Qt::ApplicationModal);
  AddButtons(*NewBody());
  Refresh();
  AssignMnemonics(this);
  FocusFirst();
}

DialogView::~DialogView() = default;

// Where typing begins: at the first control that takes input.
void DialogView::FocusFirst() {
  for (const Shown& shown : controls_) {
    QWidget* const widget = shown.control->Focus();
    const QWidget* const proxy = widget->focusProxy();
    const Qt::FocusPolicy policy = (proxy == nullptr ? widget : proxy)->focusPolicy();
    const bool isInput =
        shown.row->kind != ControlKind::kShown && shown.row->kind != ControlKind::kPress;
    if (!isInput || !widget->isVisibleTo(this) || policy == Qt::NoFocus) continue;
    return widget->setFocus();
  }
}

QWidget* DialogView::NewBody() {
  auto* const body = new QWidget;
  if (const DialogRow* const row = FindDialogRow(dialog_.Name())) AddControls(row->controls, body);
  if (shape_.isHandheld) return Scrolling(body);
  constexpr int kLetters = 66;  // so that a path can be read
  body->setMinimumWidth(fontMetrics().averageCharWidth() * kLetters);
  body->layout()->setContentsMargins(0, 0, 0, 0);
  return body;
}

QWidget* DialogView::Scrolling(QWidget* body) const {
  auto* const scroll = new QScrollArea;
  scroll->setWidget(body);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return scroll;
}

// Rows of one group stand together, in a frame of their own.
void DialogView::AddControls(std::span<const ControlRow> rows, QWidget* body) {
  FormGrid form(body, shape_);
  std::optional<FormGrid> inFrame;
  for (const ControlRow& row : rows) {
    if (*row.group == '\0') {
      AddControl(row, form, nullptr);
      continue;
    }
    const bool goesOn = !controls_.empty() && controls_.back().frame != nullptr &&
                        std::string_view(controls_.back().row->group) == row.group;
    QGroupBox* const frame = goesOn ? controls_.back().frame : NewFrame(row.group);
    if (!goesOn) {
      form.AddRow(nullptr, frame, true, false);
      inFrame.emplace(frame, shape_);
    }
    AddControl(row, *inFrame, frame);
  }
  form.End();
}

void DialogView::AddControl(const ControlRow& row, FormGrid& form, QGroupBox* frame) {
  Shown shown{&row, MakeControl(row, *this), nullptr, frame};
  QWidget* const widget = shown.control->Widget();
  if (widget->objectName().isEmpty()) widget->setObjectName(row.key);
  if (row.kind == ControlKind::kPress) {
    form.AddBeside(widget);
  } else {
    shown.label = NewLabel(row, *shown.control);
    form.AddRow(shown.label, widget, shown.control->IsWide(), shown.control->Grows());
  }
  controls_.push_back(std::move(shown));
}

// Null for a control that has its text in itself.
QLabel* DialogView::NewLabel(const ControlRow& row, Control& control) const {
  const bool hasOwnText = row.kind == ControlKind::kCheck || row.kind == ControlKind::kHeading ||
                          row.kind == ControlKind::kColumns;
  if (hasOwnText || (*row.label == '\0' && row.labelOf == nullptr)) return nullptr;
  auto* const label = new QLabel;
  label->setBuddy(control.Focus());
  label->setWordWrap(shape_.isHandheld);
  SetPlainText(label, Translated(row.label));
  control.Widget()->setAccessibleName(Translated(row.label));
  return label;
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
  auto* const layout = new QVBoxLayout(this);
  auto* const contents =
      new QBoxLayout(isBeside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  layout->addLayout(contents, 1);
  contents->addWidget(&body, 1);
  contents->addWidget(bar);
  FillScreen(*this, *layout, shape_);
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
  if (isShown) shown.control->Refresh(state);
  ShowRow(shown, isShown && shown.control->HasContents());
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
}

// A frame is hidden with its last row.
void DialogView::ShowRow(Shown& shown, bool isShown) {
  shown.control->Widget()->setVisible(isShown);
  if (shown.label != nullptr) shown.label->setVisible(isShown);
  if (shown.frame == nullptr) return;
  const bool any = std::any_of(controls_.begin(), controls_.end(), [&](const Shown& each) {
    return each.frame == shown.frame && each.control->Widget()->isVisibleTo(each.frame);
  });
  shown.frame->setVisible(any);
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
