#include "host/cad/dwg/write_entities.h"
#include "host/cad/writing/geometry.h"

namespace dwg {
namespace {

constexpr std::uint16_t kExactDistance = 2;  // of the lines, 5/3 of the height times a factor

TextRecord RecordOf(const cad_writer::TextLine& line) {
  TextRecord record;
  record.elevation = line.at.getZ();
  record.at = line.at;
  record.height = line.height;
  record.rotation = line.rotation * cad_writer::kRadiansPerDegree;
  record.text = PlainText(line.text);
  record.style = fixed::kStyle;
  return record;
}

AttributeRecord RecordOf(const cad_writer::TextLine& line, std::string_view tag) {
  AttributeRecord record;
  record.text = RecordOf(line);
  record.tag = PlainText(cad_writer::TagOf(tag));
  return record;
}

}  // namespace

void EntityWriter::operator()(const cad::TextShape& text) {
  if (text.text.find('\n') == std::string::npos) {
    Put(kText, RecordOf({text.at, text.height, text.rotation, text.text}));
  } else {
    WriteMultiText(text);
  }
}

// It hangs from the top of its first line.
void EntityWriter::WriteMultiText(const cad::TextShape& text) {
  const cad_writer::Direction direction = cad_writer::DirectionOf(text.rotation);
  MultiTextRecord record;
  record.at = cad_writer::Below(text.at, direction, -text.height);
  record.along = {direction.cos, direction.sin, 0};
  record.height = text.height;
  record.text = MultiText(text.text);
  record.spacingKind = kExactDistance;
  record.style = fixed::kStyle;
  Put(kMultiText, record);
}

void EntityWriter::WriteDefinition(const cad::AttributeDefinition& definition, bool isLast) {
  head_.layer = plan_.LayerHandle(0);
  head_.color = cad::kByLayer;
  BeginEntity(1, isLast);
  AttributeDefinitionRecord record;
  record.attribute = RecordOf({definition.at, definition.height, 0, ""}, definition.tag);
  record.prompt = record.attribute.tag;
  Put(kAttributeDefinition, record);
}

void EntityWriter::operator()(const cad::InsertShape& insert) {
  const std::size_t count = insert.attributes.size();
  InsertRecord record;
  record.at = insert.at;
  record.scale = insert.scale;
  record.rotation = insert.rotation * cad_writer::kRadiansPerDegree;
  record.hasAttributes = count > 0;
  record.block = plan_.HandlesOf(plan_.BlockAt(insert.block)).record;
  record.first = own_ + 1;
  record.last = own_ + count;
  record.end = own_ + count + 1;
  inserts_[static_cast<std::size_t>(insert.block)].push_back(own_);
  Put(kInsert, record);
  if (count > 0) WriteAttributes(insert);
}

void EntityWriter::WriteAttributes(const cad::InsertShape& insert) {
  const std::size_t count = insert.attributes.size();
  cad_writer::AttributePlaces places(
      insert, plan_.Engine().Blocks()[static_cast<std::size_t>(insert.block)]);
  for (std::size_t i = 0; i < count; ++i) {
    const cad::Attribute& attribute = insert.attributes[i];
    EntityHead head = PartHead(i, count);
    AttributeRecord record = RecordOf(places.Of(attribute), attribute.tag);
    records_.Entity(kAttribute, own_ + 1 + i, head, record);
  }
  EndParts(count);
}

}  // namespace dwg
