#include "cadastral_settings.h"

#include <algorithm>
#include <set>
#include <utility>

#include "failure.h"
#include "host/store/cadastre_records.h"
#include "nearest_word.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace {

using cadastre::Survey;
using Parts = std::vector<std::string>;

struct Word {
  std::string key;
  std::string value;
};

[[noreturn]] void Refuse(const Word& word, const tdk::WString& expected) {
  throw BadUsage(Fill(Xlate("--set {1}: expected {2}, not \"{3}\""),
                      {tdk::WString(word.key), expected, tdk::WString(word.value)})
                     .ToUtf8());
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string()
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// "64, 65" in its parts; the last of `most` parts has the rest, commas and all. Nothing: no part.
Parts Split(const std::string& text, std::size_t most = std::string::npos) {
  Parts parts;
  if (Trimmed(text).empty()) return parts;
  std::size_t start = 0;
  while (parts.size() + 1 < most) {
    const std::size_t comma = text.find(',', start);
    if (comma == std::string::npos) break;
    parts.push_back(Trimmed(text.substr(start, comma - start)));
    start = comma + 1;
  }
  parts.push_back(Trimmed(text.substr(start)));
  return parts;
}

double Decimal(const Word& word, const std::string& text) {
  std::string_view rest = text;
  const auto number = platform::TakeDecimal(rest);
  if (!number || !platform::IsBlank(rest)) Refuse(word, Xlate("a number"));
  return *number;
}

std::int32_t Whole(const Word& word, const std::string& text) {
  const auto number = platform::ParseWhole(text);
  if (!number || !std::in_range<std::int32_t>(*number)) Refuse(word, Xlate("a whole number"));
  return static_cast<std::int32_t>(*number);
}

void Put(const Word& word, std::string& text) { text = word.value; }
void Put(const Word& word, double& number) { number = Decimal(word, word.value); }
void Put(const Word& word, std::int32_t& number) { number = Whole(word, word.value); }

void AddParcels(const Word& word, Survey& survey) {
  const Parts parcels = Split(word.value);
  survey.parcels.insert(survey.parcels.end(), parcels.begin(), parcels.end());
}

void AddTraverse(const Word& word, Survey& survey) {
  if (Parts names = Split(word.value); !names.empty()) survey.traverses.push_back(std::move(names));
}

void AddContour(const Word& word, Survey& survey) {
  const Parts parts = Split(word.value);
  if (parts.empty()) return;
  survey.contours.push_back({Parts(parts.begin() + 1, parts.end()), parts[0]});
}

void AddFiducial(const Word& word, Survey& survey) {
  constexpr std::size_t kParts = 5;
  const Parts parts = Split(word.value, kParts);
  if (parts.empty()) return;
  if (parts.size() < kParts - 1) Refuse(word, Xlate("NAME,NORTH,EAST,RELIABILITY,DESCRIPTION"));
  survey.fiducials.push_back({parts[0], Decimal(word, parts[1]), Decimal(word, parts[2]),
                              Whole(word, parts[3]), parts.size() == kParts ? parts[4] : ""});
}

struct ListRow {
  std::string_view key;
  void (*clear)(Survey& survey);
  void (*add)(const Word& word, Survey& survey);
};
constexpr ListRow kLists[] = {
    {"parcels", [](Survey& survey) { survey.parcels.clear(); }, AddParcels},
    {"traverses", [](Survey& survey) { survey.traverses.clear(); }, AddTraverse},
    {"contours", [](Survey& survey) { survey.contours.clear(); }, AddContour},
    {"fiducials", [](Survey& survey) { survey.fiducials.clear(); }, AddFiducial}};

const ListRow* FindList(std::string_view key) {
  const auto* const found = std::find_if(std::begin(kLists), std::end(kLists),
                                         [&](const ListRow& row) { return row.key == key; });
  return found == std::end(kLists) ? nullptr : found;
}

void PutIntoHeading(const Word& word, Survey& survey) {
  CadastreRecord record{survey.heading};
  ForEachField<CadastreRecord>([&](const auto& field) {
    if (field.key == word.key) Put(word, record.*field.member);
  });
  survey.heading = record;
}

void CheckKey(const Word& word) {
  if (FindList(word.key) != nullptr || HasField<CadastreRecord>(word.key)) return;
  std::vector<std::string_view> keys;
  ForEachField<CadastreRecord>([&](const auto& field) { keys.push_back(field.key); });
  for (const ListRow& row : kLists) keys.push_back(row.key);
  throw BadUsage(
      Fill(Xlate("the cadastral data have no \"{1}\""), {tdk::WString(word.key)}).ToUtf8() +
      SuggestedWord(word.key, keys));
}

Word Taken(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos) {
    throw BadUsage(
        Fill(Xlate("--set takes KEY=VALUE, not \"{1}\""), {tdk::WString(text)}).ToUtf8());
  }
  Word word{text.substr(0, equals), text.substr(equals + 1)};
  CheckKey(word);
  return word;
}

}  // namespace

CadastralSettings::CadastralSettings(const std::vector<std::string>& words) : words_(words) {
  Survey unused;
  Apply(unused);
}

void CadastralSettings::Apply(Survey& survey) const {
  std::set<std::string> begun;  // lists whose old elements are gone
  for (const std::string& text : words_) {
    const Word word = Taken(text);
    const ListRow* const list = FindList(word.key);
    if (list == nullptr) {
      PutIntoHeading(word, survey);
      continue;
    }
    if (begun.insert(word.key).second) list->clear(survey);
    list->add(word, survey);
  }
}
