// The values of a record, written. The descriptions of records (entity_records.h and others) are
// templates over this class and FieldReader, which has the same functions for the other direction.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "host/cad/dwg/bit_writer.h"
#include "host/cad/dwg/place.h"
#include "host/cad/dwg/version.h"

namespace dwg {

class FieldWriter {
 public:
  FieldWriter(BitWriter& bits, Version version) : bits_(bits), version_(version) {}

  /// The handle of the record that is written from now on.
  void SetOwn(Handle own) { own_ = own; }

  static constexpr bool kReads = false;
  bool Is2000() const { return version_ == Version::k2000; }
  bool IsR13() const { return version_ == Version::kR13; }

  void Flag(bool value) { bits_.Bits(value ? 1 : 0, 1); }
  void TwoBits(unsigned value) { bits_.Bits(value, 2); }
  void FourBits(unsigned value) { bits_.Bits(value, 4); }
  void Byte(std::uint8_t value) { bits_.Bits(value, 8); }
  void RawDouble(double value) { bits_.RawDouble(value); }
  void Short(std::uint16_t value);
  /// A short in its long form, whatever it is.
  void FullShort(std::uint16_t value) {
    bits_.Bits(0, 2);
    bits_.RawShort(value);
  }
  void Long(std::uint32_t value);
  void Double(double value);
  /// A double that is likely to be like another one.
  void Near(double value, double other);
  void Point(const Place& place) {
    Double(place.x);
    Double(place.y);
    Double(place.z);
  }
  /// X and y alone.
  void RawFlat(const Place& place) {
    RawDouble(place.x);
    RawDouble(place.y);
  }
  void Thickness(double value);
  void Extrusion(const Place& direction);
  /// In the code page of the file; 65,535 bytes at most.
  void Text(std::string_view bytes) {
    Short(static_cast<std::uint16_t>(bytes.size()));
    bits_.Raw(bytes);
  }
  /// How many things follow, each of so many bits at least.
  void Count(std::uint32_t count, std::size_t /*leastBitsOfEach*/) { Long(count); }
  void Zeros(std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i) Byte(0);
  }
  void Reference(Link link, Handle handle);
  /// A soft pointer, counted from the record's own handle where that is shorter.
  void NearReference(Handle handle);

  // Values that are always the same, and that nobody asks for.
  void Flags(std::initializer_list<bool> values) {
    for (const bool value : values) Flag(value);
  }
  void Bytes(std::initializer_list<std::uint8_t> values) {
    for (const std::uint8_t value : values) Byte(value);
  }
  void Shorts(std::initializer_list<std::uint16_t> values) {
    for (const std::uint16_t value : values) Short(value);
  }
  void Longs(std::initializer_list<std::uint32_t> values) {
    for (const std::uint32_t value : values) Long(value);
  }
  void Doubles(std::initializer_list<double> values) {
    for (const double value : values) Double(value);
  }
  void RawDoubles(std::initializer_list<double> values) {
    for (const double value : values) RawDouble(value);
  }
  void Points(std::initializer_list<Place> values) {
    for (const Place& value : values) Point(value);
  }
  void Texts(std::initializer_list<std::string_view> values) {
    for (const std::string_view value : values) Text(value);
  }
  void NoReferences(Link link, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) Reference(link, 0);
  }

 private:
  void PutReference(unsigned code, Handle value);

  BitWriter& bits_;
  Version version_;
  Handle own_ = 0;
};

}  // namespace dwg
