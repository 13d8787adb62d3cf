// Whole records, with their frame, into a file.
#pragma once

#include <vector>

#include "host/cad/dwg/bit_writer.h"
#include "host/cad/dwg/entity_records.h"
#include "host/cad/dwg/field_writer.h"
#include "host/cad/dwg/file_writer.h"
#include "host/cad/dwg/object_map.h"
#include "host/cad/dwg/polyline_records.h"
#include "host/cad/dwg/table_records.h"

namespace dwg {

class RecordWriter {
 public:
  /// Keeps the file.
  RecordWriter(FileWriter& file, Version version)
      : file_(file), version_(version), fields_(bits_, version) {}

  Version FileVersion() const { return version_; }

  template <class Record>
  void Entity(unsigned type, Handle handle, EntityHead& head, Record& record) {
    Begin(type, handle);
    fields_.Flag(false);  // no picture of it
    Finish(handle, head, record);
  }

  template <class Record>
  void Object(unsigned type, Handle handle, ObjectHead head, Record& record) {
    Begin(type, handle);
    Finish(handle, head, record);
  }

  /// Where all records lie, in the order in which they were written.
  std::vector<MapEntry>& Map() { return map_; }

 private:
  void Begin(unsigned type, Handle handle);
  template <class Head, class Record>
  void Finish(Handle handle, Head& head, Record& record) {
    if (!fields_.Is2000()) ReserveSize();
    Data(fields_, head);
    Data(fields_, record);
    EndData();
    References(fields_, head);
    References(fields_, record);
    End(handle);
  }
  // The number of bits up to the references comes later.
  void ReserveSize();
  void EndData();
  void End(Handle handle);

  FileWriter& file_;
  Version version_;
  BitWriter bits_;
  FieldWriter fields_;
  std::size_t sizeAt_ = 0;
  std::vector<MapEntry> map_;
};

}  // namespace dwg
