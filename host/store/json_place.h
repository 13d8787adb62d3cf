// Where in a JSON document its reader is.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Follows a reader through a document, and says the place as people do:
/// jobs[0].stations[2].points[5].x
class JsonPlace {
 public:
  /// A value begins, plain or not; in a list it is the next element.
  void NextValue() {
    if (InList()) ++frames_[depth_ - 1].count;
  }
  void Enter(bool isList) {
    if (depth_ == frames_.size()) frames_.emplace_back();
    Frame& frame = frames_[depth_++];
    frame.isList = isList;
    frame.key.clear();
    frame.count = 0;
  }
  void Leave() { --depth_; }
  /// The member of the open object that comes next; empty: none of them, the object itself.
  void SetKey(std::string_view key) { frames_[depth_ - 1].key = key; }

  bool IsAtTop() const { return depth_ == 0; }
  bool InList() const { return depth_ > 0 && frames_[depth_ - 1].isList; }
  const std::string& Key() const { return frames_[depth_ - 1].key; }
  /// The key of the object that the open one is a member of.
  const std::string& KeyAbove() const { return frames_[depth_ - 2].key; }
  std::string Text() const;

 private:
  struct Frame {
    bool isList = false;
    std::string key;        // of an object's member
    std::size_t count = 0;  // of a list's elements so far
  };
  std::vector<Frame> frames_;  // the first depth_ of them; the others keep their memory
  std::size_t depth_ = 0;
};
