#include "host/landxml/xml_element.h"

#include <algorithm>

namespace landxml_load {

const std::string* XmlElement::Find(std::string_view attribute) const {
  const auto found = std::find_if(attributes.begin(), attributes.end(),
                                  [&](const auto& each) { return each.first == attribute; });
  return found == attributes.end() ? nullptr : &found->second;
}

std::string_view XmlElement::Value(std::string_view attribute) const {
  const std::string* const value = Find(attribute);
  return value == nullptr ? std::string_view() : *value;
}

const XmlElement* XmlElement::Child(std::string_view childName) const {
  const auto found = std::find_if(children.begin(), children.end(),
                                  [&](const XmlElement& each) { return each.name == childName; });
  return found == children.end() ? nullptr : &*found;
}

}  // namespace landxml_load
