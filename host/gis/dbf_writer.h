// Tables into dBASE files.
#pragma once

#include "host/gis/dbf_layout.h"
#include "host/gis/streams.h"

namespace shape {

/// Writes `rows` records of the table (null: the features' numbers) as the layout says, texts in
/// UTF-8. `cpg` gets the name of the encoding. False when it could not be done.
bool WriteDbf(const gis::CTable* table, int rows, const DbfLayout& layout, OutputStream& dbf,
              OutputStream& cpg);

}  // namespace shape
