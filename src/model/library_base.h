// What all libraries of the host have.
#pragma once

#include <cstddef>
#include <limits>

#include "model/add_policy.h"

/// The drawing (layer set) in which the host shows something; 0 is none.
class TargetDrawingHolder {
 public:
  int GetTargetDrawing() const { return targetDrawing_; }
  void SetTargetDrawing(int drawing) { targetDrawing_ = drawing; }

 private:
  int targetDrawing_ = 0;
};

class LibraryBase {
 public:
  /// `policy` is not owned; null: nothing is refused.
  void SetAddPolicy(AddPolicy* policy) { policy_ = policy; }

 protected:
  /// Whether one more may be added to a list of `size`; indices are `int`, so that is a limit too.
  bool MayAdd(AddedKind kind, std::size_t size) const {
    return size < static_cast<std::size_t>(std::numeric_limits<int>::max()) &&
           (policy_ == nullptr || policy_->MayAdd(kind));
  }

  template <class List>
  static int CountOf(const List& list) {
    return static_cast<int>(list.Size());
  }

  /// The element at `index`, null when there is none.
  template <class List>
  static auto ElementAt(const List& list, int index) -> decltype(&list[0]) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.Size()) return nullptr;
    return &list[static_cast<std::size_t>(index)];
  }

 private:
  AddPolicy* policy_ = nullptr;
};
