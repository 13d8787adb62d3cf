// What the Shape library reads from and writes to: its files, through buffers of our own.
#pragma once

#include <shapefil.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/input_file.h"
#include "platform/output_file.h"

namespace shape {

/// One file, as the library's hooks see it.
class Stream {
 public:
  virtual ~Stream();
  /// Both move the place on; fewer bytes than asked for: the end, or trouble.
  virtual std::size_t Read(char* bytes, std::size_t size) = 0;
  virtual std::size_t Write(const char* bytes, std::size_t size) = 0;
  virtual std::uint64_t Size() const = 0;

  std::uint64_t place = 0;
};

/// Bytes in memory. Not owned.
class MemoryStream : public Stream {
 public:
  explicit MemoryStream(std::string_view bytes) : bytes_(bytes) {}
  std::size_t Read(char* bytes, std::size_t size) override;
  std::size_t Write(const char*, std::size_t) override { return 0; }
  std::uint64_t Size() const override { return bytes_.size(); }

 private:
  std::string_view bytes_;
};

/// A file that is read, mostly forwards.
class FileStream : public Stream {
 public:
  /// False, with trouble reported, when it cannot be opened.
  bool Open(const std::string& path) { return file_.Open(path); }
  std::size_t Read(char* bytes, std::size_t size) override;
  std::size_t Write(const char*, std::size_t) override { return 0; }
  std::uint64_t Size() const override { return file_.Size(); }

 private:
  static constexpr std::size_t kWindow = 256 * 1024;
  std::size_t ReadFromWindow(char* bytes, std::size_t size);

  platform::InputFile file_;
  std::vector<char> window_;
  std::uint64_t windowStart_ = 0;
};

/// A file that is written from its beginning to its end; only its first bytes may be read and
/// written again.
class OutputStream : public Stream {
 public:
  explicit OutputStream(platform::OutputFile& file) : file_(file) {}
  std::size_t Read(char* bytes, std::size_t size) override;
  std::size_t Write(const char* bytes, std::size_t size) override;
  std::uint64_t Size() const override { return end_; }
  void Append(std::string_view bytes);
  /// Puts the first bytes into the file. False when something was written where it cannot be.
  bool Finish();

 private:
  static constexpr std::size_t kHead = 128;

  platform::OutputFile& file_;
  std::string head_;  // the first bytes, kept until the end
  std::uint64_t end_ = 0;
  bool isGood_ = true;
};

/// The files of one set, by their extensions in small letters. As long as it lives, the hooks open
/// what was added to the one made last on this thread.
class StreamSet {
 public:
  /// The name by which the library opens a file: StreamSet::Name("shp").
  static std::string Name(std::string_view extension);

  StreamSet();
  ~StreamSet();
  StreamSet(const StreamSet&) = delete;
  StreamSet& operator=(const StreamSet&) = delete;

  /// Not owned.
  void Add(const std::string& extension, Stream& stream) { streams_[extension] = &stream; }
  /// Null when there is none.
  Stream* Find(const std::string& extension) const;
  SAHooks Hooks() const;
  /// What the library said last; empty for nothing.
  const std::string& Complaint() const { return complaint_; }
  void TakeComplaint(const char* message) { complaint_ = message; }

 private:
  std::map<std::string, Stream*> streams_;
  std::string complaint_;
  StreamSet* previous_;
};

}  // namespace shape
