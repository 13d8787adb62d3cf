#include "platform/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Code points of the bytes 0x80 to 0x9F; all others stand for themselves.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char NarrowOne(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint < 0x100)) {
    return static_cast<char>(codePoint);
  }
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), codePoint);
  if (found == kUpperControls.end()) return '?';
  return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

// Number of bytes of the sequence that `lead` starts; 0 when it starts none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

bool IsScalarValue(char32_t codePoint) {
  return codePoint < 0xD800 || (codePoint > 0xDFFF && codePoint <= 0x10FFFF);
}

}  // namespace

bool IsAscii(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  for (; end - at >= 8; at += 8) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    if (word & 0x8080808080808080U) return false;
  }
  return std::all_of(at, end, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void AppendUtf8(std::string& utf8, char32_t codePoint) {
  if (!IsScalarValue(codePoint)) codePoint = kReplacement;
  const auto tail = [&](int shift) {
    return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
  };
  if (codePoint < 0x80) {
    utf8 += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    utf8 += static_cast<char>(0xC0 | (codePoint >> 6));
    utf8 += tail(0);
  } else if (codePoint < 0x10000) {
    utf8 += static_cast<char>(0xE0 | (codePoint >> 12));
    utf8 += tail(6);
    utf8 += tail(0);
  } else {
    utf8 += static_cast<char>(0xF0 | (codePoint >> 18));
    utf8 += tail(12);
    utf8 += tail(6);
    utf8 += tail(0);
  }
}

char32_t TakeCodePoint(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = SequenceLength(lead);
  const auto reject = [&] {
    utf8.remove_prefix(1);
    return kReplacement;
  };
  if (length == 0 || length > utf8.size()) return reject();
  if (length == 1) {
    utf8.remove_prefix(1);
    return lead;
  }
  char32_t codePoint = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if ((byte & 0xC0) != 0x80) return reject();
    codePoint = (codePoint << 6) | (byte & 0x3FU);
  }
  constexpr std::array<char32_t, 5> kLeastOfLength = {0, 0, 0x80, 0x800, 0x10000};
  if (codePoint < kLeastOfLength[length] || !IsScalarValue(codePoint)) return reject();
  utf8.remove_prefix(length);
  return codePoint;
}

void AppendUtf8FromCodePage(std::string& utf8, std::string_view bytes) {
  if (IsAscii(bytes)) {
    utf8.append(bytes);
    return;
  }
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : byte);
  }
}

void AppendCodePageFromUtf8(std::string& bytes, std::string_view utf8) {
  if (IsAscii(utf8)) {
    bytes.append(utf8);
    return;
  }
  while (!utf8.empty()) bytes += NarrowOne(TakeCodePoint(utf8));
}

}  // namespace platform
