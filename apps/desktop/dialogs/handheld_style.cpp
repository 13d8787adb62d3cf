#include "apps/desktop/dialogs/handheld_style.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

// Every control is at least a finger high, and what is pressed within it large enough to be hit.
class HandheldStyle : public QProxyStyle {
 public:
  explicit HandheldStyle(int finger)
      : QProxyStyle(QStyleFactory::create("fusion")), finger_(finger) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    switch (metric) {
      case PM_IndicatorWidth:
      case PM_IndicatorHeight:
      case PM_ExclusiveIndicatorWidth:
      case PM_ExclusiveIndicatorHeight:
      case PM_SmallIconSize:
      case PM_ListViewIconSize:
      case PM_TabBarIconSize:
      case PM_TreeViewIndentation:
      case PM_ScrollBarExtent: return finger_ * 3 / 5;
      case PM_LargeIconSize:
      case PM_MessageBoxIconSize:
      case PM_HeaderDefaultSectionSizeVertical: return finger_;
      case PM_LayoutLeftMargin:
      case PM_LayoutTopMargin:
      case PM_LayoutRightMargin:
      case PM_LayoutBottomMargin:
      case PM_LayoutHorizontalSpacing:
      case PM_LayoutVerticalSpacing: return finger_ / 7;
      default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
    const QSize high = usual.expandedTo(QSize(0, finger_));
    switch (type) {
      // A button of two letters need not be wider than a finger.
      case CT_PushButton:
        return QSize(size.width() + finger_ / 2, high.height()).expandedTo({finger_ * 3 / 2, 0});
      case CT_SpinBox: return {high.width() + 2 * finger_ - kArrows, high.height()};
      case CT_ComboBox:
      case CT_LineEdit:
      case CT_CheckBox:
      case CT_RadioButton:
      case CT_TabBarTab:
      case CT_ItemViewItem:
      case CT_MenuBarItem: return high;
      case CT_MenuItem: return IsSeparator(option) ? usual : high;
      default: return usual;
    }
  }

  // Less and more stand beside each other, at the right.
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override {
    if (control != CC_SpinBox || !HasButtons(option)) {
      return QProxyStyle::subControlRect(control, option, part, widget);
    }
    const QRect& all = option->rect;
    const int width = std::min(finger_, all.width() / 3);
    const QRect more(all.right() - width + 1, all.top(), width, all.height());
    switch (part) {
      case SC_SpinBoxUp: return more;
      case SC_SpinBoxDown: return more.translated(-width, 0);
      case SC_SpinBoxEditField: return all.adjusted(2, 2, -2 * width - 2, -2);
      default: return QProxyStyle::subControlRect(control, option, part, widget);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override {
    if (control != CC_SpinBox || !HasButtons(option)) {
      return QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    const auto& box = *static_cast<const QStyleOptionSpinBox*>(option);
    QStyleOptionSpinBox frame = box;
    frame.buttonSymbols = QAbstractSpinBox::NoButtons;
    QProxyStyle::drawComplexControl(control, &frame, painter, widget);
    const auto canStep = [&](QAbstractSpinBox::StepEnabledFlag way) {
      return (box.stepEnabled & way) != 0;
    };
    DrawStep(box, SC_SpinBoxDown, canStep(QAbstractSpinBox::StepDownEnabled), painter, widget);
    DrawStep(box, SC_SpinBoxUp, canStep(QAbstractSpinBox::StepUpEnabled), painter, widget);
  }

 private:
  static constexpr int kArrows = 20;  // pixels that the usual arrows of a number take

  static bool IsSeparator(const QStyleOption* option) {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    return item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator;
  }
  static bool HasButtons(const QStyleOptionComplex* option) {
    const auto* const box = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    return box != nullptr && box->buttonSymbols != QAbstractSpinBox::NoButtons;
  }

  void DrawStep(const QStyleOptionSpinBox& box, SubControl part, bool isEnabled, QPainter* painter,
                const QWidget* widget) const {
    QStyleOptionButton button;
    button.rect = subControlRect(CC_SpinBox, &box, part, widget);
    button.palette = box.palette;
    button.state = box.state & ~(State_Sunken | State_HasFocus | State_MouseOver | State_On);
    if (!isEnabled) button.state &= ~State_Enabled;
    if (isEnabled && box.activeSubControls == part) button.state |= box.state & State_Sunken;
    drawPrimitive(PE_PanelButtonCommand, &button, painter, widget);
    const QPalette::ColorGroup group = isEnabled ? QPalette::Active : QPalette::Disabled;
    painter->save();
    painter->setPen(QPen(box.palette.color(group, QPalette::ButtonText), 2));
    const QPoint at = button.rect.center();
    const int arm = finger_ / 7;
    painter->drawLine(at.x() - arm, at.y(), at.x() + arm, at.y());
    if (part == SC_SpinBoxUp) painter->drawLine(at.x(), at.y() - arm, at.x(), at.y() + arm);
    painter->restore();
  }

  int finger_;
};

QLabel* NewTitle(QDialog& dialog, int text) {
  auto* const title = new QLabel(dialog.windowTitle());
  title->setObjectName("title");
  title->setTextFormat(Qt::PlainText);
  title->setWordWrap(true);
  title->setMargin(text / 3);
  title->setAutoFillBackground(true);
  QPalette colors = title->palette();
  colors.setColor(QPalette::Window, QColor(0x1D4F63));
  colors.setColor(QPalette::WindowText, Qt::white);
  title->setPalette(colors);
  QFont font = title->font();
  font.setBold(true);
  title->setFont(font);
  QObject::connect(&dialog, &QWidget::windowTitleChanged, title, &QLabel::setText);
  return title;
}

}  // namespace

void UseStyleFor(const DialogShape& shape) {
  static const QFont usualFont = QApplication::font();
  static const QString usualStyle = QApplication::style()->name();
  QFont font = usualFont;
  if (shape.isHandheld) font.setPixelSize(shape.text);
  QApplication::setFont(font);
  QApplication::setStyle(shape.isHandheld ? new HandheldStyle(shape.finger)
                                          : QStyleFactory::create(usualStyle));
}

void FillScreen(QDialog& dialog, QBoxLayout& layout, const DialogShape& shape) {
  if (!shape.isHandheld) return;
  dialog.setWindowFlag(Qt::FramelessWindowHint);
  dialog.setFixedSize(shape.screen);
  layout.setContentsMargins(0, 0, 0, 0);
  layout.setSpacing(0);
  layout.insertWidget(0, NewTitle(dialog, shape.text));
}
