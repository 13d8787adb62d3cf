// An XML file as a stream of events.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace landxml_load {

/// Why a file could not be read: "FILE: line 12: reason", one line for people.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class XmlStream;

/// A start tag. Names come without their namespace. Valid during the event.
class XmlTag {
 public:
  XmlTag(std::string_view name, const char* const* attributes, const XmlStream& stream)
      : name_(name), attributes_(attributes), stream_(stream) {}

  std::string_view Name() const { return name_; }
  /// The attribute's value, or null.
  const char* Find(std::string_view attribute) const;
  /// Calls `visit` with the name and the value of each attribute.
  void ForEach(const std::function<void(std::string_view, std::string_view)>& visit) const;
  /// Where it stands; takes some time to find out.
  std::uint64_t Line() const;

 private:
  std::string_view name_;
  const char* const* attributes_;  // names and values in turn, then null
  const XmlStream& stream_;
};

class XmlEvents {
 public:
  virtual ~XmlEvents();
  virtual void Begin(const XmlTag& tag) = 0;
  /// A piece of the text of the open element.
  virtual void Text(std::string_view text) = 0;
  virtual void End() = 0;
};

/// Told now and then how many bytes of how many are read (total 0: not known).
using LoadProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// Reads XML in any 8-bit encoding that its declaration names, and in UTF-8 and UTF-16. What says
/// to be UTF-8, or says nothing, and is not, is read as Windows-1252. No other file is ever opened,
/// and entities that would grow without bound are refused.
class XmlStream {
 public:
  /// `path` (native) names the file in complaints. Throws LoadError.
  XmlStream(const std::string& path, const LoadProgress& progress);

  /// Reads the whole file. Throws LoadError, and lets through what `events` throws.
  void Read(XmlEvents& events);

  /// The line that is being read.
  std::uint64_t Line() const;
  /// Whether the encoding had to be guessed.
  bool IsGuessedEncoding() const { return isGuessed_; }
  [[noreturn]] void Fail(const std::string& reason) const;

 private:
  const std::string& path_;
  const LoadProgress& progress_;
  void* parser_ = nullptr;          // the library's, while a file is read
  const char* encoding_ = nullptr;  // null: as the file says
  bool isGuessed_ = false;
};

}  // namespace landxml_load
