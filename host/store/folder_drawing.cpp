#include "host/store/folder_drawing.h"

#include "host/store/drawing_builder.h"
#include "host/store/folder_rows.h"

namespace {

class DrawingWriter {
 public:
  DrawingWriter(const Database& database, const CTcadEng& engine, PointProgress& progress)
      : engine_(engine),
        layers_(database, kLayerTable),
        blocks_(database, kBlockTable),
        definitions_(database, kDefinitionTable),
        entities_(database, kEntityTable),
        points_(database, kEntityPointTable),
        attributes_(database, kAttributeTable),
        progress_(progress) {}

  void Write() {
    for (int id = 1; id <= engine_.GetNoDrawings(); ++id) layers_.Add(LayerOf(engine_, id));
    int position = 0;
    for (const cad::Block& block : engine_.Blocks()) {
      if (!block.isPrivate) WriteBlock(block, position++);
    }
    WriteEntities(engine_.Entities(), kNoBlock);
  }

 private:
  void WriteBlock(const cad::Block& block, int position) {
    blocks_.Add(RecordOf(block));
    for (const cad::AttributeDefinition& definition : block.attributes) {
      definitions_.Add(RecordOf(definition), position);
    }
    WriteEntities(block.entities, position);
  }

  void WriteEntities(const std::vector<cad::Entity>& entities, int block) {
    for (const cad::Entity& entity : entities) {
      if (!IsStored(engine_, entity)) continue;
      WriteEntity(RecordOf(engine_, entity), block);
      progress_.Step();
    }
  }

  void WriteEntity(const EntityRecord& record, int block) {
    entities_.Add(record, block);
    for (std::size_t i = 0; i < record.points.size(); ++i) {
      points_.Add({Parts(record.points[i]), record.bulges.empty() ? 0 : record.bulges[i]},
                  written_);
    }
    for (const cad::Attribute& attribute : record.attributes) {
      attributes_.Add({attribute.tag, attribute.text}, written_);
    }
    ++written_;
  }

  const CTcadEng& engine_;
  Inserter<LayerRecord> layers_;
  Inserter<BlockRecord> blocks_;
  Inserter<AttributeDefinitionRecord> definitions_;
  Inserter<EntityRecord> entities_;
  Inserter<EntityPointRecord> points_;
  Inserter<AttributeRecord> attributes_;
  PointProgress& progress_;
  int written_ = 0;  // entities, those of blocks included
};

// The lists of an entity stand in tables of their own, in the order of the entities.
class DrawingReader {
 public:
  DrawingReader(const Database& database, CTcadEng& engine, PointProgress& progress)
      : database_(database),
        engine_(engine),
        builder_(engine),
        points_(database, kEntityPointTable),
        attributes_(database, kAttributeTable),
        progress_(progress) {}

  void Read() {
    ForEachRow(database_, kLayerTable,
               [&](const auto& row, const RowParents&) { Require(builder_.AddLayer(row)); });
    ForEachRow(database_, kBlockTable, [&](const auto& row, const RowParents&) {
      Require(builder_.AddBlock({row.name, PointOf(row.at), {}, {}}));
    });
    ForEachRow(database_, kDefinitionTable, [&](const auto& row, const RowParents& parents) {
      BlockOf(parents).attributes.push_back(DefinitionOf(row));
    });
    int entity = 0;
    ForEachRow(database_, kEntityTable, [&](auto& row, const RowParents& parents) {
      ReadLists(row, entity++);
      Put(row, parents);
      progress_.Step();
    });
    Require(points_.IsAtEnd() && attributes_.IsAtEnd() && !builder_.Finish());
  }

 private:
  void ReadLists(EntityRecord& record, int entity) {
    record.points.clear();
    record.bulges.clear();
    record.attributes.clear();
    for (; points_.IsOf(entity); points_.Next()) {
      record.points.push_back(PointOf(points_.Row().place));
      record.bulges.push_back(points_.Row().bulge);
    }
    for (; attributes_.IsOf(entity); attributes_.Next()) {
      record.attributes.push_back({attributes_.Row().tag, attributes_.Row().text});
    }
  }

  void Put(const EntityRecord& record, const RowParents& parents) {
    cad::Entity entity;
    Require(!builder_.Make(record, entity));
    if (parents[0] == kNoBlock) {
      builder_.Add(std::move(entity));
    } else {
      BlockOf(parents).entities.push_back(std::move(entity));
    }
  }

  cad::Block& BlockOf(const RowParents& parents) {
    Require(parents[0] >= 0 && static_cast<std::size_t>(parents[0]) < engine_.Blocks().size());
    return engine_.BlockAt(parents[0]);
  }

  void Require(bool isSound) const {
    if (!isSound) database_.Fail("the job is damaged: a record of the drawing does not fit there");
  }

  const Database& database_;
  CTcadEng& engine_;
  DrawingBuilder builder_;
  RowCursor<EntityPointRecord> points_;
  RowCursor<AttributeRecord> attributes_;
  PointProgress& progress_;
};

}  // namespace

void WriteDrawing(const Database& database, const CTcadEng& engine, PointProgress& progress) {
  DrawingWriter(database, engine, progress).Write();
}

void ReadDrawing(const Database& database, CTcadEng& engine, PointProgress& progress) {
  DrawingReader(database, engine, progress).Read();
}
