// Texts of the model: a million points have three million of them.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

/// A UTF-8 text in 16 bytes. Up to 15 bytes lie in the object itself, a longer text on the heap.
class CompactText {
 public:
  CompactText() = default;
  ~CompactText() { Release(); }
  CompactText(const CompactText&) = delete;
  CompactText& operator=(const CompactText&) = delete;

  void Set(std::string_view text) {
    if (text.size() <= kInlineSize && !OnHeap()) {
      std::memmove(bytes_.data(), text.data(), text.size());  // `text` may be an end of it
      bytes_[kInlineSize] = static_cast<char>(text.size());
    } else {
      SetSlowly(text);
    }
  }

  std::string_view View() const {
    if (!OnHeap()) return {bytes_.data(), static_cast<std::size_t>(bytes_[kInlineSize])};
    return HeapView();
  }

 private:
  static constexpr std::size_t kInlineSize = 15;
  static constexpr char kHeapMark = 127;

  bool OnHeap() const { return bytes_[kInlineSize] == kHeapMark; }
  std::string_view HeapView() const;
  void SetSlowly(std::string_view text);
  void Release() {
    if (OnHeap()) ReleaseHeap();
  }
  void ReleaseHeap();

  // The text and, in the last byte, its length; or a pointer, a 32-bit length and kHeapMark.
  alignas(char*) std::array<char, kInlineSize + 1> bytes_{};
};
