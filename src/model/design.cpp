#include "model/design.h"

namespace gis {

ILinkImportedEnt::~ILinkImportedEnt() = default;

}  // namespace gis
