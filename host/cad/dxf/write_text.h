// Texts as the pairs of a file hold them.
#pragma once

#include <string>
#include <string_view>

#include "host/cad/writing/text.h"

namespace dxf_writer {

using namespace cad_writer;

/// Appends a UTF-8 text as one line of the file (see writing/text.h).
inline void AppendText(std::string& bytes, std::string_view utf8) {
  cad_writer::AppendText(bytes, utf8, TextForm::kLine);
}

std::string TextOf(std::string_view utf8);

/// Appends the pairs (codes 3 and 1) of a multi-line text, in which line feeds part the lines.
void AppendMultiLineText(std::string& bytes, std::string_view utf8);

}  // namespace dxf_writer
