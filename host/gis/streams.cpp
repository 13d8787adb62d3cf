#include "host/gis/streams.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "platform/numbers.h"
#include "platform/paths.h"

namespace shape {
namespace {

thread_local StreamSet* current = nullptr;

Stream& StreamOf(SAFile file) { return *reinterpret_cast<Stream*>(file); }

SAFile OpenStream(const char* name, const char* /*access*/) {
  Stream* const stream = current == nullptr ? nullptr : current->Find(platform::Extension(name));
  if (stream != nullptr) stream->place = 0;
  return reinterpret_cast<SAFile>(stream);
}

// A count of whole elements, as the C library has it.
SAOffset ReadStream(void* to, SAOffset size, SAOffset count, SAFile file) {
  if (size == 0) return 0;
  return StreamOf(file).Read(static_cast<char*>(to), size * count) / size;
}

SAOffset WriteStream(void* from, SAOffset size, SAOffset count, SAFile file) {
  if (size == 0) return 0;
  return StreamOf(file).Write(static_cast<const char*>(from), size * count) / size;
}

SAOffset SeekStream(SAFile file, SAOffset offset, int whence) {
  Stream& stream = StreamOf(file);
  if (whence == SEEK_CUR) offset += stream.place;
  if (whence == SEEK_END) offset += stream.Size();
  stream.place = offset;
  return 0;
}

SAOffset TellStream(SAFile file) { return StreamOf(file).place; }
int KeepStream(SAFile /*file*/) { return 0; }
int RemoveNothing(const char* /*name*/) { return 0; }

void HearComplaint(const char* message) {
  if (current != nullptr) current->TakeComplaint(message);
}

double NumberIn(const char* text) { return platform::ParseDecimalPrefix(text, 0); }

}  // namespace

Stream::~Stream() = default;

std::size_t MemoryStream::Read(char* bytes, std::size_t size) {
  if (place >= bytes_.size()) return 0;
  size = std::min(size, bytes_.size() - place);
  std::memcpy(bytes, bytes_.data() + place, size);
  place += size;
  return size;
}

std::size_t FileStream::Read(char* bytes, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const std::size_t got = ReadFromWindow(bytes + done, size - done);
    if (got == 0) break;
    done += got;
  }
  return done;
}

std::size_t FileStream::ReadFromWindow(char* bytes, std::size_t size) {
  if (place < windowStart_ || place >= windowStart_ + window_.size()) {
    window_.resize(kWindow);
    windowStart_ = place;
    window_.resize(place < Size() ? file_.ReadAt(place, window_.data(), kWindow) : 0);
    if (window_.empty()) return 0;
  }
  const std::size_t from = place - windowStart_;
  size = std::min(size, window_.size() - from);
  std::memcpy(bytes, window_.data() + from, size);
  place += size;
  return size;
}

std::size_t OutputStream::Read(char* bytes, std::size_t size) {
  if (place >= head_.size()) return 0;
  size = std::min(size, head_.size() - place);
  std::memcpy(bytes, head_.data() + place, size);
  place += size;
  return size;
}

std::size_t OutputStream::Write(const char* bytes, std::size_t size) {
  const std::string_view text(bytes, size);
  if (place < head_.size()) {
    const std::size_t inHead = std::min(size, head_.size() - place);
    head_.replace(place, inHead, text.substr(0, inHead));
    place += inHead;
    return inHead == size ? size : inHead + Write(bytes + inHead, size - inHead);
  }
  isGood_ = isGood_ && place == end_;
  if (!isGood_) return 0;
  Append(text);
  place = end_;
  return size;
}

void OutputStream::Append(std::string_view bytes) {
  const std::size_t inHead = std::min(bytes.size(), kHead - head_.size());
  head_.append(bytes.substr(0, inHead));
  file_.Buffer() += bytes;
  file_.FlushIfLarge();
  end_ += bytes.size();
}

bool OutputStream::Finish() {
  file_.Rewrite(0, head_);
  return isGood_;
}

std::string StreamSet::Name(std::string_view extension) {
  return std::string("set.").append(extension);
}

StreamSet::StreamSet() : previous_(current) { current = this; }
StreamSet::~StreamSet() { current = previous_; }

Stream* StreamSet::Find(const std::string& extension) const {
  const auto found = streams_.find(extension);
  return found == streams_.end() ? nullptr : found->second;
}

SAHooks StreamSet::Hooks() const {
  return {OpenStream, ReadStream, WriteStream,   SeekStream,    TellStream,
          KeepStream, KeepStream, RemoveNothing, HearComplaint, NumberIn};
}

}  // namespace shape
