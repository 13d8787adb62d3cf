#include <algorithm>

#include "host/cad/dxf/write_entities.h"
#include "host/cad/dxf/write_text.h"
#include "host/cad/writing/attributes.h"
#include "host/cad/writing/soundness.h"

namespace dxf_writer {
namespace {

constexpr EntityKind kBlock{"0\nBLOCK\n", "100\nAcDbBlockBegin\n"};
constexpr EntityKind kBlockEnd{"0\nENDBLK\n", "100\nAcDbBlockEnd\n"};
constexpr EntityKind kInsert{"0\nINSERT\n", "100\nAcDbBlockReference\n"};
constexpr EntityKind kAttribute{"0\nATTRIB\n", "100\nAcDbText\n"};
constexpr EntityKind kDefinition{"0\nATTDEF\n", "100\nAcDbText\n"};

constexpr int kHasAttributes = 2;
constexpr int kFirstDrawing = 1;

}  // namespace

void EntityWriter::BeginBlock(const cad::Block& block, const PlannedBlock& planned) {
  layer_ = plan_.LayerPairs(kFirstDrawing);
  color_ = cad::kByLayer;
  const bool hasAttributes = std::any_of(block.attributes.begin(), block.attributes.end(),
                                         [](const auto& it) { return IsSound(it); });
  Begin(kBlock, RecordOf(planned));
  tags_.Text<2>(planned.name);
  tags_.Whole<70>(hasAttributes ? kHasAttributes : 0);
  tags_.Place<10>(block.base);
  tags_.Text<3>(planned.name);
  tags_.Text<1>("");
  for (const cad::AttributeDefinition& definition : block.attributes) {
    if (IsSound(definition)) WriteDefinition(definition, RecordOf(planned));
  }
}

void EntityWriter::EndBlock(const PlannedBlock& planned) {
  layer_ = plan_.LayerPairs(kFirstDrawing);
  color_ = cad::kByLayer;
  Begin(kBlockEnd, RecordOf(planned));
}

void EntityWriter::WriteDefinition(const cad::AttributeDefinition& definition, Handle owner) {
  const std::string tag = TextOf(TagOf(definition.tag));
  Begin(kDefinition, owner);
  PutTextLine({definition.at, definition.height, 0, ""});
  tags_.Class("AcDbAttributeDefinition\n");
  tags_.Text<3>(tag);
  tags_.Text<2>(tag);
  tags_.Whole<70>(0);
}

void EntityWriter::operator()(const cad::InsertShape& insert) {
  const Handle handle = Begin(kInsert);
  if (!insert.attributes.empty()) tags_.Whole<66>(1);
  tags_.Text<2>(plan_.BlockAt(insert.block).name);
  tags_.Place<10>(insert.at);
  tags_.RealUnless<41>(1, insert.scale.getX());
  tags_.RealUnless<42>(1, insert.scale.getY());
  tags_.RealUnless<43>(1, insert.scale.getZ());
  tags_.RealUnless<50>(0, insert.rotation);
  if (!insert.attributes.empty()) WriteAttributes(insert, handle);
}

void EntityWriter::WriteAttributes(const cad::InsertShape& insert, Handle owner) {
  const auto position = static_cast<std::size_t>(insert.block);
  AttributePlaces places(insert, plan_.Engine().Blocks()[position]);
  for (const cad::Attribute& attribute : insert.attributes) {
    WriteAttribute(attribute, places.Of(attribute), owner);
  }
  End(owner);
}

void EntityWriter::WriteAttribute(const cad::Attribute& attribute, const TextLine& line,
                                  Handle owner) {
  Begin(kAttribute, owner);
  PutTextLine(line);
  tags_.Class("AcDbAttribute\n");
  tags_.Text<2>(TextOf(TagOf(attribute.tag)));
  tags_.Whole<70>(0);
}

}  // namespace dxf_writer
