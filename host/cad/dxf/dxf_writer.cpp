#include "host/cad/dxf/dxf_writer.h"

#include "host/cad/dxf/write_entities.h"
#include "host/cad/dxf/write_plan.h"
#include "host/cad/dxf/write_sections.h"
#include "host/cad/dxf/write_tags.h"
#include "platform/output_file.h"
#include "services/progress.h"

namespace dxf_writer {
namespace {

void WriteAll(EntityWriter& writer, const Plan& plan, const std::vector<cad::Entity>& entities,
              int block, Handle owner) {
  ProgressSteps progress(entities.size());
  for (const cad::Entity& entity : entities) {
    progress.Step();
    if (plan.TakesAll() || plan.FateOf(entity, block) == Fate::kWritten) {
      writer.Write(entity, owner);
    }
  }
}

void WriteBlocks(Tags& tags, const Plan& plan, EntityWriter& writer) {
  BeginBlocks(tags);
  for (const int position : plan.BlockOrder()) {
    const cad::Block& block = plan.Engine().Blocks()[static_cast<std::size_t>(position)];
    const PlannedBlock& planned = plan.BlockAt(position);
    writer.BeginBlock(block, planned);
    WriteAll(writer, plan, block.entities, position, RecordOf(planned));
    writer.EndBlock(planned);
  }
  EndSection(tags);
}

void WriteEntities(Tags& tags, const Plan& plan, EntityWriter& writer) {
  BeginEntities(tags);
  WriteAll(writer, plan, plan.Engine().Entities(), kInNoBlock, kModelSpaceRecord);
  EndSection(tags);
}

}  // namespace
}  // namespace dxf_writer

CadWritten WriteDxfCounting(const CadSave& how, const CTcadEng& engine) {
  using namespace dxf_writer;
  platform::OutputFile file;
  if (!file.Open(how.path.ToUtf8())) return {};
  const dxf_writer::Plan plan(how, engine);
  Tags tags(file, plan.FileVersion(), plan.FirstFreeHandle());
  EntityWriter writer(tags, plan);
  WriteHeader(tags, plan);
  WriteTables(tags, plan);
  WriteBlocks(tags, plan, writer);
  WriteEntities(tags, plan, writer);
  WriteEnd(tags);
  return {file.Commit(), plan.LeftOut(), plan.Straightened(), plan.Hidden()};
}

bool WriteDxf(const CadSave& how, const CTcadEng& engine) {
  return WriteDxfCounting(how, engine).isWritten;
}
