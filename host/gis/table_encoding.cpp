#include "host/gis/table_encoding.h"

#include <algorithm>

#include "platform/code_page.h"
#include "platform/letters.h"
#include "platform/numbers.h"

namespace shape {
namespace {

// Language bytes of dBASE and the code pages they stand for.
struct LanguageRow {
  int byte;
  int codePage;
};
constexpr LanguageRow kLanguages[] = {
    {0x01, 437},  {0x02, 850},  {0x03, 1252}, {0x08, 865},  {0x09, 437}, {0x0A, 850},  {0x0B, 437},
    {0x0D, 437},  {0x0E, 850},  {0x0F, 437},  {0x10, 850},  {0x11, 437}, {0x12, 850},  {0x13, 932},
    {0x14, 850},  {0x15, 437},  {0x16, 850},  {0x17, 865},  {0x18, 437}, {0x19, 437},  {0x1A, 850},
    {0x1B, 437},  {0x1C, 863},  {0x1D, 850},  {0x1F, 852},  {0x22, 852}, {0x23, 852},  {0x24, 860},
    {0x25, 850},  {0x26, 866},  {0x37, 850},  {0x40, 852},  {0x4D, 936}, {0x4E, 949},  {0x4F, 950},
    {0x50, 874},  {0x57, 1252}, {0x58, 1252}, {0x59, 1252}, {0x64, 852}, {0x65, 866},  {0x66, 865},
    {0x67, 861},  {0x6A, 737},  {0x6B, 857},  {0x6C, 863},  {0x78, 950}, {0x79, 949},  {0x7A, 936},
    {0x7B, 932},  {0x7C, 874},  {0x86, 737},  {0x87, 852},  {0x88, 857}, {0xC8, 1250}, {0xC9, 1251},
    {0xCA, 1254}, {0xCB, 1253}, {0xCC, 1257}};

// What a label may have before the number of a code page.
constexpr std::string_view kPrefixes[] = {"WINDOWS-", "WINDOWS", "ANSI", "OEM", "CP", "IBM"};
constexpr std::string_view kIsoPrefixes[] = {"ISO-8859-", "ISO8859-", "ISO_8859-",
                                             "ISO8859",   "8859-",    "8859"};

constexpr std::size_t kLongestName = 20;

std::string Plain(std::string_view label) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (label.starts_with(kByteOrderMark)) label.remove_prefix(kByteOrderMark.size());
  label = label.substr(0, label.find_first_of(std::string_view("\r\n\0", 3)));
  std::string plain;
  for (const char c : label) {
    if (c == ' ' || c == '\t') continue;
    plain += platform::Capital(c);
  }
  return plain;
}

std::string CodePageName(std::string_view digits) {
  const bool areDigits = !digits.empty() && digits.size() <= 5 &&
                         std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
  if (!areDigits) return {};
  return digits == "65001" ? "UTF-8" : "CP" + std::string(digits);
}

std::string NameOf(std::string_view label) {
  if (label == "UTF8" || label == "UTF-8" || label == "UTF_8") return "UTF-8";
  for (const std::string_view prefix : kIsoPrefixes) {
    if (!label.starts_with(prefix)) continue;
    const std::string part = CodePageName(label.substr(prefix.size()));
    if (part.size() > 2 && part.size() <= 4) return "ISO-8859-" + part.substr(2);
  }
  for (const std::string_view prefix : kPrefixes) {
    if (!label.starts_with(prefix)) continue;
    const std::string name = CodePageName(label.substr(prefix.size()));
    if (!name.empty()) return name;
  }
  const std::string number = CodePageName(label);
  if (!number.empty()) return number;
  // Whatever else the system's converter knows. It takes orders after a slash.
  const bool isName =
      label.size() >= 3 && label.size() <= kLongestName && std::ranges::all_of(label, [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
      });
  return isName ? std::string(label) : std::string();
}

std::string NameOfLanguage(int byte) {
  const auto* const found =
      std::ranges::find_if(kLanguages, [&](const LanguageRow& row) { return row.byte == byte; });
  if (found == std::end(kLanguages)) return {};
  std::string name = "CP";
  platform::AppendWhole(name, found->codePage);
  return name;
}

}  // namespace

TableEncoding TableEncoding::Of(std::string_view label, int languageByte) {
  TableEncoding encoding;
  const std::string plain = Plain(label);
  const auto use = [&encoding](const std::string& name) {
    encoding.isCodePage_ = name == "CP1252";
    if (!encoding.isCodePage_ && name != "UTF-8" && !name.empty()) {
      encoding.set_ = platform::CharacterSet::Open(name);
    }
    const bool isKnown = encoding.isCodePage_ || name == "UTF-8" || encoding.set_;
    if (isKnown) encoding.name_ = name;
    return isKnown;
  };
  if (!plain.empty() && use(NameOf(plain))) return encoding;
  encoding.hasBadLabel_ = !plain.empty();
  use(NameOfLanguage(languageByte));
  return encoding;
}

std::string_view TableEncoding::ToUtf8(std::string_view bytes, std::string& scratch) {
  if (set_) {
    if (platform::IsAscii(bytes)) return bytes;
    scratch.clear();
    set_->AppendUtf8(scratch, bytes);
    return scratch;
  }
  if (isCodePage_ ? platform::IsAscii(bytes) : platform::IsUtf8(bytes)) return bytes;
  if (name_ == "UTF-8") ++misfits_;
  scratch.clear();
  platform::AppendUtf8FromCodePage(scratch, bytes);
  return scratch;
}

}  // namespace shape
