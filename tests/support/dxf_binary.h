// Binary DXF files, made from the "CODE VALUE" lines of a text file.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace dxf_test {

/// How a binary file writes its codes.
enum class Codes { kOneByte, kTwoBytes };

template <class Number>
std::string LittleEndian(Number number) {
  std::string bytes(sizeof number, '\0');
  std::memcpy(bytes.data(), &number, sizeof number);
  return bytes;
}

/// The number of a text with a decimal point, whatever the locale has.
inline double WithPoint(const std::string& text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

inline std::string BinaryCode(int code, Codes codes) {
  if (codes == Codes::kTwoBytes) return LittleEndian(static_cast<std::int16_t>(code));
  if (code < 255) return {static_cast<char>(code)};
  return '\xFF' + LittleEndian(static_cast<std::int16_t>(code));
}

/// The value as the type that it has in a binary file.
inline std::string BinaryValue(int code, const std::string& value) {
  const auto within = [code](int first, int last) { return code >= first && code <= last; };
  if (within(10, 59) || within(110, 149) || within(210, 239) || within(460, 469) ||
      within(1010, 1059)) {
    return LittleEndian(WithPoint(value));
  }
  if (within(60, 79) || within(170, 179) || within(270, 289) || within(370, 389) ||
      within(400, 409) || within(1060, 1070)) {
    return LittleEndian(static_cast<std::int16_t>(std::stoi(value)));
  }
  if (within(90, 99) || within(420, 429) || within(440, 459) || code == 1071) {
    return LittleEndian(static_cast<std::int32_t>(std::stoi(value)));
  }
  if (within(160, 169)) return LittleEndian(static_cast<std::int64_t>(std::stoll(value)));
  if (within(290, 299)) return {static_cast<char>(std::stoi(value))};
  if (within(310, 319) || code == 1004) return static_cast<char>(value.size()) + value;
  return value + '\0';
}

inline std::string Binary(std::string_view lines, Codes codes) {
  std::string bytes("AutoCAD Binary DXF\r\n\x1A\0", 22);
  while (!lines.empty()) {
    const std::string line(lines.substr(0, lines.find('\n')));
    lines.remove_prefix(std::min(lines.size(), line.size() + 1));
    const std::size_t blank = line.find(' ');
    const int code = std::stoi(line.substr(0, blank));
    const std::string value = blank == line.npos ? "" : line.substr(blank + 1);
    bytes += BinaryCode(code, codes) + BinaryValue(code, value);
  }
  return bytes;
}

}  // namespace dxf_test
