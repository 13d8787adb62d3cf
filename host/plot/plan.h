// The plan of a job as a picture.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/document/host_document.h"

namespace plot {

enum class PictureKind { kSvg, kPdf, kPng };

/// The kind that a file name's extension says, letter case ignored; nothing for any other name.
std::optional<PictureKind> PictureKindOf(std::string_view path);

/// Smallest and largest side of a sheet (millimetres) and of a PNG picture (pixels), and the most
/// pixels that one has.
inline constexpr double kLeastSide = 60;
inline constexpr double kMostSide = 5'000;
inline constexpr double kLeastPixels = 400;
inline constexpr double kMostPixels = 20'000;
inline constexpr double kMostPixelsInAll = 150e6;

struct PlanOptions {
  PictureKind kind = PictureKind::kSvg;
  /// Millimetres, of a PNG picture pixels. 0: A4, upright or across as the plan is shown larger; a
  /// PNG picture of that shape, 2,000 pixels wide.
  double width = 0;
  double height = 0;
  double scale = 0;  ///< N of 1:N; 0: the largest usual scale at which everything fits
  bool names = true;
  bool codes = true;
  bool terrain = true;
  std::string title;  ///< UTF-8
};

struct PlanReport {
  enum class Outcome { kDrawn, kNothingToDraw, kNotWritten };
  Outcome outcome = Outcome::kNothingToDraw;
  double width = 0;                ///< as in the options
  double height = 0;               ///< as in the options
  double scale = 0;                ///< N of 1:N
  std::uint64_t points = 0;        ///< of all kinds in the picture, stations included
  std::uint64_t withoutPlace = 0;  ///< points that have no plane coordinates: left out
  std::uint64_t beyondSheet = 0;   ///< points that the sheet does not reach at the scale asked for
  std::uint64_t models = 0;
  std::uint64_t roads = 0;
  std::uint64_t themes = 0;
  std::uint64_t entities = 0;    ///< of the drawing, on layers that are shown
  std::uint64_t smallTexts = 0;  ///< texts of the drawing whose letters could not be read: left out
  /// Terrain models whose triangles would be too small to be seen: without them in the picture.
  std::vector<std::string> fineModels;
};

/// Draws plans: points with their names, terrain models, roads, themes, the drawing, a grid, a
/// scale bar.
class IPlotter {
 public:
  virtual ~IPlotter();
  /// Writes the picture whole or not at all; an older file stays when it cannot be written, and
  /// platform/file_trouble.h is told why. The document is only read.
  virtual PlanReport Draw(HostDocument& document, const PlanOptions& options,
                          const std::string& path) = 0;
};

/// The plotter of this process, loaded (libkalvio_plot.so, beside this library) when it is first
/// asked for; null when it cannot be loaded.
IPlotter* Plotter();

}  // namespace plot

/// What libkalvio_plot.so offers: a new plotter that the caller owns.
extern "C" __attribute__((visibility("default"))) plot::IPlotter* KalvioMakePlotter();
