// What a drawing is made of. Lengths in metres, angles in degrees, counter-clockwise from the X
// axis.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "tdk/geometry.h"

namespace cad {

using Point = tdk::geom::PNT_3D;

/// Colour index of what has the colour of its drawing.
inline constexpr std::uint16_t kByLayer = 256;
/// Colour index of what, in a block, has the colour of the insert.
inline constexpr std::uint16_t kByBlock = 0;

struct PointShape {
  Point at;
};

struct LineShape {
  Point from;
  Point to;
};

/// Flat, with arcs where there are bulges, when all points have one elevation; else a line in
/// space.
struct PolylineShape {
  std::vector<Point> points;
  /// Tangent of a quarter of the arc to the next point, positive to the left; empty: all straight.
  std::vector<double> bulges;
  bool isClosed = false;
};

struct CircleShape {
  Point center;
  double radius = 0;
};

struct ArcShape {
  Point center;
  double radius = 0;
  double start = 0;
  double end = 0;
};

struct EllipseShape {
  Point center;
  /// From the centre to the end of the major axis.
  Point major;
  /// Of the minor to the major axis, within (0, 1].
  double ratio = 1;
  /// Parameters, degrees: 0 and 360 is the whole ellipse.
  double start = 0;
  double end = 360;
};

/// Text from its lower left corner; of several lines, parted by line feeds, it is the first one's.
struct TextShape {
  Point at;
  double height = 0;
  double rotation = 0;
  std::string text;  ///< UTF-8
};

struct Attribute {
  std::string tag;
  std::string text;
};

struct InsertShape {
  int block = 0;  ///< position of the block in its drawing engine
  Point at;
  Point scale{1, 1, 1};
  double rotation = 0;
  std::vector<Attribute> attributes;
};

/// A face in space of three or four points.
struct FaceShape {
  std::vector<Point> points;
};

/// A filled area of three or four points, in order around it.
struct SolidShape {
  std::vector<Point> points;
};

using Shape = std::variant<PointShape, LineShape, PolylineShape, CircleShape, ArcShape,
                           EllipseShape, TextShape, InsertShape, FaceShape, SolidShape>;

/// Who put an entity into the drawing.
enum class Origin : std::uint8_t {
  kUser,  ///< drawn or imported: part of the job
  kTotalStation,
  kGps,
  kKnownPoints,
  kCadastre,
  kTerrain,
  kRoads,
  kProfiles,
  kGis,
  kPointNames
};

struct Entity {
  int drawing = 1;  ///< the layer it lies on
  std::uint16_t color = kByLayer;
  bool isPrivate = false;  ///< the host's own, in no file
  Origin origin = Origin::kUser;
  Shape shape;
};

/// Where the text of an attribute stands in its block.
struct AttributeDefinition {
  std::string tag;
  Point at;
  double height = 1;
};

struct Block {
  std::string name;
  Point base;
  std::vector<Entity> entities;
  std::vector<AttributeDefinition> attributes;
  bool isPrivate = false;
};

}  // namespace cad
