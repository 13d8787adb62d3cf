#include "host/cadastre/dat_draft.h"

#include "model/polar.h"
#include "platform/numbers.h"
#include "services/number_text.h"
#include "services/translate.h"

namespace dat {

constexpr int kAngleDecimals = 4;

void DatDraft::RemarkOf(std::uint64_t count, const tdk::WString& pattern) {
  if (count == 0) return;
  std::string number;
  platform::AppendWhole(number, static_cast<std::int64_t>(count));
  Remark(Fill(pattern, {tdk::WString(number)}));
}

std::string DatDraft::NameText(std::string_view utf8) {
  std::string text = FieldText(utf8, changes);
  if (text.empty()) return text;
  const std::string own(Trimmed(utf8));
  const auto [known, isNew] = names.try_emplace(text, own);
  if (!isNew && known->second != own && clashes.insert(text).second) {
    Fault(Fill(Xlate("points \"{1}\" and \"{2}\" would have one name in the file"),
               {tdk::WString(known->second), tdk::WString(own)}));
  }
  return text;
}

DatLine& DatLine::End() {
  line_ += '|';
  return *this;
}

DatLine& DatLine::Put(std::string_view field) {
  line_ += field;
  return End();
}

DatLine& DatLine::Whole(std::int64_t value) {
  platform::AppendWhole(line_, value);
  return End();
}

void DatLine::Append(double value, int decimals) {
  AppendCStringDaDouble(line_, IsDefined(value) ? value : 0, decimals);
}

DatLine& DatLine::Fixed(double value, int decimals) {
  Append(value, decimals);
  return End();
}

DatLine& DatLine::List(const std::vector<double>& values, int decimals) {
  bool isFirst = true;
  for (const double value : values) {
    if (!isFirst) line_ += ',';
    isFirst = false;
    Append(value, decimals);
  }
  return End();
}

DatLine& DatLine::Direction(double gon) {
  constexpr std::string_view kFullTurn = "400.0000";
  std::string text;
  AppendCStringDaDouble(text, FullCircle(gon), kAngleDecimals);
  return Put(text == kFullTurn ? "0.0000" : text);
}

DatLine& DatLine::Surveyed(std::string_view name) {
  const std::string text = draft_.NameText(name);
  draft_.surveyed.insert(text);
  return Put(text);
}

DatLine& DatLine::Named(std::string_view name) {
  const std::string text = draft_.NameText(name);
  draft_.named.push_back(text);
  return Put(text);
}

}  // namespace dat
