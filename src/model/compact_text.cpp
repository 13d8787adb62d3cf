#include "model/compact_text.h"

#include <limits>
#include <new>
#include <stdexcept>

namespace {

constexpr std::size_t kLengthAt = sizeof(char*);

}  // namespace

std::string_view CompactText::HeapView() const {
  const char* text;
  std::uint32_t length;
  std::memcpy(&text, bytes_.data(), sizeof text);
  std::memcpy(&length, bytes_.data() + kLengthAt, sizeof length);
  return {text, length};
}

void CompactText::SetSlowly(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("a text of the model is longer than 4 GB");
  }
  std::array<char, kInlineSize + 1> next{};
  if (text.size() <= kInlineSize) {
    std::memcpy(next.data(), text.data(), text.size());
    next[kInlineSize] = static_cast<char>(text.size());
  } else {
    char* const copy = new char[text.size()];
    std::memcpy(copy, text.data(), text.size());
    const auto length = static_cast<std::uint32_t>(text.size());
    std::memcpy(next.data(), &copy, sizeof copy);
    std::memcpy(next.data() + kLengthAt, &length, sizeof length);
    next[kInlineSize] = kHeapMark;
  }
  Release();  // only now: `text` may lie in the old one
  bytes_ = next;
}

void CompactText::ReleaseHeap() {
  delete[] HeapView().data();
  bytes_[kInlineSize] = 0;
}
