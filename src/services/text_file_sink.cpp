#include "services/text_file_sink.h"

#include <cstdio>

#include "platform/code_page.h"
#include "platform/paths.h"
#include "services/number_text.h"

TextFileSink::~TextFileSink() {
  if (deleteOnClose_) std::remove(platform::NativePath(path_.ToUtf8()).c_str());
}

bool TextFileSink::Open(const tdk::WString& path, bool deleteOnClose, int mode) {
  if (path.IsEmpty()) return false;
  std::string full = path.ToUtf8();
  if (!platform::IsAbsolutePath(full)) {
    const auto folder = platform::ExecutableFolder();
    if (!folder) return false;
    full.insert(0, *folder);
  }
  mode_ = kClosed;  // an unfinished file is given up
  if (!file_.Open(full)) return false;
  path_ = tdk::WString(std::move(full));
  deleteOnClose_ = deleteOnClose;
  mode_ = mode;
  lineCount_ = 0;
  atLineStart_ = true;
  return true;
}

void TextFileSink::WriteText(const tdk::WString& text) {
  if (!IsOpen()) return;
  platform::AppendCodePageFromUtf8(file_.Buffer(), text.ToUtf8());
  atLineStart_ = false;
}

void TextFileSink::WriteLine(const tdk::WString& text) {
  if (!IsOpen()) return;
  WriteText(text);
  file_.Buffer() += '\n';
  ++lineCount_;
  atLineStart_ = true;
  file_.FlushIfLarge();
}

void TextFileSink::WriteNumber(double value, int decimals) {
  if (!IsOpen()) return;
  AppendCStringDaDouble(file_.Buffer(), value, decimals);
  atLineStart_ = false;
}

void TextFileSink::WriteBytes(std::string_view bytes) {
  if (!IsOpen()) return;
  file_.Buffer() += bytes;
  file_.FlushIfLarge();
}

void TextFileSink::Close() {
  if (IsOpen()) file_.Commit();
  mode_ = kClosed;
  atLineStart_ = true;
}
