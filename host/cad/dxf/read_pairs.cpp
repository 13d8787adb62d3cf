#include "host/cad/dxf/read_pairs.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "host/cad/dxf/read_binary.h"
#include "platform/code_page.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace dxf_reader {
namespace {

constexpr std::size_t kBlockSize = 256 * 1024;
constexpr std::size_t kLongestLine = 16 * 1024 * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr int kComment = 999;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Takes a whole number between blanks, and nothing else up to the line end.
inline bool TakeCode(char*& from, int& code) {
  constexpr int kMost = 100'000;
  char* at = from;
  while (IsBlank(*at)) ++at;
  const bool isNegative = *at == '-';
  if (isNegative) ++at;
  if (!IsDigit(*at)) return false;
  int number = 0;
  for (; IsDigit(*at) && number < kMost; ++at) number = number * 10 + (*at - '0');
  while (IsBlank(*at)) ++at;
  if (!IsLineEnd(*at)) return false;
  code = isNegative ? -number : number;
  from = at;
  return true;
}

// CR, LF, CR LF, and CR CR LF, which careless transfers leave.
inline char* BehindLineEnd(char* at, const char* end) {
  const auto left = end - at;
  if (*at == '\n' || left < 2) return at + 1;
  if (at[1] == '\n') return at + 2;
  return at + (left > 2 && at[1] == '\r' && at[2] == '\n' ? 3 : 1);
}

// What may stand behind the last pair of a file.
bool IsNothing(std::string_view rest) {
  constexpr std::string_view kNothing(" \t\r\n\x1A\0", 6);
  return rest.find_first_not_of(kNothing) == std::string_view::npos;
}

// A value for a complaint: not too long, and UTF-8 whatever it is in the file.
tdk::WString Shown(std::string_view value) {
  constexpr std::size_t kLongest = 40;
  std::string shown;
  platform::AppendUtf8FromCodePage(shown, value.substr(0, kLongest));
  if (value.size() > kLongest) shown += "...";
  return tdk::WString(shown);
}

tdk::WString InWords(std::uint64_t number) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(number));
  return tdk::WString(text);
}

}  // namespace

PairStream::PairStream(const tdk::WString& path) : buffer_(kBlockSize + 1) {
  if (!file_.Open(path.ToUtf8())) throw Failure{0, Xlate("cannot be opened")};
  at_ = end_ = limit_ = buffer_.data();
  Need(std::max(kBinaryMark.size() + 2, kByteOrderMark.size()));
  const std::string_view beginning(at_, static_cast<std::size_t>(end_ - at_));
  if (beginning.starts_with(kBinaryMark)) {
    isBinary_ = true;
    at_ += kBinaryMark.size();
    FindCodeSize();
  } else {
    hasByteOrderMark_ = beginning.starts_with(kByteOrderMark);
    if (hasByteOrderMark_) at_ += kByteOrderMark.size();
    FindLimit();
  }
}

// ---- The buffer ----

// Moves what is not read yet to the front; where that is all there is, the buffer grows.
void PairStream::MakeRoom() {
  const auto rest = static_cast<std::size_t>(end_ - at_);
  if (rest > kLongestLine) FailAt(line_ + 1, Xlate("a line is too long"));
  bytesDone_ += static_cast<std::uint64_t>(at_ - buffer_.data());
  if (rest > 0) std::memmove(buffer_.data(), at_, rest);
  if (rest + kBlockSize / 2 >= buffer_.size()) buffer_.resize(2 * buffer_.size());
  at_ = buffer_.data();
  end_ = at_ + rest;
}

void PairStream::ReadMore() {
  MakeRoom();
  const auto room = static_cast<std::size_t>(buffer_.data() + buffer_.size() - 1 - end_);
  const std::size_t got = file_.Read(end_, room);
  end_ += got;
  isAtEnd_ = got == 0;
}

// Whether that many bytes are in the buffer, read from the file where it has them.
bool PairStream::Need(std::size_t bytes) {
  while (static_cast<std::size_t>(end_ - at_) < bytes) {
    if (isAtEnd_) return false;
    ReadMore();
  }
  return true;
}

// Behind a CR at the end of the buffer a LF may follow, so it ends no line yet.
void PairStream::FindLimit() {
  if (isAtEnd_ && end_ != at_ && !IsLineEnd(end_[-1])) *end_++ = '\n';
  char* last = end_;
  while (!isAtEnd_ && last != at_ && last[-1] == '\r') --last;
  for (int ends = 0; last != at_; --last) {
    if (!IsLineEnd(last[-1])) continue;
    const bool isLineFeed = last[-1] == '\n';
    for (int i = 0; isLineFeed && i < 2 && last - 1 != at_ && last[-2] == '\r'; ++i) --last;
    if (++ends == 2) break;
  }
  limit_ = last;
}

// Whether a pair is left; it is whole in the buffer then.
bool PairStream::PreparePair() {
  while (at_ >= limit_) {
    if (isAtEnd_) {
      if (IsAtNothing()) return false;
      if (line_ == 0) FailAsNoDxf();
      FailAtEnd();
    }
    ReadMore();
    FindLimit();
  }
  return true;
}

// Whether there is nothing more in the file than what may stand behind its last pair.
bool PairStream::IsAtNothing() {
  while (IsNothing({at_, static_cast<std::size_t>(end_ - at_)})) {
    if (isAtEnd_) return true;
    ReadMore();
  }
  return false;
}

// ---- Files of lines ----

bool PairStream::NextText() {
  do {
    if ((at_ >= limit_ && !PreparePair()) || !TakeTextPair()) return false;
  } while (code_ == kComment);
  return true;
}

bool PairStream::TakeTextPair() {
  if (!TakeCode(at_, code_)) {
    if (IsAtNothing()) return false;
    FailAtCode();
  }
  char* const first = BehindLineEnd(at_, end_);
  char* last = first;
  while (!IsLineEnd(*last)) ++last;
  text_ = {first, static_cast<std::size_t>(last - first)};
  at_ = BehindLineEnd(last, end_);
  line_ += 2;
  return true;
}

void PairStream::FailAtCode() {
  if (line_ == 0) FailAsNoDxf();
  const char* const first = at_;
  while (!IsLineEnd(*at_)) ++at_;
  const std::string_view line(first, static_cast<std::size_t>(at_ - first));
  FailAt(line_ + 1, Fill(Xlate("\"{1}\" is no group code"), {Shown(line)}));
}

// ---- Values ----

std::string_view PairStream::Text() const {
  std::string_view text = text_;
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

double PairStream::Real() const {
  if (held_ == Held::kReal) return real_;
  if (held_ == Held::kWhole) return static_cast<double>(whole_);
  std::string_view text = text_;
  const auto number = platform::TakeDecimal(text);
  if (!number || !platform::IsBlank(text)) FailAsNoNumber();
  return *number;
}

std::int64_t PairStream::Whole() const {
  if (held_ == Held::kWhole) return whole_;
  if (held_ == Held::kText) {
    std::string_view text = text_;
    const auto number = platform::TakeWhole(text);
    if (number && platform::IsBlank(text)) return *number;
  }
  // Some programs write "1.0".
  constexpr double kMost = 1e15;
  const double real = Real();
  if (real != std::trunc(real) || std::fabs(real) > kMost) FailAsNoNumber();
  return static_cast<std::int64_t>(real);
}

std::uint64_t PairStream::BytesRead() const {
  return bytesDone_ + static_cast<std::uint64_t>(at_ - buffer_.data());
}

// ---- Complaints ----

void PairStream::FailAsNoNumber() const {
  Fail(::Fill(Xlate("\"{1}\" is no number"), {Shown(text_)}));
}

void PairStream::Fail(const tdk::WString& reason) const { FailAt(line_, reason); }

void PairStream::FailAtEnd() const {
  const bool hasRest = !isBinary_ && at_ != end_;
  FailAt(line_ + (hasRest ? 1 : 0), Xlate("the file ends too early"));
}

void PairStream::FailAsNoDxf() const {
  throw Failure{isBinary_ ? 0U : 1U, Xlate("this is no DXF file")};
}

// A binary file has no lines: its bytes are counted.
void PairStream::FailAt(std::uint64_t line, const tdk::WString& reason) const {
  if (!isBinary_) throw Failure{line, reason};
  throw Failure{0, Fill(Xlate("byte {1}: {2}"), {InWords(BytesRead()), reason})};
}

}  // namespace dxf_reader
