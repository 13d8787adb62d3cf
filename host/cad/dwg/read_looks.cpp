#include "host/cad/dwg/read_drawing.h"

namespace dwg {

void DrawingReader::TakeLooks(const EntityHead& head) {
  looks_ = {};
  looks_.TakeLineType(NameOf(head.lineType, kLineType));
  looks_.TakeLineWeight(WeightOf(head.lineWeight));
}

void DrawingReader::TakeTextLooks(double thickness, Handle style) {
  looks_.TakeExtent(thickness);
  looks_.TakeTextStyle(NameOf(style, kStyle));
}

const std::string& DrawingReader::NameOf(Handle handle, Type type) {
  static const std::string kNone;
  if (handle == 0) return kNone;
  const auto [found, isNew] = names_.try_emplace(handle);
  if (isNew) found->second = ReadName(handle, type);
  return found->second;
}

std::string DrawingReader::ReadName(Handle handle, Type type) {
  std::string name;
  const IndexedRecord* const record = index_.Find(handle);
  if (record == nullptr || record->type != type) return name;
  try {
    OpenRecord open = index_.Open(*record);
    ObjectHead head;
    Data(open.fields, head);
    TableName(open.fields, name);
  } catch (const Damage& damage) {
    index_.TellDamage(*record, damage);
  }
  return name;
}

}  // namespace dwg
