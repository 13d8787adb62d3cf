// The tables of a file, and what else it has to have.
#pragma once

#include <string>

#include "host/cad/dwg/header_records.h"
#include "host/cad/dwg/write_entities.h"

namespace dwg {

/// Writes all records but those of the blocks and the entities.
void WriteTables(RecordWriter& records, const FilePlan& plan);

/// Writes the blocks with all that is drawn in them, and then the entities of the model space.
void WriteDrawing(RecordWriter& records, const FilePlan& plan);

/// The handles of the tables for the header.
FixedHandles HandlesFor(Version version);

}  // namespace dwg
