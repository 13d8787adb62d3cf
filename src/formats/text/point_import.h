// Adds the points of a text file to the library that they are meant for.
#pragma once

#include <string_view>

#include "formats/text/point_walk.h"

namespace text {

/// What a line says of a point; metres. The texts lie in the line.
struct PointLine {
  std::string_view name;
  std::string_view descr;
  double north = 0;
  double east = 0;
  double elev = 0;
};

class PointImport {
 public:
  /// Chooses the target: a new group named after the file, the list of control records, the current
  /// station or the current GPS group.
  PointImport(const Libraries& into, const TextExchangeSettings& settings);

  /// False when the point cannot be added: there is no target, the host refuses, or the GPS group
  /// has no way to convert the coordinates.
  bool Add(const PointLine& line);

 private:
  void MakeGroup(const tdk::WString& path);
  bool AddKnown(CEgn* point, const PointLine& line) const;
  bool AddObserved(const PointLine& line) const;
  bool AddGps(const PointLine& line) const;

  Libraries into_;
  int kind_;
  int group_ = -1;
};

}  // namespace text
