// What a file has besides its blocks and entities.
#pragma once

#include "host/cad/dxf/write_plan.h"
#include "host/cad/dxf/write_tags.h"

namespace dxf_writer {

void WriteHeader(Tags& tags, const Plan& plan);
void WriteTables(Tags& tags, const Plan& plan);
/// In version 2000 with the blocks of model and paper.
void BeginBlocks(Tags& tags);
void BeginEntities(Tags& tags);
void EndSection(Tags& tags);
/// What version 2000 has after its entities.
void WriteObjects(Tags& tags);
void WriteEnd(Tags& tags);

}  // namespace dxf_writer
