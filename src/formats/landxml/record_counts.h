// How many records the parts of a LandXML file have: what its progress is measured by.
#pragma once

#include <cstdint>

#include "formats/landxml/landxml_selection.h"

namespace landxml {

/// None for an object that its library does not hold.
std::uint64_t RecordCount(const CLibCmp& library, const CJob& job);
std::uint64_t RecordCount(const CLibGps& library, const CGrpGps& group);
std::uint64_t RecordCount(const CLibPnt& library, const CGrpPnt& group);
std::uint64_t RecordCount(const CDtmPrj& surface);
/// Of everything that is chosen; roads are few and short and are not counted.
std::uint64_t RecordCount(const LandXmlSelection& selection);

}  // namespace landxml
