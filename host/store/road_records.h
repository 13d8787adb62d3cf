// What is stored of terrain models and roads; see records.h.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "host/store/fields.h"
#include "model/road.h"
#include "model/terrain.h"

inline constexpr std::array<std::string_view, 2> kPlaneAxes = {"x", "y"};

/// A point, or a vector, of the plane, metres.
using PlaceRecord = std::array<double, 2>;

struct TerrainRecord {
  std::string name;

  static constexpr auto Fields() { return std::tuple{Field{"name", &TerrainRecord::name}}; }
};

struct RoadRecord {
  std::string name;
  double start = 0;
  double end = 0;
  bool empty = false;
  int targetDrawing = 0;

  static constexpr auto Fields() {
    using R = RoadRecord;
    return std::tuple{Field{"name", &R::name}, Field{"start", &R::start}, Field{"end", &R::end},
                      Field{"empty", &R::empty}, Field{"targetDrawing", &R::targetDrawing}};
  }
};

/// An element of any kind; which fields it has depends on its type.
struct ElementRecord {
  std::string type;
  double prog = 0;
  PlaceRecord start{};
  PlaceRecord end{};
  PlaceRecord tangent{};
  double radius = 0;
  double angle = 0;
  double length = 0;
  double a = 0;
  bool entrance = false;
  bool ccw = false;

  static constexpr auto Fields() {
    using R = ElementRecord;
    return std::tuple{Field{"type", &R::type},
                      Field{"prog", &R::prog},
                      Field{"start", &R::start, kPlaneAxes},
                      Field{"end", &R::end, kPlaneAxes},
                      Field{"tangent", &R::tangent, kPlaneAxes},
                      Field{"radius", &R::radius},
                      Field{"angle", &R::angle},
                      Field{"length", &R::length},
                      Field{"a", &R::a},
                      Field{"entrance", &R::entrance},
                      Field{"ccw", &R::ccw}};
  }
};

/// Whether an element of that type has the field.
bool ElementHas(std::string_view type, std::string_view key);

struct CodeRecord {
  int code = 0;
  std::string name;

  static constexpr auto Fields() {
    using R = CodeRecord;
    return std::tuple{Field{"code", &R::code}, Field{"name", &R::name}};
  }
};

struct SectionRecord {
  std::string name;
  double prog = 0;

  static constexpr auto Fields() {
    using R = SectionRecord;
    return std::tuple{Field{"name", &R::name}, Field{"prog", &R::prog}};
  }
};

struct LineRecord {
  int code = 0;
  bool terrain = false;

  static constexpr auto Fields() {
    using R = LineRecord;
    return std::tuple{Field{"code", &R::code}, Field{"terrain", &R::terrain}};
  }
};

/// A vertex without its vertical curve.
struct VertexRecord {
  double distance = UndefinedValue;
  double height = UndefinedValue;
  bool principal = true;

  static constexpr auto Fields() {
    using R = VertexRecord;
    return std::tuple{Field{"distance", &R::distance}, Field{"height", &R::height},
                      Field{"principal", &R::principal}};
  }
};

RoadRecord RecordOf(const CRoad& road);
void Store(const RoadRecord& record, CRoad& road);

ElementRecord RecordOf(const CPlaniElem& element);
/// Null for a type that there is not.
std::unique_ptr<CPlaniElem> MakeElement(const ElementRecord& record);

SectionRecord RecordOf(const CProfile& section);
void Store(const SectionRecord& record, CProfile& section);

VertexRecord RecordOf(const TAltiVrt& vertex);
TAltiVrt VertexOf(const VertexRecord& record, const std::optional<TRaccVert>& curve);
