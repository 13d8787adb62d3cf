// What an import or export has to say besides its result.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "tdk/wstring.h"

namespace shape {

using Remarks = std::vector<tdk::WString>;

tdk::WString NumberText(std::uint64_t number);

/// Appends a text, given untranslated.
void Remark(Remarks& remarks, const char* text, std::initializer_list<tdk::WString> arguments = {});

/// The same with a count for {1}; nothing when it is 0.
void RemarkCount(Remarks& remarks, const char* text, std::uint64_t count);

}  // namespace shape
