#include "tdk/wstring.h"

#include <algorithm>

#include "platform/code_page.h"

namespace tdk {

WString::WString(const wchar_t* wide) {
  for (; *wide != L'\0'; ++wide) platform::AppendUtf8(utf8_, static_cast<char32_t>(*wide));
}

std::wstring WString::ToWide() const {
  std::wstring wide;
  std::string_view rest = utf8_;
  while (!rest.empty()) wide += static_cast<wchar_t>(platform::TakeCodePoint(rest));
  return wide;
}

std::size_t WString::Length() const {
  // Every byte that does not continue a character starts one.
  return static_cast<std::size_t>(std::count_if(utf8_.begin(), utf8_.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

WString ConvertString(std::string_view text, int /*codePage*/) {
  if (platform::IsAscii(text)) return WString(text);
  std::string utf8;
  platform::AppendUtf8FromCodePage(utf8, text);
  return WString(std::move(utf8));
}

WString GetPrgName() { return "KalvioField"; }

}  // namespace tdk
