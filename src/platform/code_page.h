// The 8-bit code page of job files, Windows-1252, to and from UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Appends Windows-1252 bytes to `utf8`. The five unassigned bytes keep their own code point.
void AppendUtf8FromCodePage(std::string& utf8, std::string_view bytes);

/// Appends UTF-8 text to `bytes` in Windows-1252. A character that the code page lacks becomes "?",
/// and so does each byte that is no UTF-8.
void AppendCodePageFromUtf8(std::string& bytes, std::string_view utf8);

/// True when every byte of `text` is below 128.
bool IsAscii(std::string_view text);

/// Appends one code point as UTF-8; what is no Unicode scalar value becomes U+FFFD.
void AppendUtf8(std::string& utf8, char32_t codePoint);

/// Takes the next code point off the front of `utf8`, which must not be empty. A byte that starts
/// no valid sequence is taken alone and returned as U+FFFD.
char32_t TakeCodePoint(std::string_view& utf8);

}  // namespace platform
