// The entities of a DXF file, one by one, into the engine or a block.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/cad/dxf/read_blocks.h"
#include "host/cad/dxf/read_extrusion.h"
#include "host/cad/dxf/read_fields.h"
#include "host/cad/dxf/read_layers.h"
#include "host/cad/dxf/read_notes.h"
#include "host/cad/dxf/read_pairs.h"
#include "host/cad/dxf/read_shapes.h"
#include "host/cad/dxf/read_text.h"
#include "model/tcad_eng.h"

namespace dxf_reader {

/// What the readers of a file's sections share.
struct Context {
  Context(PairStream& stream, CTcadEng& drawing)
      : pairs(stream), engine(drawing), layers(drawing, text), blocks(drawing, text, notes) {}

  PairStream& pairs;
  CTcadEng& engine;
  TextDecoder text;
  Notes notes;
  Layers layers;
  BlockTable blocks;
};

class EntityReader {
 public:
  explicit EntityReader(Context& context) : context_(context), pairs_(context.pairs) {}

  /// Reads entities from the pair on that begins the first of them up to the one that ends its
  /// section or block. Into the engine; inserts of blocks that are not there yet wait.
  void ReadIntoEngine() { ReadAll(nullptr, /*isPaper=*/false); }
  void ReadIntoBlock(cad::Block& block) { ReadAll(&block, /*isPaper=*/false); }
  /// The same, and leaves them out.
  void ReadPaper() { ReadAll(nullptr, /*isPaper=*/true); }
  /// Adds the inserts that wait, when all blocks are in the engine.
  void AddWaiting();

 private:
  struct Rule {
    std::string_view name;
    void (EntityReader::*take)();
    void (EntityReader::*read)() = nullptr;  // instead of reading all into the fields
  };
  static const Rule kRules[];
  struct Vertex {
    cad::Point at;
    double bulge = 0;
    int flags = 0;
    int corners[4] = {};
  };

  void ReadAll(cad::Block* block, bool isPaper);
  void ReadOne();
  void CountOther(std::string_view kind);
  bool IsLeftOut();
  // Goes on to the next record; whether the one before was of the paper space.
  bool SkipRecord();
  void SkipFollowers();
  void Put(cad::Shape&& shape);
  void ReserveRest();
  Plane PlaneOf() const;

  void TakePoint();
  void TakeLine();
  void TakeFace();
  void TakeSolid();
  std::vector<cad::Point> Corners() const;

  void ReadLightPolyline();
  bool KeepLightVertex();
  void TakeLightPolyline() { PutFlat(); }
  void TakePolyline();
  void ReadVertices();
  void KeepVertex();
  void TakeFlatPolyline();
  void TakeSpacePolyline();
  void TakeMesh();
  void TakePolyface();
  void PutFlat();
  void PutFace(std::vector<cad::Point> points);

  void TakeCircle();
  void TakeArc();
  void TakeEllipse();
  void ReadSpline();
  bool KeepSplineNumber();
  void TakeSpline();
  void PutCurve(const Curve& curve);

  void TakeText();
  void ReadLines();
  void TakeLines();
  void TakeAttributeDefinition();
  cad::Point TextPlace() const;
  cad::Point FirstLinePlace(double direction, std::string_view text) const;

  void TakeInsert();
  void ReadAttributes(std::vector<cad::Attribute>& attributes);
  void PutInserts(cad::InsertShape insert);
  void PutInsert(cad::InsertShape insert);

  Context& context_;
  PairStream& pairs_;
  cad::Block* block_ = nullptr;  // null: the engine
  bool isPaper_ = false;
  Fields fields_;
  Fields part_;      // of a vertex or an attribute
  int drawing_ = 1;  // of the entity that is read
  std::uint16_t color_ = cad::kByLayer;
  cad::PolylineShape line_;
  bool isWide_ = false;  // a width of the polyline is not zero
  std::vector<Vertex> vertices_;
  Spline spline_;
  std::string lines_;
  std::int64_t put_ = 0;  // entities into the engine
  int copies_ = 0;        // that arrays of inserts have made so far
  std::vector<cad::Entity> waiting_;
};

}  // namespace dxf_reader
