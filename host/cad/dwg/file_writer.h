// The bytes of a file that is written from its beginning to its end, but for its header.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/cad/dwg/version.h"
#include "platform/output_file.h"

namespace dwg {

class FileWriter {
 public:
  /// Keeps the file, which has to be open.
  explicit FileWriter(platform::OutputFile& file) : file_(file), bytes_(file.Buffer()) {}

  /// How many bytes there are so far.
  std::uint64_t Position() const { return flushed_ + bytes_.size(); }

  void Byte(unsigned value) { bytes_ += static_cast<char>(value); }
  /// Their lowest byte first.
  void Short(unsigned value);
  void Long(std::uint64_t value);
  void Longs(std::initializer_list<std::uint64_t> values) {
    for (const std::uint64_t value : values) Long(value);
  }
  void Bytes(std::string_view bytes) { bytes_ += bytes; }
  void Zeros(std::size_t count) { bytes_.append(count, '\0'); }
  void Begin(const Sentinel& sentinel);
  /// The complement of the sentinel that stood at the beginning.
  void End(const Sentinel& sentinel);

  void FlushIfLarge();

 private:
  platform::OutputFile& file_;
  std::string& bytes_;
  std::uint64_t flushed_ = 0;
};

}  // namespace dwg
