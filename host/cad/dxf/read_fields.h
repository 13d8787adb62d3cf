// What the pairs of one record say, by their codes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/cad/dxf/read_pairs.h"
#include "host/cad/reading/looks.h"
#include "model/drawing_entities.h"

namespace dxf_reader {

/// Keeps the texts of codes 1 to 3 and 8, the numbers of 10 to 79 and the extrusion direction;
/// the last value of a code holds. One object is for many records, one after the other.
class Fields {
 public:
  /// Reads what follows the pair that begins a record, up to the one that begins the next.
  void Read(PairStream& pairs) {
    Read(pairs, [] { return false; });
  }
  /// The same; `take()` looks at each pair first, and is true for those that it keeps itself.
  template <class Take>
  void Read(PairStream& pairs, const Take& take) {
    Begin(pairs);
    for (pairs.Advance(); pairs.Code() != 0; pairs.Advance()) {
      if (pairs.Code() >= 100 && pairs.Code() <= 102) {
        LookAtMark();
      } else if (!isInGroup_ && !isOver_ && !take()) {
        Store();
      }
    }
  }

  bool Has(int code) const { return (has_[Word(code)] >> Bit(code) & 1) != 0; }
  double Real(int code, double otherwise = 0) const {
    return Has(code) ? reals_[Index(code - kFirstReal)] : otherwise;
  }
  int Whole(int code, int otherwise = 0) const {
    return Has(code) ? wholes_[Index(code - kFirstWhole)] : otherwise;
  }
  bool HasFlag(int code, int flag) const { return (Whole(code) & flag) != 0; }
  /// The point of x at `code`, y at `code` + 10 and z at `code` + 20.
  cad::Point PointAt(int code) const { return {Real(code), Real(code + 10), Real(code + 20)}; }
  /// As it is in the file; empty when it is not there.
  std::string_view Text(int code) const { return texts_[Index(code)]; }
  std::string_view Layer() const { return texts_[kLayerCode]; }
  /// What every kind of record may say of its looks.
  cad_reader::LostLooks Looks() const;
  const cad::Point& Extrusion() const { return extrusion_; }
  bool HasExtrusion() const { return hasExtrusion_; }

  /// A whole number within the range of its type.
  static int Narrowed(std::int64_t number);

 private:
  static constexpr int kFirstReal = 10;
  static constexpr int kFirstWhole = 60;
  static constexpr int kEnd = 80;
  static constexpr int kThickness = 39;
  static constexpr std::size_t kLayerCode = 8;

  static constexpr std::size_t Index(int code) { return static_cast<std::size_t>(code); }
  static constexpr std::size_t Word(int code) { return Index(code) / 64; }
  static constexpr std::size_t Bit(int code) { return Index(code) % 64; }

  void Begin(PairStream& pairs);
  void Store();
  void StoreText(std::size_t code);
  void StoreExtrusion(int code);
  void LookAtLooks(int code);
  // Pairs that say something about other objects, or are of other programs, are marked.
  void LookAtMark();
  void MarkAs(int code) { has_[Word(code)] |= std::uint64_t{1} << Bit(code); }

  PairStream* pairs_ = nullptr;
  std::array<std::uint64_t, 2> has_{};
  std::array<std::string, kLayerCode + 1> texts_;
  std::array<double, kFirstWhole - kFirstReal> reals_{};
  std::array<int, kEnd - kFirstWhole> wholes_{};
  cad::Point extrusion_;
  bool hasExtrusion_ = false;
  cad_reader::LostLooks looks_;
  bool isInGroup_ = false;
  bool isOver_ = false;
};

}  // namespace dxf_reader
