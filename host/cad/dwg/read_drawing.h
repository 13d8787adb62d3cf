// The layers, blocks and entities of a file, into the engine.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/cad/dwg/polyline_records.h"
#include "host/cad/dwg/read_index.h"
#include "host/cad/dwg/table_records.h"
#include "host/cad/dwg/text_records.h"
#include "host/cad/reading/layers.h"
#include "host/cad/reading/looks.h"
#include "host/cad/reading/sink.h"
#include "host/cad/reading/text.h"
#include "services/progress.h"

namespace dwg {

/// A block of the file; also its spaces.
struct FileBlock {
  cad_reader::BlockKind kind = cad_reader::BlockKind::kUser;
  int id = -1;  ///< in the table of blocks; negative: of a space
  cad::Block block;
};

class DrawingReader {
 public:
  /// Nothing is owned.
  DrawingReader(File& file, CTcadEng& engine, cad_reader::Notes& notes);

  /// Reads all of it. Throws Failure.
  void Read();

 private:
  struct Rule {
    Type type;
    void (DrawingReader::*take)(OpenRecord& open);
  };
  static const Rule kRules[];

  void SetCodePage();
  void ReadTables();
  void ReadAll(Type type, void (DrawingReader::*read)(OpenRecord& open));
  void ReadLayer(OpenRecord& open);
  void ReadBlock(OpenRecord& open);
  void ReadBlockName(OpenRecord& open);
  void ReadEntities(bool isModel, ProgressSteps& progress);
  void ReadEntity(const IndexedRecord& record);
  // Where the entity goes; false when it is left out, and counted.
  bool Aim(const EntityHead& head);
  int DrawingOf(Handle layer);
  void TakeLooks(const EntityHead& head);
  void TakeTextLooks(double thickness, Handle style);
  // A line type's or a text style's, as it is in the file; empty when it is not there.
  const std::string& NameOf(Handle handle, Type type);
  std::string ReadName(Handle handle, Type type);
  void Take(unsigned type, OpenRecord& open);
  template <class Record>
  static Record TakeRecord(OpenRecord& open);
  template <class Function>
  void ForEachPart(Handle owner, const Function& function);

  void TakePoint(OpenRecord& open);
  void TakeLine(OpenRecord& open);
  void TakeCircle(OpenRecord& open);
  void TakeArc(OpenRecord& open);
  void TakeEllipse(OpenRecord& open);
  void TakeSpline(OpenRecord& open);
  void TakeFace(OpenRecord& open);
  void TakeSolid(OpenRecord& open);
  void TakeText(OpenRecord& open);
  void TakeMultiText(OpenRecord& open);
  void TakeDefinition(OpenRecord& open);
  void TakeInsert(OpenRecord& open);
  void TakeInsertArray(OpenRecord& open);
  void PutInsert(Handle own, const InsertRecord& record, const cad_reader::InsertArray& array);
  void TakeLightPolyline(OpenRecord& open);
  void TakeFlatPolyline(OpenRecord& open);
  void TakeSpacePolyline(OpenRecord& open);
  void TakeMesh(OpenRecord& open);
  void TakePolyface(OpenRecord& open);
  void CollectVertices(Handle owner, cad_reader::VertexLine& line);
  void TakeNothing(OpenRecord& /*open*/) {}

  File& file_;
  CTcadEng& engine_;
  cad_reader::Notes& notes_;
  cad_reader::TextDecoder text_;
  cad_reader::Layers layers_;
  cad_reader::BlockTable blockTable_;
  cad_reader::EntitySink sink_;
  RecordIndex index_;
  std::map<Handle, int> drawings_;  // by their layers' handles
  std::map<Handle, FileBlock> blocks_;
  std::map<Handle, std::string> blockNames_;  // by the handles of the blocks
  Handle lastLayer_ = 0;
  int lastDrawing_ = 1;
  cad_reader::LostLooks looks_;  // of the entity
  std::map<Handle, std::string> names_;
};

template <class Record>
Record DrawingReader::TakeRecord(OpenRecord& open) {
  Record record;
  Data(open.fields, record);
  References(open.fields, record);
  return record;
}

// Parts that are damaged are left out, and the rest is taken.
template <class Function>
void DrawingReader::ForEachPart(Handle owner, const Function& function) {
  for (const auto& [handle, part] : index_.PartsOf(owner)) {
    try {
      OpenRecord open = index_.Open(*part);
      TakeRecord<EntityHead>(open);
      function(part->type, open);
    } catch (const Damage& damage) {
      index_.TellDamage(*part, damage);
    }
  }
}

}  // namespace dwg
