// DWG files of records of our own, in order or not.
#pragma once

#include <string>

#include "host/cad/dwg/file_header.h"
#include "host/cad/dwg/object_map.h"
#include "host/cad/dwg/record_writer.h"
#include "host/cad/dwg/text_records.h"
#include "support/dwg_drawings.h"

namespace dwg_test {

class DwgOfRecords : public DwgFiles {
 protected:
  /// Writes a file of the records that `write` puts, and nothing else, and reads it into `back`.
  template <class Write>
  CadLoad ReadRecords(const Write& write, dwg::Version version = dwg::Version::k2000) {
    platform::OutputFile output;
    EXPECT_TRUE(output.Open(folder.File("records.dwg")));
    dwg::FileWriter file(output);
    dwg::FileLayout layout;
    layout.version = version;
    file.Zeros(dwg::FileHeader(layout).size());
    dwg::RecordWriter records(file, version);
    write(records);
    std::string map;
    dwg::AppendObjectMap(map, records.Map());
    layout.regions[dwg::kObjectMap] = {file.Position(), map.size()};
    file.Bytes(map);
    output.Overwrite(0, dwg::FileHeader(layout));
    EXPECT_TRUE(output.Commit());
    load = ReadDwg(tdk::WString(folder.File("records.dwg")), back);
    return load;
  }
  static void Block(dwg::RecordWriter& records, dwg::Handle handle, const char* name) {
    dwg::BlockRecord record;
    record.name = name;
    records.Object(dwg::kBlockRecord, handle, {}, record);
  }
  static void Insert(dwg::RecordWriter& records, dwg::Handle handle, dwg::Handle owner,
                     dwg::Handle block) {
    dwg::EntityHead head;
    head.space = owner == 0 ? dwg::Space::kModel : dwg::Space::kOwner;
    head.owner = owner;
    head.layer = 1;
    dwg::InsertRecord record;
    record.block = block;
    records.Entity(dwg::kInsert, handle, head, record);
  }
  /// Layer 0, with handle 1.
  static void Layer(dwg::RecordWriter& records) {
    dwg::LayerRecord layer;
    layer.name = "0";
    records.Object(dwg::kLayer, 1, {}, layer);
  }
};

}  // namespace dwg_test
