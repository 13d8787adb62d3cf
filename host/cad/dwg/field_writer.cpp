#include "host/cad/dwg/field_writer.h"

#include <algorithm>

namespace dwg {
namespace {

// The two bits that stand before a number.
constexpr std::uint64_t kFull = 0b00;
constexpr std::uint64_t kByte = 0b01;
constexpr std::uint64_t kZero = 0b10;
constexpr std::uint64_t k256 = 0b11;
constexpr std::uint64_t kOne = 0b01;  // of a double
// Before a double that is like another: nothing differs, the lower four bytes do, the lower six do.
constexpr std::uint64_t kSame = 0b00;
constexpr std::uint64_t kFourBytes = 0b01;
constexpr std::uint64_t kSixBytes = 0b10;
constexpr std::uint64_t kEightBytes = 0b11;

unsigned BytesOf(Handle handle) { return static_cast<unsigned>(8 - std::countl_zero(handle) / 8); }
std::uint64_t BitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

}  // namespace

void FieldWriter::Short(std::uint16_t value) {
  if (value == 0) {
    bits_.Bits(kZero, 2);
  } else if (value == 256) {
    bits_.Bits(k256, 2);
  } else if (value < 256) {
    bits_.Bits(kByte << 8 | value, 10);
  } else {
    FullShort(value);
  }
}

void FieldWriter::Long(std::uint32_t value) {
  if (value == 0) {
    bits_.Bits(kZero, 2);
  } else if (value < 256) {
    bits_.Bits(kByte << 8 | value, 10);
  } else {
    bits_.Bits(kFull, 2);
    bits_.RawLong(value);
  }
}

// A negative zero is none.
void FieldWriter::Double(double value) {
  if (BitsOf(value) == 0) {
    bits_.Bits(kZero, 2);
  } else if (value == 1) {
    bits_.Bits(kOne, 2);
  } else {
    bits_.Bits(kFull, 2);
    bits_.RawDouble(value);
  }
}

void FieldWriter::Near(double value, double other) {
  const std::uint64_t differing = BitsOf(value) ^ BitsOf(other);
  const auto low = static_cast<std::uint32_t>(BitsOf(value));
  if (differing == 0) {
    bits_.Bits(kSame, 2);
  } else if (differing >> 32 == 0) {
    bits_.Bits(kFourBytes, 2);
    bits_.RawLong(low);
  } else if (differing >> 48 == 0) {
    bits_.Bits(kSixBytes, 2);
    bits_.RawShort(static_cast<std::uint16_t>(BitsOf(value) >> 32));
    bits_.RawLong(low);
  } else {
    bits_.Bits(kEightBytes, 2);
    bits_.RawDouble(value);
  }
}

void FieldWriter::Thickness(double value) {
  const bool isNone = Is2000() && value == 0;
  if (Is2000()) Flag(isNone);
  if (!isNone) Double(value);
}

void FieldWriter::Extrusion(const Place& direction) {
  const bool isUp = Is2000() && direction == kUp;
  if (Is2000()) Flag(isUp);
  if (!isUp) Point(direction);
}

void FieldWriter::PutReference(unsigned code, Handle value) {
  const unsigned size = BytesOf(value);
  bits_.Bits(std::uint64_t{code} << 4 | size, 8);
  if (size > 4) bits_.Bits(value >> 32, 8 * (size - 4));
  if (size > 0) bits_.Bits(value & 0xFFFFFFFF, 8 * std::min(size, 4U));
}

void FieldWriter::Reference(Link link, Handle handle) {
  PutReference(static_cast<unsigned>(link), handle);
}

void FieldWriter::NearReference(Handle handle) {
  const Handle distance = handle > own_ ? handle - own_ : own_ - handle;
  if (handle != 0 && distance == 1) {
    PutReference(handle > own_ ? kNextOne : kOneBefore, 0);
  } else if (BytesOf(distance) >= BytesOf(handle)) {
    Reference(Link::kSoftPointer, handle);
  } else {
    PutReference(handle > own_ ? kBehind : kBefore, distance);
  }
}

}  // namespace dwg
