#include "host/cad/dxf/write_tags.h"

#include <algorithm>

namespace dxf_writer {
namespace {

bool IsWhole(double value) {
  constexpr double kNoFractions = 0x1p53;  // from here on
  if (value >= kNoFractions || value <= -kNoFractions) return true;
  return static_cast<double>(static_cast<std::int64_t>(value)) == value;
}

}  // namespace

void Tags::Pairs(std::string_view pairs) {
  while (!pairs.empty()) {
    const std::size_t length = std::min(pairs.find('\n'), pairs.size());
    const std::string_view pair = pairs.substr(0, length);
    pairs.remove_prefix(std::min(length + 1, pairs.size()));
    const std::size_t code = std::min(pair.find(' '), pair.size());
    text_.append(pair.substr(0, code)).append("\n");
    text_.append(pair.substr(std::min(code + 1, pair.size()))).append("\n");
  }
}

// Whole values are told from integers by their decimals or exponent, and zero has no sign.
void Tags::RealLine(double value) {
  if (value == 0) {
    text_ += "0.0\n";
    return;
  }
  const std::size_t start = text_.size();
  platform::AppendShortest(text_, value);
  const bool needsDecimals =
      IsWhole(value) && text_.find_first_of(".e", start) == std::string::npos;
  text_ += needsDecimals ? std::string_view(".0\n") : std::string_view("\n");
}

void Tags::HandleLine(Handle handle) {
  std::array<char, 17> line;
  char* at = line.data() + line.size();
  *--at = '\n';
  do {
    *--at = "0123456789ABCDEF"[handle & 0xF];
    handle >>= 4;
  } while (handle != 0);
  text_.append(at, static_cast<std::size_t>(line.data() + line.size() - at));
}

}  // namespace dxf_writer
