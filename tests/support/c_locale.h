// The C locale for this thread, whatever locale the process has: for library calls that results are
// compared with.
#pragma once

#include <clocale>
#include <cstdlib>

#include <locale.h>

class CLocale {
 public:
  CLocale() : locale_(newlocale(LC_ALL_MASK, "C", nullptr)) {
    if (locale_ == nullptr) std::abort();
    before_ = uselocale(locale_);
  }
  ~CLocale() {
    uselocale(before_);
    freelocale(locale_);
  }
  CLocale(const CLocale&) = delete;
  CLocale& operator=(const CLocale&) = delete;

  locale_t Get() const { return locale_; }

 private:
  locale_t locale_;
  locale_t before_ = nullptr;
};
