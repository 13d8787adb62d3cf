#include "formats/text/text_layouts.h"

#include <string>

#include "platform/numbers.h"
#include "services/ini_file.h"

namespace text {
namespace {

constexpr char kMainSection[] = "DlgExpFileTxt";
constexpr char kBasicSection[] = "Importazione";
constexpr std::int16_t kDefaultWidth = 12;
constexpr std::int16_t kDefaultDecimals = 3;
constexpr std::int32_t kOldVersion = 1;
constexpr std::int32_t kPresentVersion = 0;

std::string Numbered(const char* key, std::size_t column) {
  std::string text = key;
  platform::AppendWhole(text, static_cast<std::int64_t>(column) + 1);
  return text;
}

// What a control cannot show becomes its default.
int Within(int value, int least, int most, int fallback) {
  return value < least || value > most ? fallback : value;
}

int Load(const char* section, const char* key, int least, int most, int fallback) {
  return Within(CIniFile().ReadShort(section, key, static_cast<std::int16_t>(fallback)), least,
                most, fallback);
}

void Store(const char* section, const char* key, int value) {
  CIniFile().WriteShort(section, key, static_cast<std::int16_t>(value));
}

template <std::size_t Count>
void StoreAll(const char* section, const char* key, const std::array<int, Count>& values) {
  for (std::size_t i = 0; i < Count; ++i) Store(section, Numbered(key, i).c_str(), values[i]);
}

int LoadField(std::size_t column) {
  const int code = CIniFile().ReadShort(kBasicSection, Numbered("Campo", column).c_str(), kNothing);
  return code < 0 || code > kNothing ? kNothing : code;
}

// The older catalogue had 18 entries: without "Comment" and without the three that follow the
// antenna height.
int Upgraded(int code) {
  if (code >= 2 && code < 9) return code + 1;
  if (code >= 9 && code < 18) return code + 4;
  return code;
}

int LoadFullCode(const char* section, std::size_t column) {
  return CIniFile().ReadShort(section, Numbered("Campo", column).c_str(),
                              static_cast<std::int16_t>(column));
}

void UpgradeFullLayout(const char* section) {
  CIniFile settings;
  if (settings.ReadLong(section, "ExpVersion", kOldVersion) != kOldVersion) return;
  for (std::size_t i = kFullColumns; i-- > 0;) {
    Store(section, Numbered("Campo", i).c_str(), Upgraded(LoadFullCode(section, i)));
  }
  settings.WriteLong(section, "ExpVersion", kPresentVersion);
}

}  // namespace

BasicLayout LoadBasicLayout() {
  BasicLayout layout;
  layout.headerRows = Load(kBasicSection, "Num_righe", 0, kMostHeaderRows, 0);
  layout.separator = Load(kBasicSection, "Delimit", 0, static_cast<int>(kSeparators.size()) - 1, 0);
  layout.quoteNames = CIniFile().ReadBool(kBasicSection, "DelApice", false);
  for (std::size_t i = 0; i < kBasicColumns; ++i) {
    layout.fields[i] = LoadField(i);
    layout.lengths[i] =
        Load(kBasicSection, Numbered("LCampo", i).c_str(), kLeastWidth, kMostWidth, kDefaultWidth);
  }
  return layout;
}

void StoreDelimitedLayout(const BasicLayout& layout, bool withSeparator) {
  Store(kBasicSection, "Num_righe", layout.headerRows);
  if (withSeparator) Store(kBasicSection, "Delimit", layout.separator);
  StoreAll(kBasicSection, "Campo", layout.fields);
  CIniFile().WriteBool(kBasicSection, "DelApice", layout.quoteNames);
}

void StoreFixedLayout(const BasicLayout& layout) {
  Store(kBasicSection, "Num_righe", layout.headerRows);
  StoreAll(kBasicSection, "Campo", layout.fields);
  StoreAll(kBasicSection, "LCampo", layout.lengths);
}

FullLayout LoadFullLayout(const char* section) {
  UpgradeFullLayout(section);
  FullLayout layout;
  for (std::size_t i = 0; i < kFullColumns; ++i) {
    layout.fields[i] =
        Within(LoadFullCode(section, i), 0, kFullFieldCount - 1, static_cast<int>(i));
    layout.decimals[i] =
        Load(section, Numbered("NuDec", i).c_str(), 0, kMostDecimals, kDefaultDecimals);
  }
  layout.separator = Load(section, "Delimit", 0, static_cast<int>(kFullSeparators.size()) - 1, 0);
  layout.quoteNames = CIniFile().ReadBool(section, "DelApice", false);
  layout.angleFormat = Load(section, "Formato", 0, kAngleFormatCount - 1, 0);
  return layout;
}

void StoreFullLayout(const char* section, const FullLayout& layout) {
  StoreAll(section, "Campo", layout.fields);
  StoreAll(section, "NuDec", layout.decimals);
  Store(section, "Delimit", layout.separator);
  CIniFile().WriteBool(section, "DelApice", layout.quoteNames);
  Store(section, "Formato", layout.angleFormat);
  CIniFile().WriteLong(section, "ExpVersion", kPresentVersion);
}

void StoreLastFullExport(const tdk::WString& name) {
  CIniFile().WriteString("PERSIST", "ULTIMO_ASC", name);
}

int LoadLastKind() { return Load(kMainSection, "CurSelLibs", 0, kKindCount - 1, kKnownPoints); }
bool LoadLastIsFixed() { return Load(kMainSection, "RadFieldType", 0, 1, 0) == 0; }
void StoreLastKind(int kind) { Store(kMainSection, "CurSelLibs", kind); }
void StoreLastIsFixed(bool isFixed) { Store(kMainSection, "RadFieldType", isFixed ? 0 : 1); }

}  // namespace text
