#include "model/egn.h"

CEgn::~CEgn() = default;

void CEgn::SetNome(const tdk::WString& name) { name_.Set(name.ToUtf8()); }
void CEgn::SetSecScri(const tdk::WString& text) { secondText_.Set(text.ToUtf8()); }
void CEgn::SetCodeEgn(unsigned long code) { codeNumber_ = static_cast<std::uint32_t>(code); }

void CEgn::DoSetCoord(double x, double y, double z) {
  x_ = x;
  y_ = y;
  z_ = z;
  CalcolaValiditaXYZ();
}

void CEgn::IsModifying(bool modifying) { Put(kModifying, modifying); }
int CEgn::GetUserType() const { return 0; }
unsigned CEgn::GetCloudCreatorDevId() const { return 0; }

void CEgn::SetNomCoord(const tdk::WString& name, const tdk::WString& code, double x, double y,
                       double z) {
  SetNome(name);
  SetSecScri(code);
  SetCoord(x, y, z);
}

void CEgn::CalcolaValiditaXYZ() {
  const int valid =
      (IsDefined(x_) ? kValidX : 0) | (IsDefined(y_) ? kValidY : 0) | (IsDefined(z_) ? kValidZ : 0);
  flags_ = static_cast<std::uint8_t>((flags_ & ~(kValidX | kValidY | kValidZ)) | valid);
}
