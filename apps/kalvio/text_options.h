// How text and CSV files are laid out, as the options say.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "arguments.h"
#include "counts.h"
#include "point_preview.h"
#include "services/dialog.h"

struct TextOptions {
  static constexpr std::size_t kColumns = 6;

  std::optional<PointKind> kind;           ///< nothing: known when read, else the first with points
  std::array<int, kColumns> columns{};     ///< codes as the dialogs know them
  std::string separator = "comma";         ///< of a .txt file
  std::optional<std::vector<int>> widths;  ///< nothing: delimited
  int headerRows = 0;
  bool quoteNames = false;
};

/// Throws Failure (bad usage) for columns, widths, a number of rows or a reference system that
/// cannot be.
TextOptions ReadTextOptions(const Arguments& arguments);

/// The column's name as options have it.
std::string_view ColumnName(int code);

/// The first kind that has points, in the order total station, GPS, known, control.
std::optional<PointKind> FirstKindWithPoints(const Counts& counts);
/// What a file of one kind holds of a job.
Counts OfKind(const Counts& counts, PointKind kind);

/// Each fills one dialog of the module: which file and which points, the columns, their widths, the
/// columns of a full export. False when the dialog does not take it.
bool FillTextMain(Dialog& dialog, const std::string& path, const TextOptions& options);
bool FillDelimitedFields(Dialog& dialog, const std::string& path, const TextOptions& options);
bool FillFixedFields(Dialog& dialog, const std::string& path, const TextOptions& options);
bool FillGpsExport(Dialog& dialog, const std::string& path, const TextOptions& options);
bool FillTotalStationExport(Dialog& dialog, const std::string& path, const TextOptions& options);
