// Permissions mean nothing to root: a test of them runs as somebody else for a while.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cstdlib>

class OrdinaryUser {
 public:
  OrdinaryUser() : wasRoot_(geteuid() == 0) {
    if (wasRoot_ && setresuid(kNobody, kNobody, 0) != 0) std::abort();
  }
  ~OrdinaryUser() {
    if (wasRoot_ && setresuid(0, 0, 0) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  bool wasRoot_;
};
