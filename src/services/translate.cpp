#include "services/translate.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <span>

#include "platform/numbers.h"
#include "services/catalogues.h"

namespace {

// A compiled gettext catalogue: a header of 32-bit words, then two tables of (length, offset), one
// for the originals and one for the translations.
class Catalogue {
 public:
  explicit Catalogue(std::span<const unsigned char> bytes) : bytes_(bytes) {
    constexpr std::uint32_t kMagic = 0x950412de;
    if (bytes.size() < 28 || Word(0) != kMagic) return;
    for (std::uint32_t i = 0; i < Word(8); ++i) {
      entries_.emplace(TextAt(Word(12) + i * 8), TextAt(Word(16) + i * 8));
    }
  }

  std::string_view Find(std::string_view text) const {
    const auto found = entries_.find(text);
    // The empty original is the catalogue's own description.
    return found == entries_.end() || text.empty() ? text : found->second;
  }

 private:
  std::uint32_t Word(std::size_t offset) const {
    std::uint32_t word;
    std::memcpy(&word, bytes_.data() + offset, sizeof word);
    return word;
  }
  std::string_view TextAt(std::size_t entry) const {
    return {reinterpret_cast<const char*>(bytes_.data()) + Word(entry + 4), Word(entry)};
  }

  std::span<const unsigned char> bytes_;
  std::map<std::string_view, std::string_view> entries_;
};

struct LanguageEntry {
  std::string_view name;
  std::span<const unsigned char> catalogue;  // empty: the texts as they are
};

const std::array<LanguageEntry, 2>& Table() {
  static const std::array<LanguageEntry, 2> table = {{{"en", {}}, {"it", ItalianCatalogue()}}};
  return table;
}

struct Chosen {
  std::string_view name = "en";
  Catalogue catalogue{{}};
};

Chosen& Current() {
  static Chosen chosen;
  return chosen;
}

}  // namespace

bool SetLanguage(std::string_view name) {
  const std::string_view code = name.substr(0, name.find_first_of("_.@"));
  for (const LanguageEntry& entry : Table()) {
    if (entry.name != code) continue;
    Current() = {entry.name, Catalogue(entry.catalogue)};
    return true;
  }
  Current() = {};
  return false;
}

std::string_view Language() { return Current().name; }

std::vector<std::string_view> Languages() {
  std::vector<std::string_view> names;
  for (const LanguageEntry& entry : Table()) names.push_back(entry.name);
  return names;
}

tdk::WString Xlate(const char* text) { return tdk::WString(Current().catalogue.Find(text)); }

tdk::WString Xlate(const tdk::WString& text) { return Xlate(text.ToUtf8().c_str()); }

tdk::WString Fill(const tdk::WString& pattern, std::initializer_list<tdk::WString> arguments) {
  std::string_view rest = pattern.ToUtf8();
  std::string filled;
  while (!rest.empty()) {
    const std::size_t brace = rest.find('{');
    filled += rest.substr(0, brace);
    if (brace == std::string_view::npos) break;
    rest.remove_prefix(brace);
    const std::size_t end = rest.find('}');
    if (end == std::string_view::npos) {
      filled += rest;
      break;
    }
    const auto number =
        static_cast<std::size_t>(platform::ParseWhole(rest.substr(1, end - 1)).value_or(0));
    if (number >= 1 && number <= arguments.size()) {
      filled += (arguments.begin() + number - 1)->ToUtf8();
      rest.remove_prefix(end + 1);
    } else {
      filled += '{';
      rest.remove_prefix(1);
    }
  }
  return tdk::WString(std::move(filled));
}
