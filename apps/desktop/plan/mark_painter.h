// The symbols of points, on the plan and wherever else a point is shown.
#pragma once

#include <QIcon>
#include <QPainter>

#include "host/plot/plan_content.h"

namespace plan {

/// `at` and `half`, half the symbol's height, are pixels of the painter, which should smooth edges.
void PaintMark(QPainter& painter, const QPointF& at, double half, plot::MarkKind kind);

QIcon MarkIcon(plot::MarkKind kind);
/// A line of that colour, 0xRRGGBB: for what is drawn as lines.
QIcon LineIcon(std::uint32_t color);
/// For texts.
QIcon LetterIcon();

}  // namespace plan
