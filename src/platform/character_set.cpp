#include "platform/character_set.h"

#include <iconv.h>

#include <array>
#include <cerrno>

#include "platform/code_page.h"
#include "platform/utf8_check.h"

namespace platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

}  // namespace

void CharacterSet::Closer::operator()(void* converter) const { iconv_close(converter); }

std::optional<CharacterSet> CharacterSet::Open(const std::string& name) {
  const iconv_t converter = iconv_open("UTF-8", name.c_str());
  if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  CharacterSet set;
  set.converter_.reset(converter);
  return set;
}

void CharacterSet::AppendUtf8(std::string& utf8, std::string_view bytes) const {
  iconv(converter_.get(), nullptr, nullptr, nullptr, nullptr);
  char* from = const_cast<char*>(bytes.data());  // iconv does not write there
  std::size_t left = bytes.size();
  while (left > 0) {
    std::array<char, 512> out;
    char* to = out.data();
    std::size_t room = out.size();
    const bool isDone =
        iconv(converter_.get(), &from, &left, &to, &room) != static_cast<std::size_t>(-1);
    const int error = errno;
    utf8.append(out.data(), to);
    if (isDone || error == E2BIG || left == 0) continue;
    platform::AppendUtf8(utf8, kReplacement);
    ++from;
    --left;
  }
}

bool IsUtf8(std::string_view text) {
  if (IsAscii(text)) return true;
  Utf8Check check;
  check.Add(text);
  return check.IsUtf8();
}

std::string_view CutUtf8(std::string_view utf8, std::size_t bytes) {
  if (utf8.size() <= bytes) return utf8;
  while (bytes > 0 && ContinuesCharacter(utf8[bytes])) --bytes;
  return utf8.substr(0, bytes);
}

std::string_view FirstCharacters(std::string_view utf8, std::size_t characters) {
  if (utf8.size() <= characters) return utf8;
  std::size_t at = 0;
  while (at < utf8.size() && (characters > 0 || ContinuesCharacter(utf8[at]))) {
    if (!ContinuesCharacter(utf8[at++])) --characters;
  }
  return utf8.substr(0, at);
}

}  // namespace platform
