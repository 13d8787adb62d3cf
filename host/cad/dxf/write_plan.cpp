#include "host/cad/dxf/write_plan.h"

#include <array>

#include "host/cad/dxf/write_text.h"

namespace dxf_writer {
namespace {

Version VersionOf(const CadSave& how) {
  return how.version == TCAD_DXF_R12 ? Version::kR12 : Version::k2000;
}

PlanRules RulesOf(Version version) {
  return {version == Version::kR12 ? NameRule::kShort : NameRule::kLong, &TextOf, nullptr};
}

}  // namespace

Plan::Plan(const CadSave& how, const CTcadEng& engine)
    : cad_writer::Plan(how, engine, RulesOf(VersionOf(how))), version_(VersionOf(how)) {
  constexpr std::array<std::string_view, 2> kStarts = {"8\n", "100\nAcDbEntity\n8\n"};
  for (const PlannedLayer& layer : Layers()) {
    const std::string_view start = kStarts[static_cast<std::size_t>(version_)];
    layerPairs_.push_back(std::string(start).append(layer.name) += '\n');
  }
}

}  // namespace dxf_writer
