// Drawings for the tests of the store.
#pragma once

#include "support/random.h"
#include "support/stored_jobs.h"

namespace stored_drawings {

/// A job with no more in it than a drawing of these members, as it is written.
inline std::string JobWith(std::string_view members) {
  std::string job = stored_jobs::JobWith(stored_jobs::kNoDesign);
  return job.insert(job.find("  \"settings\""),
                    "  \"drawing\": {\n" + std::string(members) + "  },\n");
}

/// A drawing with everything that it can hold. The first block inserts one that comes after it.
inline constexpr std::string_view kDrawing = R"(    "layers": [
      {"name": "0", "color": 3, "byLayerColor": false, "visible": true, "locked": true},
      {"name": "Walls", "color": 1, "byLayerColor": true, "visible": false, "locked": false},
      {"name": "unused", "color": 7, "byLayerColor": true, "visible": true, "locked": false}
    ],
    "blocks": [
      {
        "name": "Pillar",
        "at": [1, 2, 3],
        "attributes": [
          {"tag": "NAME", "at": [0.5, 0, 0], "height": 2},
          {"tag": "CODE", "at": [0.5, -2, 0], "height": 1}
        ],
        "entities": [
          {"type": "circle", "layer": "0", "color": 0, "center": [0, 0, 0], "radius": 0.25},
          {"type": "insert", "layer": "0", "block": "Cross", "at": [0, 0, 0], "scale": [1, 1, 1], "rotation": 45}
        ]
      },
      {
        "name": "Cross",
        "at": [0, 0, 0],
        "entities": [
          {"type": "line", "layer": "0", "from": [-1, 0, 0], "to": [1, 0, 0]},
          {"type": "line", "layer": "0", "from": [0, -1, 0], "to": [0, 1, 0]}
        ]
      },
      {
        "name": "empty",
        "at": null,
        "entities": []
      }
    ],
    "entities": [
      {"type": "point", "layer": "Walls", "color": 5, "at": [1, 2, null]},
      {"type": "line", "layer": "0", "from": [1, 2, 3], "to": [4, 5, 6]},
      {"type": "polyline", "layer": "Walls", "closed": true, "points": [[0, 0, 1], [10, 0, 1], [10, 10, 1]], "bulges": [0, 0.5, -1]},
      {"type": "polyline", "layer": "Walls", "closed": false, "points": [[0, 0, 1], [10, 0, null]]},
      {"type": "polyline", "layer": "Walls", "closed": false, "points": []},
      {"type": "circle", "layer": "0", "color": 255, "center": [1, 2, 3], "radius": 4},
      {"type": "arc", "layer": "0", "center": [1, 2, 3], "radius": 4, "start": 30, "end": 270.5},
      {"type": "ellipse", "layer": "0", "center": [1, 2, 3], "major": [4, 3, 0], "ratio": 0.25, "start": 90, "end": 180},
      {"type": "text", "layer": "0", "at": [1, 2, 3], "height": 2.5, "rotation": 30, "text": "two\nlines \"à\""},
      {"type": "insert", "layer": "Walls", "block": "Pillar", "at": [7, 8, 9], "scale": [2, -2, 1], "rotation": 90, "attributes": {"NAME": "P1", "CODE": ""}},
      {"type": "insert", "layer": "Walls", "block": "Cross", "at": [7, 8, -0.0], "scale": [1, 1, 1], "rotation": 0},
      {"type": "face", "layer": "0", "points": [[0, 0, 0], [1, 0, 0], [1, 1, 2]]},
      {"type": "face", "layer": "0", "points": [[0, 0, 0], [1, 0, 0], [1, 1, 2], [0, 1, 2]]},
      {"type": "solid", "layer": "0", "color": 2, "points": [[0, 0, 0], [1, 0, 0], [0, 1, 0], [1, 1, 0]]}
    ]
)";

inline cad::Point AnyPoint(Random& random) {
  return {stored_jobs::AnyNumber(random), stored_jobs::AnyNumber(random),
          stored_jobs::AnyNumber(random)};
}
inline std::vector<cad::Point> AnyPoints(Random& random, int count) {
  std::vector<cad::Point> points;
  for (int i = 0; i < count; ++i) points.push_back(AnyPoint(random));
  return points;
}

inline cad::PolylineShape AnyPolyline(Random& random) {
  cad::PolylineShape line{AnyPoints(random, random.Whole(0, 6)), {}, random.OneIn(2)};
  if (random.OneIn(2)) return line;
  for (std::size_t i = 0; i < line.points.size(); ++i) {
    line.bulges.push_back(random.OneIn(3) ? 0 : stored_jobs::AnyNumber(random));
  }
  return line;
}

inline cad::InsertShape AnyInsert(Random& random, int blocks) {
  cad::InsertShape insert{random.Whole(0, blocks - 1),
                          AnyPoint(random),
                          AnyPoint(random),
                          stored_jobs::AnyNumber(random),
                          {}};
  for (int i = random.Whole(0, 3); i > 0; --i) {
    insert.attributes.push_back(
        {stored_jobs::AnyText(random).ToUtf8(), stored_jobs::AnyText(random).ToUtf8()});
  }
  return insert;
}

/// A shape of any kind but an insert.
inline cad::Shape AnyShape(Random& random) {
  const auto number = [&] { return stored_jobs::AnyNumber(random); };
  switch (random.Whole(0, 8)) {
    case 0: return cad::PointShape{AnyPoint(random)};
    case 1: return cad::LineShape{AnyPoint(random), AnyPoint(random)};
    case 2: return AnyPolyline(random);
    case 3: return cad::CircleShape{AnyPoint(random), number()};
    case 4: return cad::ArcShape{AnyPoint(random), number(), number(), number()};
    case 5:
      return cad::EllipseShape{AnyPoint(random), AnyPoint(random), number(), number(), number()};
    case 6:
      return cad::TextShape{AnyPoint(random), number(), number(),
                            stored_jobs::AnyText(random).ToUtf8()};
    case 7: return cad::FaceShape{AnyPoints(random, random.Whole(3, 4))};
    default: return cad::SolidShape{AnyPoints(random, random.Whole(3, 4))};
  }
}

inline cad::Entity AnyEntity(Random& random, const CTcadEng& engine, int blocks) {
  cad::Entity entity;
  entity.drawing = random.Whole(1, engine.GetNoDrawings());
  if (random.OneIn(2)) entity.color = random.Whole<std::uint16_t>(0, cad::kByLayer);
  entity.shape = blocks > 0 && random.OneIn(4) ? AnyInsert(random, blocks) : AnyShape(random);
  return entity;
}

inline void FillLayers(CTcadEng& engine, Random& random) {
  const int layers = random.Whole(0, 4);
  for (int i = 0; i < layers; ++i) {
    engine.AddDrawing(0, stored_jobs::AnyText(random), random.OneIn(2), random.OneIn(2), false);
  }
  engine.SetDrawingColor(random.Whole(1, engine.GetNoDrawings()), random.OneIn(2),
                         static_cast<unsigned>(random.Bits()));
  engine.SetDrawingVisible(1, random.OneIn(2));
}

inline void FillAtRandom(CTcadEng& engine, Random& random) {
  FillLayers(engine, random);
  const int blocks = random.Whole(0, 4);
  for (int i = 0; i < blocks; ++i) {
    cad::Block block{"block " + std::to_string(i), AnyPoint(random), {}, {}};
    for (int entity = random.Whole(0, 4); entity > 0; --entity) {
      block.entities.push_back(AnyEntity(random, engine, blocks));
    }
    if (random.OneIn(2)) block.attributes.push_back({"tag", AnyPoint(random), random.Real(0, 9)});
    engine.AddBlock(block);
  }
  for (int i = random.Whole(0, 20); i > 0; --i) engine.Add(AnyEntity(random, engine, blocks));
}

}  // namespace stored_drawings
