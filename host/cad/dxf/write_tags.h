// Pairs of a group code and a value, appended to a file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/drawing_entities.h"
#include "platform/numbers.h"
#include "platform/output_file.h"

namespace dxf_writer {

enum class Version : std::uint8_t { kR12, k2000 };

/// Names a record of a file of version 2000; there are none in R12.
using Handle = std::uint64_t;

/// A group code as the line that it is in the file.
struct CodeLine {
  std::array<char, 8> text{};
  std::size_t size = 0;

  constexpr explicit CodeLine(int code) {
    int unit = 1;
    while (code / unit >= 10) unit *= 10;
    for (; unit > 0; unit /= 10) text[size++] = static_cast<char>('0' + code / unit % 10);
    text[size++] = '\n';
  }
};
template <int kCode>
inline constexpr CodeLine kCodeLine{kCode};

class Tags {
 public:
  Tags(platform::OutputFile& file, Version version, Handle firstHandle)
      : file_(file), text_(file.Buffer()), version_(version), nextHandle_(firstHandle) {}

  bool Is2000() const { return version_ == Version::k2000; }
  Handle NextHandle() { return nextHandle_++; }
  std::string& Buffer() { return text_; }
  void FlushIfLarge() { file_.FlushIfLarge(); }

  /// Lines as they are to be.
  void Lines(std::string_view lines) { text_ += lines; }
  /// Pairs, each on one line with a blank after the code; without one the value is empty.
  void Pairs(std::string_view pairs);

  template <int kCode>
  void Code() {
    text_.append(kCodeLine<kCode>.text.data(), kCodeLine<kCode>.size);
  }
  /// `bytes`: in the code page of the file, without line ends (see write_text.h).
  template <int kCode>
  void Text(std::string_view bytes) {
    Code<kCode>();
    text_ += bytes;
    text_ += '\n';
  }
  template <int kCode>
  void Whole(std::int64_t value) {
    Code<kCode>();
    platform::AppendWhole(text_, value);
    text_ += '\n';
  }
  template <int kCode>
  void Real(double value) {
    Code<kCode>();
    RealLine(value);
  }
  /// A real that readers know when it is not there.
  template <int kCode>
  void RealUnless(double usual, double value) {
    if (value != usual) Real<kCode>(value);
  }
  template <int kCode>
  void Place(double x, double y) {
    Real<kCode>(x);
    Real<kCode + 10>(y);
  }
  template <int kCode>
  void Place(const cad::Point& point) {
    Place<kCode>(point.getX(), point.getY());
    Real<kCode + 20>(point.getZ());
  }
  template <int kCode>
  void Reference(Handle handle) {
    Code<kCode>();
    HandleLine(handle);
  }
  /// The start of what a class has in the record; nothing in R12. `line`: its name and line end.
  void Class(std::string_view line) {
    if (!Is2000()) return;
    Code<100>();
    text_ += line;
  }

 private:
  /// `value` must be finite.
  void RealLine(double value);
  void HandleLine(Handle handle);

  platform::OutputFile& file_;
  std::string& text_;
  Version version_;
  Handle nextHandle_;
};

}  // namespace dxf_writer
