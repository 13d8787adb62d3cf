#include "host/cad/reading/block_cycles.h"

#include <algorithm>

namespace cad_reader {
namespace {

constexpr int kDeepest = 100;

std::size_t Index(int block) { return static_cast<std::size_t>(block); }

// Goes through all that a block inserts before the block itself is done; the blocks that are open
// then are those that contain it.
class Search {
 public:
  explicit Search(const std::vector<std::vector<int>>& inserted)
      : inserted_(inserted), states_(inserted.size()) {}

  CutInserts Run() {
    for (std::size_t block = 0; block < inserted_.size(); ++block) {
      if (states_[block].way == Way::kNew) Open(static_cast<int>(block));
      while (!open_.empty()) Step();
    }
    return std::move(cut_);
  }

 private:
  enum class Way { kNew, kOpen, kDone };
  struct State {
    Way way = Way::kNew;
    std::size_t next = 0;  // of the blocks that it inserts
    int depth = 0;         // of what is nested in it
  };

  void Open(int block) {
    states_[Index(block)].way = Way::kOpen;
    open_.push_back(block);
  }

  void Step() {
    const int block = open_.back();
    State& state = states_[Index(block)];
    if (state.next == inserted_[Index(block)].size()) {
      state.way = Way::kDone;
      open_.pop_back();
      return;
    }
    const int other = inserted_[Index(block)][state.next];
    const State& inner = states_[Index(other)];
    if (inner.way == Way::kNew) {
      Open(other);  // and this insert once more when it is done
      return;
    }
    ++state.next;
    if (inner.way == Way::kOpen) {
      cut_.inItself.insert({block, other});
    } else if (inner.depth >= kDeepest) {
      cut_.tooDeep.insert({block, other});
    } else {
      state.depth = std::max(state.depth, inner.depth + 1);
    }
  }

  const std::vector<std::vector<int>>& inserted_;
  std::vector<State> states_;
  std::vector<int> open_;
  CutInserts cut_;
};

}  // namespace

CutInserts FindCutInserts(const std::vector<std::vector<int>>& inserted) {
  return Search(inserted).Run();
}

}  // namespace cad_reader
