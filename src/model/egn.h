// The base of everything that has a name and a place.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/compact_text.h"
#include "model/undefined.h"
#include "tdk/wstring.h"

/// A point-like object: name, second description (the same text as the code), third description,
/// and plane coordinates X (easting), Y (northing), Z (elevation) in metres, undefined at first.
class CEgn {
 public:
  CEgn() = default;
  virtual ~CEgn();
  CEgn(const CEgn&) = delete;
  CEgn& operator=(const CEgn&) = delete;

  // In the order in which the host declares them.
  virtual void SetNome(const tdk::WString& name);
  virtual void SetSecScri(const tdk::WString& text);
  virtual void SetCodeEgn(unsigned long code);
  virtual void DoSetCoord(double x, double y, double z);
  virtual void IsModifying(bool modifying);
  virtual int GetUserType() const;
  virtual unsigned GetCloudCreatorDevId() const;

  tdk::WString GetNome() const { return tdk::WString(name_.View()); }
  /// The name in UTF-8, without a copy; until it is set anew.
  std::string_view NameUtf8() const { return name_.View(); }
  tdk::WString GetSecScri() const { return tdk::WString(secondText_.View()); }
  tdk::WString GetTerScri() const { return tdk::WString(thirdText_.View()); }
  void SetTerScri(const tdk::WString& text) { thirdText_.Set(text.ToUtf8()); }

  double GetCoordX() const { return x_; }
  double GetCoordY() const { return y_; }
  double GetCoordZ() const { return z_; }
  /// Whether it has a place in the plane.
  bool HasPlane() const { return IsDefined(x_) && IsDefined(y_); }
  void SetCoord(double x, double y, double z) { DoSetCoord(x, y, z); }
  void SetNomCoord(const tdk::WString& name, const tdk::WString& code, double x, double y,
                   double z);

  /// Works out anew, from the stored coordinates, which of them are valid.
  void CalcolaValiditaXYZ();
  /// As of the last CalcolaValiditaXYZ or SetCoord.
  bool IsValidX() const { return Has(kValidX); }
  bool IsValidY() const { return Has(kValidY); }
  bool IsValidZ() const { return Has(kValidZ); }

  void SetCode3D(bool on) { Put(kCode3D, on); }
  bool IsCode3D() const { return Has(kCode3D); }
  void SetCodedNP(bool on) { Put(kCodedNP, on); }
  bool IsCodedNP() const { return Has(kCodedNP); }
  unsigned long GetCodeEgn() const { return codeNumber_; }
  bool IsBeingModified() const { return Has(kModifying); }

 private:
  enum Flag : std::uint8_t {
    kValidX = 1,
    kValidY = 2,
    kValidZ = 4,
    kCode3D = 8,
    kCodedNP = 16,
    kModifying = 32
  };
  bool Has(Flag flag) const { return (flags_ & flag) != 0; }
  void Put(Flag flag, bool on) {
    flags_ = static_cast<std::uint8_t>(on ? flags_ | flag : flags_ & ~flag);
  }

  CompactText name_;
  CompactText secondText_;
  CompactText thirdText_;
  double x_ = UndefinedValue;
  double y_ = UndefinedValue;
  double z_ = UndefinedValue;
  std::uint32_t codeNumber_ = 0;
  std::uint8_t flags_ = 0;
};
