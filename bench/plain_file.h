// A text file written the plain way: numbers by std::to_chars, texts copied, one buffer, one call
// to write it out.
#pragma once

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace bench {

class PlainFile {
 public:
  explicit PlainFile(const std::string& path) : file_(std::fopen(path.c_str(), "wb")) {
    if (file_ == nullptr) Die(path.c_str());
    std::setvbuf(file_, nullptr, _IONBF, 0);
  }
  ~PlainFile() {
    if (file_ != nullptr) std::fclose(file_);
  }
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;

  void Text(std::string_view text) {
    std::memcpy(at_, text.data(), text.size());
    at_ += text.size();
  }
  void Fixed(double value, int decimals) {
    at_ = std::to_chars(at_, buffer_.end(), value, std::chars_format::fixed, decimals).ptr;
  }
  void Shortest(double value) { at_ = std::to_chars(at_, buffer_.end(), value).ptr; }
  void Whole(std::size_t value) { at_ = std::to_chars(at_, buffer_.end(), value).ptr; }

  /// To be called at the end; without it, what was written last is lost.
  void Close() {
    Flush();
    if (std::fclose(std::exchange(file_, nullptr)) != 0) Die("close");
  }

  /// To be called between records, none of which is longer than kLongestRecord.
  void EndRecord() {
    if (buffer_.end() - at_ < kLongestRecord) Flush();
  }

 private:
  static constexpr std::ptrdiff_t kLongestRecord = 8 * 1024;

  [[noreturn]] static void Die(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
  }

  void Flush() {
    const auto size = static_cast<std::size_t>(at_ - buffer_.begin());
    if (std::fwrite(buffer_.data(), 1, size, file_) != size) Die("write");
    at_ = buffer_.begin();
  }

  std::FILE* file_;
  std::array<char, 256 * 1024> buffer_;
  char* at_ = buffer_.begin();
};

}  // namespace bench
