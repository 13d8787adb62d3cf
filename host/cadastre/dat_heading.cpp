#include "host/cadastre/dat_heading.h"

#include <algorithm>
#include <array>

#include "platform/numbers.h"
#include "services/translate.h"

namespace dat {
namespace {

using cadastre::Heading;

// What the agency reckons with where nothing else is said.
constexpr int kUsualLinearPrecision = 10;
constexpr int kUsualAngularPrecision = 20;

struct NeededText {
  const char* key;  // as people know it
  std::string Heading::*text;
};
constexpr auto kNeeded = std::to_array<NeededText>({{"date", &Heading::date},
                                                    {"municipality", &Heading::municipality},
                                                    {"sheet", &Heading::sheet},
                                                    {"technician", &Heading::technician},
                                                    {"qualification", &Heading::qualification},
                                                    {"province", &Heading::province},
                                                    {"version", &Heading::version},
                                                    {"actType", &Heading::actType}});

constexpr auto kActTypes = std::to_array<std::string_view>({"FR", "TM", "MC", "MA", "FM", "PA"});

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool AreDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }

int NumberAt(const std::string& text, std::size_t at, std::size_t digits) {
  return static_cast<int>(platform::ParseWhole(text.substr(at, digits)).value_or(0));
}

bool IsDate(const std::string& text) {
  if (text.size() != 8 || !AreDigits(text)) return false;
  const int day = NumberAt(text, 0, 2);
  const int month = NumberAt(text, 2, 2);
  const int year = NumberAt(text, 4, 4);
  constexpr std::array kDays = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12 || day < 1 || day > kDays[static_cast<std::size_t>(month - 1)]) {
    return false;
  }
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return month != 2 || day < 29 || isLeap;
}

bool IsMunicipality(const std::string& text) {
  return text.size() == 4 && IsLetter(text[0]) && AreDigits(text.substr(1));
}

// A number of up to three digits, or three characters and the annex. Empty: neither.
std::string SheetText(const std::string& text) {
  if (text.empty() || text.size() > 4) return {};
  if (text.size() == 4) {
    const bool isSheet =
        IsDigit(text[1]) && IsDigit(text[2]) &&
        std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c) || IsLetter(c); });
    return isSheet ? text : "";
  }
  if (!AreDigits(text)) return {};
  return std::string(3 - text.size(), '0') + text + '0';
}

bool IsActType(const std::string& text) {
  return AreDigits(text) || std::find(kActTypes.begin(), kActTypes.end(), text) != kActTypes.end();
}

void CheckForm(bool isSound, const tdk::WString& pattern, const std::string& text,
               DatDraft& draft) {
  if (!isSound && !text.empty()) draft.Fault(Fill(pattern, {tdk::WString(text)}));
}

void CheckForms(const Heading& heading, DatDraft& draft) {
  CheckForm(IsDate(heading.date), Xlate("date: \"{1}\" is no date of the form DDMMYYYY"),
            heading.date, draft);
  CheckForm(AreDigits(heading.protocol), Xlate("protocol: \"{1}\" is no number"), heading.protocol,
            draft);
  CheckForm(IsMunicipality(heading.municipality),
            Xlate("municipality: \"{1}\" is no code of a letter and three digits"),
            heading.municipality, draft);
  CheckForm(!SheetText(heading.sheet).empty(),
            Xlate("sheet: \"{1}\" is neither a number of three digits nor one with its annex"),
            heading.sheet, draft);
  CheckForm(IsActType(heading.actType),
            Xlate("actType: \"{1}\" is none of FR, TM, MC, MA, FM, PA and no number"),
            heading.actType, draft);
}

// A year of two digits is the end of the date's.
void CompareYears(const Heading& heading, DatDraft& draft) {
  if (heading.year.empty() || heading.date.ends_with(heading.year)) return;
  draft.Remark(Fill(Xlate("the year is {1}, but the date is {2}"),
                    {tdk::WString(heading.year), tdk::WString(heading.date)}));
}

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text.append(text.empty() ? "" : ",").append(part);
  return text;
}

}  // namespace

void CheckHeading(const cadastre::Survey& survey, DatDraft& draft) {
  std::string missing;
  const auto add = [&](const char* key) {
    missing.append(missing.empty() ? "" : ", ").append(key);
  };
  for (const NeededText& needed : kNeeded) {
    if ((survey.heading.*needed.text).empty()) add(needed.key);
  }
  if (survey.parcels.empty()) add("parcels");
  if (!missing.empty()) {
    draft.Fault(Fill(Xlate("missing in the cadastral data: {1}"), {tdk::WString(missing)}));
  }
  CheckForms(survey.heading, draft);
}

void WriteHeading(const cadastre::Survey& survey, DatDraft& draft) {
  const Heading& heading = survey.heading;
  DatLine(draft, '0')
      .Put(heading.date)
      .Put(heading.protocol)
      .Heading(heading.municipality)
      .Heading(SheetText(heading.sheet))
      .Heading(Joined(survey.parcels))
      .Heading(heading.technician)
      .Heading(heading.qualification)
      .Heading(heading.province);
  const auto precision = [](int given, int usual) { return given == 0 ? usual : given; };
  DatLine(draft, '9')
      .Fixed(heading.elevation, 0)
      .Whole(precision(heading.linearPrecision, kUsualLinearPrecision))
      .Whole(precision(heading.angularPrecision, kUsualAngularPrecision))
      .Fixed(heading.meanEast, 0)
      .Heading(heading.version)
      .Put(heading.actType)
      .Heading(heading.note);
  CompareYears(heading, draft);
}

}  // namespace dat
