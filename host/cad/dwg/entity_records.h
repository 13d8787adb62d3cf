// The records of entities: what they hold, and in which order a file has it. `Data` describes the
// values and `References` the handles behind them, each for both directions: S is FieldWriter or
// FieldReader. Lengths in metres, angles in radians, texts in the code page of the file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/cad/dwg/place.h"
#include "host/cad/dwg/version.h"

namespace dwg {

/// Where an entity lies.
enum class Space : unsigned { kOwner = 0, kPaper = 1, kModel = 2 };

// How heavy lines are: up to the greatest an index of what is drawn, from none at 0 on.
inline constexpr std::uint8_t kGreatestWeight = 23;
inline constexpr std::uint8_t kWeightByLayer = 29;
inline constexpr std::uint8_t kUsualWeight = 31;
/// -1 when it is that of the layer, the block or the drawing.
inline int WeightOf(std::uint8_t lineWeight) {
  return lineWeight <= kGreatestWeight ? lineWeight : -1;
}

/// What all entities have.
struct EntityHead {
  Space space = Space::kModel;
  Handle owner = 0;  ///< of what lies in neither space
  bool hasNeighbours = false;
  Handle previous = 0;  ///< neighbours that are not one handle away; 0 at the ends
  Handle next = 0;
  std::uint16_t color = 256;
  std::uint16_t invisible = 0;  ///< bit 0
  Handle layer = 0;
  Handle lineType = 0;  ///< 0: that of the layer or the block, or continuous
  std::uint8_t lineWeight = kWeightByLayer;
  // What is only kept from the values to the references.
  std::uint32_t reactors = 0;
  bool isLineByLayer = true;
  unsigned lineKind = 0;
  unsigned plotKind = 0;
};
inline constexpr unsigned kByHandle = 3;  // a line type or plot style

template <class S>
void Data(S& s, EntityHead& it) {
  auto space = static_cast<unsigned>(it.space);
  s.TwoBits(space);
  it.space = static_cast<Space>(space);
  s.Long(it.reactors);
  if (!s.Is2000()) s.Flag(it.isLineByLayer);
  bool isBetween = !it.hasNeighbours;  // of the handles before and behind its own
  s.Flag(isBetween);
  it.hasNeighbours = !isBetween;
  s.Short(it.color);
  s.Doubles({1});  // scale of the line type
  if (s.Is2000()) {
    s.TwoBits(it.lineKind);
    s.TwoBits(it.plotKind);
  }
  s.Short(it.invisible);
  if (s.Is2000()) s.Byte(it.lineWeight);
}

template <class S>
void Neighbours(S& s, EntityHead& it) {
  if (!it.hasNeighbours) return;
  s.NearReference(it.previous);
  s.NearReference(it.next);
}

/// Those that other objects want to be told of, and the dictionary of what other programs add.
template <class S>
void Followers(S& s, std::uint32_t reactors) {
  if constexpr (S::kReads) s.NeedRoomForReferences(reactors);
  s.NoReferences(Link::kSoftPointer, reactors);
  s.NoReferences(Link::kHardOwner, 1);
}

template <class S>
void References(S& s, EntityHead& it) {
  if (it.space == Space::kOwner) s.NearReference(it.owner);
  Followers(s, it.reactors);
  if (s.Is2000()) Neighbours(s, it);
  s.Reference(Link::kHardPointer, it.layer);
  const bool hasLineType = s.Is2000() ? it.lineKind == kByHandle : !it.isLineByLayer;
  if (hasLineType) s.Reference(Link::kHardPointer, it.lineType);
  if (s.Is2000() && it.plotKind == kByHandle) s.NoReferences(Link::kHardPointer, 1);
  if (!s.Is2000()) Neighbours(s, it);
}

struct PointRecord {
  Place at;
  double thickness = 0;
  Place direction = kUp;
};
template <class S>
void Data(S& s, PointRecord& it) {
  s.Point(it.at);
  s.Thickness(it.thickness);
  s.Extrusion(it.direction);
  s.Doubles({0});  // angle of its sign
}

struct LineRecord {
  Place from;
  Place to;
  double thickness = 0;
  Place direction = kUp;
};
template <class S>
void Data(S& s, LineRecord& it) {
  if (s.Is2000()) {
    bool isAtZero = it.from.z == 0 && it.to.z == 0;
    s.Flag(isAtZero);
    s.RawDouble(it.from.x);
    s.Near(it.to.x, it.from.x);
    s.RawDouble(it.from.y);
    s.Near(it.to.y, it.from.y);
    if (!isAtZero) {
      s.RawDouble(it.from.z);
      s.Near(it.to.z, it.from.z);
    }
  } else {
    s.Point(it.from);
    s.Point(it.to);
  }
  s.Thickness(it.thickness);
  s.Extrusion(it.direction);
}

struct CircleRecord {
  Place center;
  double radius = 0;
  double thickness = 0;
  Place direction = kUp;
};
template <class S>
void Data(S& s, CircleRecord& it) {
  s.Point(it.center);
  s.Double(it.radius);
  s.Thickness(it.thickness);
  s.Extrusion(it.direction);
}

struct ArcRecord {
  CircleRecord circle;
  double start = 0;
  double end = 0;
};
template <class S>
void Data(S& s, ArcRecord& it) {
  Data(s, it.circle);
  s.Double(it.start);
  s.Double(it.end);
}

struct EllipseRecord {
  Place center;
  Place major;
  Place direction = kUp;
  double ratio = 1;
  double start = 0;
  double end = 0;
};
template <class S>
void Data(S& s, EllipseRecord& it) {
  s.Point(it.center);
  s.Point(it.major);
  s.Point(it.direction);
  s.Double(it.ratio);
  s.Double(it.start);
  s.Double(it.end);
}

struct FaceRecord {
  Place corners[4];
};
template <class S>
void Data(S& s, FaceRecord& it) {
  std::uint16_t invisibleEdges = 0;
  if (!s.Is2000()) {
    for (Place& corner : it.corners) s.Point(corner);
    s.Short(invisibleEdges);
    return;
  }
  bool hasAllEdges = true;
  s.Flag(hasAllEdges);
  bool isAtZero = it.corners[0].z == 0;
  s.Flag(isAtZero);
  s.RawFlat(it.corners[0]);
  if (!isAtZero) s.RawDouble(it.corners[0].z);
  for (int i = 1; i < 4; ++i) {
    s.Near(it.corners[i].x, it.corners[i - 1].x);
    s.Near(it.corners[i].y, it.corners[i - 1].y);
    s.Near(it.corners[i].z, it.corners[i - 1].z);
  }
  if (!hasAllEdges) s.Short(invisibleEdges);
}

/// Corners in the order of a Z, in a plane.
struct SolidRecord {
  double thickness = 0;
  double elevation = 0;
  Place corners[4];
  Place direction = kUp;
};
template <class S>
void Data(S& s, SolidRecord& it) {
  s.Thickness(it.thickness);
  s.Double(it.elevation);
  for (Place& corner : it.corners) s.RawFlat(corner);
  s.Extrusion(it.direction);
}

struct SplineRecord {
  std::uint32_t degree = 3;
  bool isClosed = false;
  std::vector<double> knots;
  bool hasWeights = false;
  std::vector<double> weights;
  std::vector<Place> controls;
  std::vector<Place> fits;  ///< points that it goes through, where it is made of these
};
template <class S>
void Data(S& s, SplineRecord& it) {
  constexpr std::uint32_t kOfFits = 2;
  std::uint32_t kind = it.fits.empty() ? 1 : kOfFits;
  auto knots = static_cast<std::uint32_t>(it.knots.size());
  auto controls = static_cast<std::uint32_t>(it.controls.size());
  auto fits = static_cast<std::uint32_t>(it.fits.size());
  s.Long(kind);
  s.Long(it.degree);
  if (kind == kOfFits) {
    s.Doubles({0});      // how near it comes
    s.Points({{}, {}});  // directions at its ends
    s.Count(fits, 6);
  } else {
    bool isRational = it.hasWeights;
    s.Flag(isRational);
    s.Flag(it.isClosed);
    s.Flags({false});   // periodic
    s.Doubles({0, 0});  // what counts as the same
    s.Count(knots, 2);
    s.Count(controls, 6);
    s.Flag(it.hasWeights);
  }
  if constexpr (S::kReads) {
    it.knots.resize(kind == kOfFits ? 0 : knots);
    it.controls.resize(kind == kOfFits ? 0 : controls);
    it.weights.resize(it.hasWeights ? it.controls.size() : 0);
    it.fits.resize(kind == kOfFits ? fits : 0);
  }
  for (double& knot : it.knots) s.Double(knot);
  for (std::size_t i = 0; i < it.controls.size(); ++i) {
    s.Point(it.controls[i]);
    if (it.hasWeights) s.Double(it.weights[i]);
  }
  for (Place& fit : it.fits) s.Point(fit);
}

}  // namespace dwg
