// Hosts that refuse to add.
#pragma once

#include <set>
#include <utility>

#include "model/add_policy.h"

/// Refuses the given kinds and remembers what it was asked.
class RefuseKinds : public AddPolicy {
 public:
  explicit RefuseKinds(std::set<AddedKind> refused) : refused_(std::move(refused)) {}
  bool MayAdd(AddedKind kind) override {
    asked.insert(kind);
    return !refused_.contains(kind);
  }

  std::set<AddedKind> asked;

 private:
  std::set<AddedKind> refused_;
};

/// Allows the first `count` adds, of whatever kind, and refuses every later one.
class RefuseAfter : public AddPolicy {
 public:
  explicit RefuseAfter(int count) : left_(count) {}
  bool MayAdd(AddedKind /*kind*/) override { return left_-- > 0; }

 private:
  int left_;
};
