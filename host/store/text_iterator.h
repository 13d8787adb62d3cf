// A text file, character by character, for a parser that takes iterators.
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

#include "platform/text_reader.h"

/// Walks through a file without holding more than a piece of it. A default one is the end.
class TextIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  TextIterator() = default;
  /// `file` is not owned.
  explicit TextIterator(platform::TextReader& file) : file_(&file) { NextPiece(); }

  reference operator*() const { return *at_; }
  TextIterator& operator++() {
    if (++at_ == end_) NextPiece();
    return *this;
  }
  TextIterator operator++(int) {
    TextIterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const TextIterator& a, const TextIterator& b) { return a.at_ == b.at_; }

 private:
  void NextPiece() {
    constexpr std::size_t kPieceSize = 32768;
    const auto piece = file_->NextPiece(kPieceSize);
    at_ = piece ? piece->data() : nullptr;
    end_ = piece ? piece->data() + piece->size() : nullptr;
  }

  platform::TextReader* file_ = nullptr;
  const char* at_ = nullptr;
  const char* end_ = nullptr;
};
