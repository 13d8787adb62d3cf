#include "host/cad/dwg/field_reader.h"

namespace dwg {
namespace {

const char* const kNoNumber = ToXlate("a number has a form that there is not");
const char* const kNoReference = ToXlate("a reference has a form that there is not");

}  // namespace

std::uint16_t TakeShort(BitReader& bits) {
  switch (bits.Bits(2)) {
    case 0: return bits.RawShort();
    case 1: return static_cast<std::uint16_t>(bits.Bits(8));
    case 2: return 0;
    default: return 256;
  }
}

void FieldReader::Long(std::uint32_t& value) {
  switch (data_.Bits(2)) {
    case 0: value = data_.RawLong(); break;
    case 1: value = static_cast<std::uint32_t>(data_.Bits(8)); break;
    case 2: value = 0; break;
    default: throw Damage{kNoNumber};
  }
}

void FieldReader::Double(double& value) {
  switch (data_.Bits(2)) {
    case 0: value = data_.RawDouble(); break;
    case 1: value = 1; break;
    case 2: value = 0; break;
    default: throw Damage{kNoNumber};
  }
}

void FieldReader::Near(double& value, double other) {
  const auto bits = std::bit_cast<std::uint64_t>(other);
  constexpr std::uint64_t kHigh16 = 0xFFFF'0000'0000'0000;
  constexpr std::uint64_t kHigh32 = 0xFFFF'FFFF'0000'0000;
  switch (data_.Bits(2)) {
    case 0: value = other; break;
    case 1: value = std::bit_cast<double>((bits & kHigh32) | data_.RawLong()); break;
    case 2: {
      const std::uint64_t middle = data_.RawShort();
      value = std::bit_cast<double>((bits & kHigh16) | middle << 32 | data_.RawLong());
      break;
    }
    default: value = data_.RawDouble();
  }
}

void FieldReader::Thickness(double& value) {
  value = 0;
  bool isNone = false;
  if (Is2000()) Flag(isNone);
  if (!isNone) Double(value);
}

void FieldReader::Extrusion(Place& direction) {
  direction = kUp;
  bool isUp = false;
  if (Is2000()) Flag(isUp);
  if (!isUp) Point(direction);
}

void FieldReader::Text(std::string& bytes) {
  std::uint16_t size = 0;
  Short(size);
  data_.Raw(bytes, size);
  while (!bytes.empty() && bytes.back() == '\0') bytes.pop_back();
}

void FieldReader::Reference(Link /*link*/, Handle& handle) {
  handle = TakeHandle(hasReferencesInside_ ? data_ : references_, own_);
}

void FieldReader::Shorts(std::initializer_list<std::uint16_t> values) {
  std::uint16_t skipped = 0;
  for (std::size_t i = 0; i < values.size(); ++i) Short(skipped);
}

void FieldReader::Longs(std::initializer_list<std::uint32_t> values) {
  std::uint32_t skipped = 0;
  for (std::size_t i = 0; i < values.size(); ++i) Long(skipped);
}

void FieldReader::SkipDoubles(std::size_t count) {
  double skipped = 0;
  for (std::size_t i = 0; i < count; ++i) Double(skipped);
}

void FieldReader::Texts(std::initializer_list<std::string_view> values) {
  std::string skipped;
  for (std::size_t i = 0; i < values.size(); ++i) Text(skipped);
}

void FieldReader::NoReferences(Link link, std::size_t count) {
  Handle skipped = 0;
  for (std::size_t i = 0; i < count; ++i) Reference(link, skipped);
}

Handle TakeHandle(BitReader& bits, Handle own) {
  const auto code = static_cast<unsigned>(bits.Bits(4));
  const auto size = static_cast<unsigned>(bits.Bits(4));
  if (size > sizeof(Handle)) throw Damage{kNoReference};
  Handle value = 0;
  for (unsigned i = 0; i < size; ++i) value = value << 8 | bits.Bits(8);
  switch (code) {
    case 0:
    case 2:
    case 3:
    case 4:
    case 5: return value;
    case kNextOne: return own + 1;
    case kOneBefore: return own - 1;
    case kBehind: return own + value;
    case kBefore: return own - value;
    default: throw Damage{kNoReference};
  }
}

}  // namespace dwg
