#include "host/cad/dxf/read_binary.h"

#include <bit>
#include <cmath>
#include <cstring>

#include "host/cad/dxf/read_pairs.h"
#include "services/translate.h"

namespace dxf_reader {
namespace {

constexpr int kComment = 999;

struct CodeRange {
  int first;
  int last;
  BinaryType type;
};

// All others are texts.
constexpr CodeRange kRanges[] = {
    {10, 59, BinaryType::kReal},        {60, 79, BinaryType::kWhole16},
    {90, 99, BinaryType::kWhole32},     {110, 149, BinaryType::kReal},
    {160, 169, BinaryType::kWhole64},   {170, 179, BinaryType::kWhole16},
    {210, 239, BinaryType::kReal},      {270, 289, BinaryType::kWhole16},
    {290, 299, BinaryType::kBool},      {310, 319, BinaryType::kBytes},
    {370, 389, BinaryType::kWhole16},   {400, 409, BinaryType::kWhole16},
    {420, 429, BinaryType::kWhole32},   {440, 459, BinaryType::kWhole32},
    {460, 469, BinaryType::kReal},      {1004, 1004, BinaryType::kBytes},
    {1010, 1059, BinaryType::kReal},    {1060, 1070, BinaryType::kWhole16},
    {1071, 1071, BinaryType::kWhole32},
};

std::size_t SizeOf(BinaryType type) {
  switch (type) {
    case BinaryType::kBool: return 1;
    case BinaryType::kWhole16: return 2;
    case BinaryType::kWhole32: return 4;
    default: return 8;
  }
}

}  // namespace

BinaryType BinaryTypeOf(int code) {
  for (const CodeRange& range : kRanges) {
    if (code >= range.first && code <= range.last) return range.type;
  }
  return BinaryType::kText;
}

// The first pair has code 0, or 999 of a comment, and a text that is not empty.
void PairStream::FindCodeSize() {
  if (!Need(2)) FailAtEnd();
  const std::string_view code(at_, 2);
  codeSize_ = code == std::string_view("\0\0", 2) || code == "\xE7\x03" ? 2 : 1;
}

bool PairStream::NextBinary() {
  do {
    if (!Need(1)) return false;
    TakeBinaryPair();
  } while (code_ == kComment);
  return true;
}

void PairStream::TakeBinaryPair() {
  TakeBinaryCode();
  text_ = {};
  const BinaryType type = BinaryTypeOf(code_);
  if (type == BinaryType::kText) {
    TakeBinaryText();
  } else if (type == BinaryType::kReal) {
    TakeBinaryReal();
  } else if (type == BinaryType::kBytes) {
    held_ = Held::kText;
    const auto size = static_cast<std::size_t>(TakeLittleEndian(1)) & 0xFF;
    if (!Need(size)) FailAtEnd();
    at_ += size;
  } else {
    held_ = Held::kWhole;
    whole_ = TakeLittleEndian(SizeOf(type));
  }
}

void PairStream::TakeBinaryCode() {
  constexpr int kLongCodeFollows = 255;
  code_ = static_cast<int>(TakeLittleEndian(codeSize_));
  if (codeSize_ == 1) {
    code_ &= 0xFF;
    if (code_ == kLongCodeFollows) code_ = static_cast<int>(TakeLittleEndian(2));
  }
}

void PairStream::TakeBinaryText() {
  held_ = Held::kText;
  std::size_t looked = 0;
  for (;;) {
    const auto left = static_cast<std::size_t>(end_ - at_);
    const void* const found = std::memchr(at_ + looked, 0, left - looked);
    if (found != nullptr) {
      text_ = {at_, static_cast<std::size_t>(static_cast<const char*>(found) - at_)};
      at_ += text_.size() + 1;
      return;
    }
    looked = left;
    if (!Need(left + 1)) FailAtEnd();
  }
}

void PairStream::TakeBinaryReal() {
  held_ = Held::kReal;
  real_ = std::bit_cast<double>(TakeLittleEndian(8));
  if (!std::isfinite(real_)) Fail(Xlate("a value is no number"));
}

// With the sign that a number of that size has.
std::int64_t PairStream::TakeLittleEndian(std::size_t bytes) {
  if (!Need(bytes)) FailAtEnd();
  std::uint64_t bits = 0;
  for (std::size_t i = bytes; i-- > 0;) bits = bits << 8 | static_cast<unsigned char>(at_[i]);
  at_ += bytes;
  const std::size_t unused = 64 - 8 * bytes;
  return static_cast<std::int64_t>(bits << unused) >> unused;
}

}  // namespace dxf_reader
