#include "host/landxml/xml_stream.h"

#include <expat.h>
#include <iconv.h>
#include <strings.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

#include "platform/code_page.h"
#include "platform/input_file.h"
#include "platform/numbers.h"
#include "platform/utf8_check.h"
#include "services/translate.h"

namespace landxml_load {
namespace {

constexpr std::size_t kBlockSize = 256 * 1024;
constexpr int kDeepest = 200;
constexpr const char* kGuessedEncoding = "windows-1252";

struct ParserCloser {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ParserHandle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserCloser>;

std::string_view WithoutPrefix(std::string_view name) {
  const std::size_t colon = name.rfind(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool IsSameWord(std::string_view a, std::string_view b) {
  return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

// The encoding that the beginning of a file declares; empty when it declares none.
std::string_view DeclaredEncoding(std::string_view beginning) {
  const std::string_view declaration = beginning.substr(0, beginning.find("?>"));
  const std::size_t at = declaration.find("encoding");
  if (at == std::string_view::npos || declaration.size() == beginning.size()) return {};
  std::string_view value = declaration.substr(at);
  const std::size_t quote = value.find_first_of("\"'");
  if (quote == std::string_view::npos) return {};
  const char mark = value[quote];
  value.remove_prefix(quote + 1);
  return value.substr(0, value.find(mark));
}

bool IsUtf16(std::string_view beginning) {
  if (beginning.starts_with("\xFE\xFF") || beginning.starts_with("\xFF\xFE")) return true;
  return beginning.size() > 1 && (beginning[0] == '\0' || beginning[1] == '\0');
}

// What a file can be in: nothing stands for what the parser finds out by itself.
struct Encoding {
  const char* name = nullptr;
  bool isGuessed = false;
};

// UTF-16 has its marks, and one that is in UTF-8 is taken for it, whatever it says.
Encoding FindEncoding(platform::InputFile& file) {
  std::vector<char> block(kBlockSize);
  platform::Utf8Check check;
  bool isFirst = true;
  while (const std::size_t got = file.Read(block.data(), block.size())) {
    const std::string_view text(block.data(), got);
    if (std::exchange(isFirst, false)) {
      const std::string_view declared = DeclaredEncoding(text);
      const bool isUnsaid = declared.empty() || IsSameWord(declared, "utf-8") ||
                            IsSameWord(declared, "utf8") || IsSameWord(declared, "us-ascii") ||
                            IsSameWord(declared, "ascii");
      if (IsUtf16(text)) return {};
      if (!isUnsaid && strncasecmp(declared.data(), "utf-16", 6) != 0) return {};
    }
    check.Add(text);
  }
  return check.IsUtf8() ? Encoding{"utf-8"} : Encoding{kGuessedEncoding, true};
}

// Fills the table of an 8-bit encoding: the code point of each byte.
bool FillTable(const char* encoding, int* table) {
  const iconv_t converter = iconv_open("UTF-32LE", encoding);
  if (converter == reinterpret_cast<iconv_t>(-1)) return false;
  bool isSingleByte = true;
  for (int byte = 0; byte < 256; ++byte) {
    char in = static_cast<char>(byte);
    char* from = &in;
    std::size_t left = 1;
    std::array<char, 4> out{};
    char* to = out.data();
    std::size_t room = out.size();
    const std::size_t result = iconv(converter, &from, &left, &to, &room);
    const bool isThere = result != static_cast<std::size_t>(-1) && room == 0;
    if (!isThere && errno == EINVAL) isSingleByte = false;  // more bytes belong to it
    if (!isThere) iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (!isThere && byte < 0x80) isSingleByte = false;
    std::uint32_t codePoint = 0;
    std::memcpy(&codePoint, out.data(), sizeof codePoint);
    table[byte] = isThere ? static_cast<int>(codePoint) : -1;
  }
  iconv_close(converter);
  return isSingleByte;
}

void FillCodePageTable(int* table) {
  for (int byte = 0; byte < 256; ++byte) {
    const char one = static_cast<char>(byte);
    std::string utf8;
    platform::AppendUtf8FromCodePage(utf8, {&one, 1});
    std::string_view rest = utf8;
    table[byte] = static_cast<int>(platform::TakeCodePoint(rest));
  }
}

int XMLCALL OnUnknownEncoding(void* /*data*/, const XML_Char* name, XML_Encoding* encoding) {
  encoding->data = nullptr;
  encoding->convert = nullptr;
  encoding->release = nullptr;
  if (strcasecmp(name, kGuessedEncoding) == 0) {
    FillCodePageTable(encoding->map);
    return XML_STATUS_OK;
  }
  return FillTable(name, encoding->map) ? XML_STATUS_OK : XML_STATUS_ERROR;
}

// What the handlers of the parser, which is no C++, need: an exception waits here until the parser
// has come to a stop.
struct Reading {
  XML_Parser parser;
  XmlEvents& events;
  const XmlStream& stream;
  int depth = 0;
  std::exception_ptr thrown = nullptr;

  template <class Event>
  void Tell(const Event& event) {
    if (thrown != nullptr) return;
    try {
      event();
    } catch (...) {
      thrown = std::current_exception();
      XML_StopParser(parser, XML_FALSE);
    }
  }
};

void XMLCALL OnBegin(void* data, const XML_Char* name, const XML_Char** attributes) {
  auto& reading = *static_cast<Reading*>(data);
  reading.Tell([&] {
    if (++reading.depth > kDeepest) {
      reading.stream.Fail(Xlate("elements are nested too deep").ToUtf8());
    }
    reading.events.Begin(XmlTag(WithoutPrefix(name), attributes, reading.stream));
  });
}

void XMLCALL OnEnd(void* data, const XML_Char* /*name*/) {
  auto& reading = *static_cast<Reading*>(data);
  --reading.depth;
  reading.Tell([&] { reading.events.End(); });
}

void XMLCALL OnText(void* data, const XML_Char* text, int length) {
  auto& reading = *static_cast<Reading*>(data);
  reading.Tell([&] { reading.events.Text({text, static_cast<std::size_t>(length)}); });
}

// What the library says of the file, for people who do not know it.
std::string Reason(XML_Error error) {
  switch (error) {
    case XML_ERROR_NO_ELEMENTS:
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_PARTIAL_CHAR: return Xlate("the file ends too early").ToUtf8();
    case XML_ERROR_UNKNOWN_ENCODING:
    case XML_ERROR_INCORRECT_ENCODING: return Xlate("its encoding cannot be read").ToUtf8();
    case XML_ERROR_AMPLIFICATION_LIMIT_BREACH:
      return Xlate("its entities grow without bound").ToUtf8();
    default: return Fill(Xlate("this is no XML: {1}"), {XML_ErrorString(error)}).ToUtf8();
  }
}

}  // namespace

XmlEvents::~XmlEvents() = default;

const char* XmlTag::Find(std::string_view attribute) const {
  for (const char* const* each = attributes_; *each != nullptr; each += 2) {
    if (attribute == WithoutPrefix(*each)) return each[1];
  }
  return nullptr;
}

void XmlTag::ForEach(const std::function<void(std::string_view, std::string_view)>& visit) const {
  for (const char* const* each = attributes_; *each != nullptr; each += 2) {
    visit(WithoutPrefix(*each), each[1]);
  }
}

std::uint64_t XmlTag::Line() const { return stream_.Line(); }

XmlStream::XmlStream(const std::string& path, const LoadProgress& progress)
    : path_(path), progress_(progress) {
  platform::InputFile file;
  if (!file.Open(path)) throw LoadError(path + ": " + Xlate("cannot be opened").ToUtf8());
  // A pipe cannot be read twice.
  if (file.Size() == 0) return;
  const Encoding encoding = FindEncoding(file);
  encoding_ = encoding.name;
  isGuessed_ = encoding.isGuessed;
}

std::uint64_t XmlStream::Line() const {
  return parser_ == nullptr ? 0 : XML_GetCurrentLineNumber(static_cast<XML_Parser>(parser_));
}

void XmlStream::Fail(const std::string& reason) const {
  std::string line;
  platform::AppendWhole(line, static_cast<std::int64_t>(Line()));
  throw LoadError(
      path_ + ": " +
      Fill(Xlate("line {1}: {2}"), {tdk::WString(line), tdk::WString(reason)}).ToUtf8());
}

void XmlStream::Read(XmlEvents& events) {
  platform::InputFile file;
  if (!file.Open(path_)) throw LoadError(path_ + ": " + Xlate("cannot be opened").ToUtf8());
  const ParserHandle parser(XML_ParserCreate(encoding_));
  if (parser == nullptr) throw std::bad_alloc();
  parser_ = parser.get();
  Reading reading{parser.get(), events, *this};
  XML_SetUserData(parser.get(), &reading);
  XML_SetElementHandler(parser.get(), OnBegin, OnEnd);
  XML_SetCharacterDataHandler(parser.get(), OnText);
  XML_SetUnknownEncodingHandler(parser.get(), OnUnknownEncoding, nullptr);
  std::uint64_t done = 0;
  for (bool atEnd = false; !atEnd;) {
    void* const block = XML_GetBuffer(parser.get(), static_cast<int>(kBlockSize));
    if (block == nullptr) throw std::bad_alloc();
    const std::size_t got = file.Read(static_cast<char*>(block), kBlockSize);
    atEnd = got == 0;
    const XML_Status status = XML_ParseBuffer(parser.get(), static_cast<int>(got), atEnd);
    if (reading.thrown != nullptr) std::rethrow_exception(reading.thrown);
    if (status == XML_STATUS_ERROR) Fail(Reason(XML_GetErrorCode(parser.get())));
    done += got;
    if (progress_) progress_(done, file.Size());
  }
  parser_ = nullptr;
}

}  // namespace landxml_load
