#include "host/landxml/load_context.h"

#include "host/landxml/xml_stream.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace landxml_load {

PointFinder::~PointFinder() = default;

void LoadContext::FailAsRefused() const {
  throw LoadError(path + ": " + Xlate("the job takes no more of what is in this file").ToUtf8());
}

std::optional<std::vector<double>> Numbers(std::string_view text) {
  std::vector<double> numbers;
  while (const auto number = platform::TakeDecimal(text)) numbers.push_back(*number);
  if (!platform::IsBlank(text)) return std::nullopt;
  return numbers;
}

std::optional<Point> PointOf(std::string_view text, const Units& units) {
  const auto north = platform::TakeDecimal(text);
  const auto east = platform::TakeDecimal(text);
  const auto elevation = platform::TakeDecimal(text);
  if (!north || !east || !platform::IsBlank(text)) return std::nullopt;
  return Point(*east * units.metres, *north * units.metres,
               elevation ? *elevation * units.metres : UndefinedValue);
}

std::optional<Point> PointOf(const XmlElement* element, const Units& units, PointFinder& points) {
  if (element == nullptr) return std::nullopt;
  if (!platform::IsBlank(element->text)) return PointOf(element->text, units);
  const std::string* const name = element->Find("pntRef");
  return name == nullptr ? std::nullopt : points.Find(*name);
}

std::optional<double> NumberOf(const XmlElement& element, std::string_view attribute) {
  std::string_view text = element.Value(attribute);
  const auto number = platform::TakeDecimal(text);
  return platform::IsBlank(text) ? number : std::nullopt;
}

std::optional<double> LengthOf(const XmlElement& element, std::string_view attribute,
                               const Units& units) {
  const auto number = NumberOf(element, attribute);
  return number ? std::optional(*number * units.metres) : std::nullopt;
}

tdk::WString NameOf(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return tdk::WString(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

}  // namespace landxml_load
