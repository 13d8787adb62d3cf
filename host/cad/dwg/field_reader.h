// The values of a record, read: what FieldWriter writes.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "host/cad/dwg/bit_reader.h"
#include "host/cad/dwg/place.h"
#include "host/cad/dwg/version.h"

namespace dwg {

/// A number that is short for the most part.
std::uint16_t TakeShort(BitReader& bits);
/// A reference as it stands, made a handle: some are counted from the record's own.
Handle TakeHandle(BitReader& bits, Handle own);

/// Each function throws Damage when the record ends before, or holds what cannot be.
class FieldReader {
 public:
  /// References stand behind all other values, and are read on their own. `own`: the record's.
  FieldReader(BitReader data, BitReader references, Version version, Handle own = 0)
      : data_(data), references_(references), version_(version), own_(own) {}
  /// A region whose references stand among the other values.
  FieldReader(BitReader data, Version version)
      : data_(data), version_(version), hasReferencesInside_(true) {}

  static constexpr bool kReads = true;
  bool Is2000() const { return version_ == Version::k2000; }
  bool IsR13() const { return version_ == Version::kR13; }
  std::size_t BitsLeft() const { return data_.BitsLeft(); }
  std::size_t ReferenceBitsLeft() const { return references_.BitsLeft(); }

  void Flag(bool& value) { value = data_.Bits(1) != 0; }
  void TwoBits(unsigned& value) { value = static_cast<unsigned>(data_.Bits(2)); }
  void FourBits(unsigned& value) { value = static_cast<unsigned>(data_.Bits(4)); }
  void Byte(std::uint8_t& value) { value = static_cast<std::uint8_t>(data_.Bits(8)); }
  void RawDouble(double& value) { value = data_.RawDouble(); }
  void Short(std::uint16_t& value) { value = TakeShort(data_); }
  void FullShort(std::uint16_t& value) { Short(value); }
  void Long(std::uint32_t& value);
  void Double(double& value);
  void Near(double& value, double other);
  void Point(Place& place) {
    Double(place.x);
    Double(place.y);
    Double(place.z);
  }
  void RawFlat(Place& place) {
    RawDouble(place.x);
    RawDouble(place.y);
  }
  void Thickness(double& value);
  void Extrusion(Place& direction);
  /// Without the zero bytes that some programs leave at its end.
  void Text(std::string& bytes);
  void Count(std::uint32_t& count, std::size_t leastBitsOfEach) {
    Long(count);
    data_.NeedRoomFor(count, leastBitsOfEach);
  }
  void Zeros(std::size_t bytes) { data_.Skip(8 * bytes); }
  void Reference(Link link, Handle& handle);
  void NearReference(Handle& handle) { Reference(Link::kSoftPointer, handle); }

  // What is always the same.
  void Flags(std::initializer_list<bool> values) { data_.Skip(values.size()); }
  void Bytes(std::initializer_list<std::uint8_t> values) { data_.Skip(8 * values.size()); }
  void Shorts(std::initializer_list<std::uint16_t> values);
  void Longs(std::initializer_list<std::uint32_t> values);
  void Doubles(std::initializer_list<double> values) { SkipDoubles(values.size()); }
  void RawDoubles(std::initializer_list<double> values) { data_.Skip(64 * values.size()); }
  void Points(std::initializer_list<Place> values) { SkipDoubles(3 * values.size()); }
  void Texts(std::initializer_list<std::string_view> values);
  void NoReferences(Link link, std::size_t count);
  void NeedRoomForReferences(std::uint64_t count) const { references_.NeedRoomFor(count, 8); }

 private:
  void SkipDoubles(std::size_t count);

  BitReader data_;
  BitReader references_;
  Version version_;
  Handle own_ = 0;
  bool hasReferencesInside_ = false;
};

}  // namespace dwg
