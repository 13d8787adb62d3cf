// Draws what is within the frame of a plan.
#pragma once

#include "host/plot/canvas.h"
#include "host/plot/plan_scene.h"

namespace plot {

TextStyle StyleOf(TextKind kind);

void PaintPlan(const Scene& scene, Canvas& canvas);

/// The symbol of a kind; also in the legend.
void PaintSymbol(Canvas& canvas, MarkKind kind, const Place& place);

/// How lines look, there and in the legend.
struct LineStyle {
  double width;  ///< millimetres
  Colour colour;
};
namespace line_style {
inline constexpr LineStyle kTriangle = {0.08, {0.76, 0.76, 0.76}};
inline constexpr LineStyle kContour = {0.12, {0.80, 0.58, 0.22}};
inline constexpr LineStyle kHeavyContour = {0.3, {0.72, 0.48, 0.12}};
inline constexpr LineStyle kBreakline = {0.22, {0.47, 0.27, 0.10}};
inline constexpr LineStyle kOutline = {0.3, {0.45, 0.45, 0.45}};
inline constexpr LineStyle kAxis = {0.35, {0.82, 0.08, 0.10}};
inline constexpr LineStyle kTick = {0.18, {0.82, 0.08, 0.10}};
inline constexpr double kTheme = 0.25;  // widths
inline constexpr double kDrawing = 0.18;
inline constexpr LineStyle kGridCross = {0.1, {0.62, 0.66, 0.70}};
}  // namespace line_style

}  // namespace plot
