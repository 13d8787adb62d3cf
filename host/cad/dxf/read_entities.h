// The entities of a DXF file, one by one, into the engine or a block.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/cad/dxf/read_fields.h"
#include "host/cad/dxf/read_pairs.h"
#include "host/cad/reading/blocks.h"
#include "host/cad/reading/layers.h"
#include "host/cad/reading/looks.h"
#include "host/cad/reading/notes.h"
#include "host/cad/reading/sink.h"
#include "host/cad/reading/text.h"
#include "model/tcad_eng.h"

namespace dxf_reader {

using namespace cad_reader;

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
  explicit EntityReader(Context& context)
      : context_(context),
        pairs_(context.pairs),
        sink_(context.engine, context.blocks, context.notes) {}

  /// Reads entities from the pair on that begins the first of them up to the one that ends its
  /// section or block. Into the engine; inserts of blocks that are not there yet wait.
  void ReadIntoEngine() { ReadAll(nullptr, /*isPaper=*/false); }
  void ReadIntoBlock(cad::Block& block) { ReadAll(&block, /*isPaper=*/false); }
  /// The same, and leaves them out.
  void ReadPaper() { ReadAll(nullptr, /*isPaper=*/true); }
  /// Adds the inserts that wait, when all blocks are in the engine.
  void AddWaiting() { sink_.AddWaiting(); }

 private:
  struct Rule {
    std::string_view name;
    void (EntityReader::*take)();
    void (EntityReader::*read)() = nullptr;  // instead of reading all into the fields
  };
  static const Rule kRules[];

  void ReadAll(cad::Block* block, bool isPaper);
  void ReadOne();
  void CountOther(std::string_view kind);
  bool IsLeftOut();
  // Goes on to the next record; whether the one before was of the paper space.
  bool SkipRecord();
  void SkipFollowers();
  void ReserveRest();
  Plane PlaneOf() const;

  void TakePoint();
  void TakeLine();
  void TakeFace();
  void TakeSolid();
  std::vector<cad::Point> Corners() const;

  void ReadLightPolyline();
  bool KeepLightVertex();
  void TakeLightPolyline();
  void TakePolyline();
  void ReadVertices();
  void KeepVertex();

  void TakeCircle();
  void TakeArc();
  void TakeEllipse();
  void ReadSpline();
  bool KeepSplineNumber();
  void TakeSpline() { sink_.PutSpline(spline_); }

  void TakeText();
  void ReadLines();
  void TakeLines();
  void TakeAttributeDefinition();
  cad::Point TextPlace() const;
  cad::TextShape TextOfFields();

  void TakeInsert();
  void ReadAttributes(std::vector<cad::Attribute>& attributes);

  Context& context_;
  PairStream& pairs_;
  EntitySink sink_;
  cad::Block* block_ = nullptr;  // null: the engine
  bool isPaper_ = false;
  Fields fields_;
  Fields part_;  // of a vertex or an attribute
  LostLooks looks_;
  cad::PolylineShape line_;
  VertexLine vertices_;
  Spline spline_;
  std::string lines_;
  bool hasReserved_ = false;
  std::uint64_t read_ = 0;  // entities
};

}  // namespace dxf_reader
