// The settings of the open job, in sections and keys.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "tdk/wstring.h"

/// The settings of one job in memory. Comments and the order of a file that was loaded are kept
/// when it is saved.
class JobSettings {
 public:
  JobSettings();
  ~JobSettings();
  JobSettings(const JobSettings&) = delete;
  JobSettings& operator=(const JobSettings&) = delete;

  /// Replaces all settings by those of a file (native path). False when it cannot be read; a file
  /// that is not there is an empty one.
  bool Load(const std::string& path);
  /// Writes the file anew, whole or not at all. False, and trouble reported, when that fails.
  bool Save(const std::string& path);

  /// The text under a key, or `fallback`.
  std::string Get(const std::string& section, const std::string& key,
                  const std::string& fallback) const;
  void Set(const std::string& section, const std::string& key, const std::string& value);
  /// Calls `visit` for every setting, in the file's order.
  void ForEach(const std::function<void(const std::string& section, const std::string& key,
                                        const std::string& value)>& visit) const;
  /// The file of the last Load or Save; empty before.
  const std::string& Path() const { return path_; }
  /// Whether anything was set since Load or Save.
  bool IsChanged() const { return changed_; }
  bool IsEmpty() const;

  /// The settings that CIniFile reaches; not owned. Null: an empty set that nobody keeps.
  static void MakeCurrent(JobSettings* settings);
  static JobSettings& Current();

 private:
  struct File;
  std::unique_ptr<File> file_;
  std::string path_;
  bool changed_ = false;
};

/// Reads and writes the current job's settings. A value that is not there, or is none of its type,
/// reads as the given default.
class CIniFile {
 public:
  std::int16_t ReadShort(const char* section, const char* key, std::int16_t fallback) const;
  std::int32_t ReadLong(const char* section, const char* key, std::int32_t fallback) const;
  bool ReadBool(const char* section, const char* key, bool fallback) const;
  tdk::WString ReadString(const char* section, const char* key, const tdk::WString& fallback) const;

  void WriteShort(const char* section, const char* key, std::int16_t value);
  void WriteLong(const char* section, const char* key, std::int32_t value);
  void WriteBool(const char* section, const char* key, bool value);
  void WriteString(const char* section, const char* key, const tdk::WString& value);
};
