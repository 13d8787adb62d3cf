// What is stored of a drawing; see records.h. Entities name their layers and blocks, for these may
// be listed after them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/fields.h"
#include "host/store/records.h"
#include "model/tcad_eng.h"

/// A point, a vector or the factors of the axes.
using SpaceRecord = std::array<double, 3>;

/// A layer: a drawing of the engine. What is left out is what a new one has.
struct LayerRecord {
  std::string name;
  std::uint32_t color = 7;
  bool byLayerColor = true;
  bool visible = true;
  bool locked = false;

  static constexpr auto Fields() {
    using R = LayerRecord;
    return std::tuple{Field{"name", &R::name}, Field{"color", &R::color},
                      Field{"byLayerColor", &R::byLayerColor}, Field{"visible", &R::visible},
                      Field{"locked", &R::locked}};
  }
};

/// A block without what it holds.
struct BlockRecord {
  std::string name;
  SpaceRecord at{};

  static constexpr auto Fields() {
    using R = BlockRecord;
    return std::tuple{Field{"name", &R::name}, Field{"at", &R::at, kAxes}};
  }
};

struct AttributeDefinitionRecord {
  std::string tag;
  SpaceRecord at{};
  double height = 1;

  static constexpr auto Fields() {
    using R = AttributeDefinitionRecord;
    return std::tuple{Field{"tag", &R::tag}, Field{"at", &R::at, kAxes},
                      Field{"height", &R::height}};
  }
};

/// An entity of any kind; which fields and lists it has depends on its type.
struct EntityRecord {
  std::string type;
  std::string layer = "0";
  std::uint16_t color = cad::kByLayer;
  std::string block;
  bool closed = false;
  SpaceRecord at{};
  SpaceRecord from{};
  SpaceRecord to{};
  SpaceRecord center{};
  double radius = 0;
  SpaceRecord major{};
  double ratio = 1;
  double start = 0;
  double end = 0;
  double height = 0;
  SpaceRecord scale = {1, 1, 1};
  double rotation = 0;
  std::string text;

  // These are no fields: they stand in lists, or tables, of their own.
  std::vector<cad::Point> points;
  std::vector<double> bulges;  ///< as many as points, or none
  std::vector<cad::Attribute> attributes;

  /// Makes it as new; the lists keep their memory.
  void Reset();

  static constexpr auto Fields() {
    using R = EntityRecord;
    return std::tuple{Field{"type", &R::type},
                      Field{"layer", &R::layer},
                      Field{"color", &R::color},
                      Field{"block", &R::block},
                      Field{"closed", &R::closed},
                      Field{"at", &R::at, kAxes},
                      Field{"from", &R::from, kAxes},
                      Field{"to", &R::to, kAxes},
                      Field{"center", &R::center, kAxes},
                      Field{"radius", &R::radius},
                      Field{"major", &R::major, kAxes},
                      Field{"ratio", &R::ratio},
                      Field{"start", &R::start},
                      Field{"end", &R::end},
                      Field{"height", &R::height},
                      Field{"scale", &R::scale, kAxes},
                      Field{"rotation", &R::rotation},
                      Field{"text", &R::text}};
  }
};

/// Whether an entity of that type has the field.
bool EntityHas(std::string_view type, std::string_view key);

SpaceRecord Parts(const cad::Point& point);
cad::Point PointOf(const SpaceRecord& parts);

/// Whether the job has a drawing to store: more than the one layer that is always there, as it was
/// made.
bool HasDrawing(const CTcadEng& engine);
/// Whether an entity is stored: what others than the user have drawn is not, nor what is private,
/// an insert of such a block, or of none, or an area that has not three or four points.
bool IsStored(const CTcadEng& engine, const cad::Entity& entity);
/// How many of these there are.
std::uint64_t CountStored(const CTcadEng& engine);

LayerRecord LayerOf(const CTcadEng& engine, int id);
BlockRecord RecordOf(const cad::Block& block);
AttributeDefinitionRecord RecordOf(const cad::AttributeDefinition& definition);
cad::AttributeDefinition DefinitionOf(const AttributeDefinitionRecord& record);
/// Numbers that its type does not have are undefined.
EntityRecord RecordOf(const CTcadEng& engine, const cad::Entity& entity);
/// Its shape alone: no layer, colour or block.
EntityRecord RecordOf(const cad::Shape& shape);

/// What is wrong with an entity: the key of it, and what was expected there.
struct EntityTrouble {
  std::string_view key;
  std::string expected;
};
/// Makes a shape of what a record holds, its block aside. Nothing when it was made.
std::optional<EntityTrouble> MakeShape(const EntityRecord& record, cad::Shape& shape);
