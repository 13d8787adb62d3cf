// A DXF file as a stream of pairs: a group code and a value each.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/input_file.h"
#include "tdk/wstring.h"

namespace dxf_reader {

/// Why a file could not be read. Thrown inside the reader, and caught by ReadDxf.
struct Failure {
  std::uint64_t line;  ///< from 1; 0 when the file is not one of lines
  tdk::WString reason;
};

/// Reads text files (lines end with LF, CRLF or CR) and binary files with codes of one byte or two.
/// At first there is no pair. All but the constructor throw Failure for what cannot be read.
class PairStream {
 public:
  /// Opens the file and finds out what it is. Throws Failure.
  explicit PairStream(const tdk::WString& path);

  /// Goes on to the next pair that is no comment; false at the end of the file.
  bool Next() { return isBinary_ ? NextBinary() : NextText(); }
  /// The same, where the end of the file is a failure.
  void Advance() {
    if (!Next()) FailAtEnd();
  }

  int Code() const { return code_; }
  /// The value as it is in the file, without blanks behind it; empty for a number in a binary
  /// file. Valid until the next pair.
  std::string_view Text() const;
  /// The value with all its blanks.
  std::string_view RawText() const { return text_; }
  bool Is(int code, std::string_view text) const { return code_ == code && Text() == text; }
  /// The value as a finite number.
  double Real() const;
  std::int64_t Whole() const;

  /// Whether the file begins with the mark of UTF-8.
  bool HasByteOrderMark() const { return hasByteOrderMark_; }

  std::uint64_t BytesRead() const;
  /// 0 when the file has no size, as a pipe.
  std::uint64_t FileSize() const { return file_.Size(); }

  /// Complains about the value of this pair.
  [[noreturn]] void Fail(const tdk::WString& reason) const;
  [[noreturn]] void FailAtEnd() const;
  [[noreturn]] void FailAsNoDxf() const;

 private:
  enum class Held { kText, kReal, kWhole };

  bool NextText();
  bool TakeTextPair();
  [[noreturn]] void FailAtCode();
  bool PreparePair();
  bool IsAtNothing();
  void FindLimit();
  void ReadMore();
  void MakeRoom();

  bool NextBinary();
  void TakeBinaryPair();
  void TakeBinaryCode();
  void TakeBinaryText();
  void TakeBinaryReal();
  bool Need(std::size_t bytes);
  std::int64_t TakeLittleEndian(std::size_t bytes);
  void FindCodeSize();

  [[noreturn]] void FailAt(std::uint64_t line, const tdk::WString& reason) const;
  [[noreturn]] void FailAsNoNumber() const;

  platform::InputFile file_;
  std::vector<char> buffer_;  // one more than it holds, for a line end behind the last line
  char* at_ = nullptr;
  char* end_ = nullptr;
  char* limit_ = nullptr;  // before it, a pair is complete
  bool isAtEnd_ = false;   // all of the file is in the buffer, or was
  bool isBinary_ = false;
  bool hasByteOrderMark_ = false;
  std::size_t codeSize_ = 2;     // bytes of a code in a binary file
  std::uint64_t line_ = 0;       // of the value
  std::uint64_t bytesDone_ = 0;  // before the buffer

  int code_ = 0;
  Held held_ = Held::kText;
  std::string_view text_;
  double real_ = 0;
  std::int64_t whole_ = 0;
};

}  // namespace dxf_reader
