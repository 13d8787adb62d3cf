// A small element of a LandXML file with all that it holds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace landxml_load {

struct XmlElement {
  std::string name;  ///< without its namespace
  std::vector<std::pair<std::string, std::string>> attributes;
  std::string text;
  std::vector<XmlElement> children;
  std::uint64_t line = 0;

  /// The value of an attribute; null when there is none of that name.
  const std::string* Find(std::string_view attribute) const;
  /// The same, with an empty text for one that is not there.
  std::string_view Value(std::string_view attribute) const;
  /// The first child of that name, or null.
  const XmlElement* Child(std::string_view childName) const;
};

}  // namespace landxml_load
