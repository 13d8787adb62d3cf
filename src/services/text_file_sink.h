// The text file that job formats are written to.
#pragma once

#include <string>
#include <string_view>

#include "platform/output_file.h"
#include "tdk/wstring.h"

/// Writes text lines in the 8-bit code page. Every write is a no-op while the file is not open. The
/// file takes the place of an older one when it is closed.
class TextFileSink {
 public:
  static constexpr int kClosed = -1;
  static constexpr int kPlainText = 0;

  TextFileSink() = default;
  /// Does not complete the file; removes the file named by the path when that was asked for.
  ~TextFileSink();
  TextFileSink(const TextFileSink&) = delete;
  TextFileSink& operator=(const TextFileSink&) = delete;

  /// Creates the file. A path that is not absolute lies in the folder of the running executable.
  /// False when the path is empty or the file cannot be created.
  bool Open(const tdk::WString& path, bool deleteOnClose, int mode);
  void WriteText(const tdk::WString& text);
  /// The text, then the line end.
  void WriteLine(const tdk::WString& text);
  /// As CStringDaDouble writes it.
  void WriteNumber(double value, int decimals);
  /// Text that is in the code page already, line ends and all.
  void WriteBytes(std::string_view bytes);
  /// Completes the file, when it is open.
  void Close();

  bool IsOpen() const { return file_.IsOpen(); }
  int Mode() const { return mode_; }
  int LineCount() const { return lineCount_; }
  bool IsAtLineStart() const { return atLineStart_; }
  const tdk::WString& Path() const { return path_; }

 private:
  tdk::WString path_;
  platform::OutputFile file_;
  bool deleteOnClose_ = false;
  int mode_ = kClosed;
  int lineCount_ = 0;
  bool atLineStart_ = true;
};
