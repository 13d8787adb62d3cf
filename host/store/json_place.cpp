#include "host/store/json_place.h"

#include "platform/numbers.h"

std::string JsonPlace::Text() const {
  std::string text;
  for (std::size_t i = 0; i < depth_; ++i) {
    const Frame& frame = frames_[i];
    if (frame.isList && frame.count > 0) {
      text += '[';
      platform::AppendWhole(text, static_cast<std::int64_t>(frame.count - 1));
      text += ']';
    } else if (!frame.isList && !frame.key.empty()) {
      if (!text.empty()) text += '.';
      text += frame.key;
    }
  }
  return text.empty() ? "the document" : text;
}
