#include "services/ini_file.h"

#define SI_NO_CONVERSION  // all text is UTF-8
#include <SimpleIni.h>

#include <filesystem>
#include <limits>
#include <list>
#include <optional>
#include <system_error>

#include "platform/numbers.h"
#include "platform/output_file.h"

struct JobSettings::File {
  CSimpleIniA ini{/*a_bIsUtf8=*/true};
};

JobSettings::JobSettings() : file_(std::make_unique<File>()) { file_->ini.SetSpaces(false); }
JobSettings::~JobSettings() = default;

bool JobSettings::Load(const std::string& path) {
  file_->ini.Reset();
  path_ = path;
  changed_ = false;
  std::error_code unused;
  const auto type = std::filesystem::status(path, unused).type();
  if (type == std::filesystem::file_type::not_found) return true;
  // The library would ask for as much memory as a folder seems to be large.
  return type != std::filesystem::file_type::directory && file_->ini.LoadFile(path.c_str()) >= 0;
}

bool JobSettings::Save(const std::string& path) {
  platform::OutputFile output;
  if (!output.Open(path) || file_->ini.Save(output.Buffer()) < 0) return false;
  if (!output.Commit()) return false;
  path_ = path;
  changed_ = false;
  return true;
}

std::string JobSettings::Get(const std::string& section, const std::string& key,
                             const std::string& fallback) const {
  return file_->ini.GetValue(section.c_str(), key.c_str(), fallback.c_str());
}

void JobSettings::Set(const std::string& section, const std::string& key,
                      const std::string& value) {
  file_->ini.SetValue(section.c_str(), key.c_str(), value.c_str());
  changed_ = true;
}

void JobSettings::ForEach(const std::function<void(const std::string&, const std::string&,
                                                   const std::string&)>& visit) const {
  CSimpleIniA::TNamesDepend sections;
  file_->ini.GetAllSections(sections);
  sections.sort(CSimpleIniA::Entry::LoadOrder());
  for (const auto& section : sections) {
    CSimpleIniA::TNamesDepend keys;
    file_->ini.GetAllKeys(section.pItem, keys);
    keys.sort(CSimpleIniA::Entry::LoadOrder());
    for (const auto& key : keys) {
      visit(section.pItem, key.pItem, file_->ini.GetValue(section.pItem, key.pItem, ""));
    }
  }
}

bool JobSettings::IsEmpty() const { return file_->ini.IsEmpty(); }

namespace {

JobSettings*& CurrentPointer() {
  static JobSettings* current = nullptr;
  return current;
}

std::optional<std::int64_t> ReadWhole(const char* section, const char* key, std::int64_t least,
                                      std::int64_t most) {
  const auto value = platform::ParseWhole(JobSettings::Current().Get(section, key, ""));
  if (!value || *value < least || *value > most) return std::nullopt;
  return value;
}

void WriteWhole(const char* section, const char* key, std::int64_t value) {
  std::string text;
  platform::AppendWhole(text, value);
  JobSettings::Current().Set(section, key, text);
}

}  // namespace

void JobSettings::MakeCurrent(JobSettings* settings) { CurrentPointer() = settings; }

JobSettings& JobSettings::Current() {
  static JobSettings nobodys;
  return CurrentPointer() == nullptr ? nobodys : *CurrentPointer();
}

std::int16_t CIniFile::ReadShort(const char* section, const char* key,
                                 std::int16_t fallback) const {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      ReadWhole(section, key, Limits::min(), Limits::max()).value_or(fallback));
}

std::int32_t CIniFile::ReadLong(const char* section, const char* key, std::int32_t fallback) const {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      ReadWhole(section, key, Limits::min(), Limits::max()).value_or(fallback));
}

bool CIniFile::ReadBool(const char* section, const char* key, bool fallback) const {
  const std::string text = JobSettings::Current().Get(section, key, "");
  if (text == "true" || text == "1") return true;
  if (text == "false" || text == "0") return false;
  return fallback;
}

tdk::WString CIniFile::ReadString(const char* section, const char* key,
                                  const tdk::WString& fallback) const {
  return tdk::WString(JobSettings::Current().Get(section, key, fallback.ToUtf8()));
}

void CIniFile::WriteShort(const char* section, const char* key, std::int16_t value) {
  WriteWhole(section, key, value);
}
void CIniFile::WriteLong(const char* section, const char* key, std::int32_t value) {
  WriteWhole(section, key, value);
}
void CIniFile::WriteBool(const char* section, const char* key, bool value) {
  JobSettings::Current().Set(section, key, value ? "true" : "false");
}
void CIniFile::WriteString(const char* section, const char* key, const tdk::WString& value) {
  JobSettings::Current().Set(section, key, value.ToUtf8());
}
