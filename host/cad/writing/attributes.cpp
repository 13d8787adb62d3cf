#include "host/cad/writing/attributes.h"

#include <algorithm>
#include <cmath>

#include "host/cad/writing/soundness.h"

namespace cad_writer {

std::string TagOf(std::string_view utf8) {
  std::string tag(utf8.empty() ? "_" : utf8);
  std::replace_if(
      tag.begin(), tag.end(), [](char c) { return c >= 0 && c <= ' '; }, '_');
  return tag;
}

TextLine AttributePlaces::Of(const cad::Attribute& attribute) {
  const auto& defined = block_.attributes;
  const auto found = std::find_if(defined.begin(), defined.end(), [&](const auto& it) {
    return it.tag == attribute.tag && IsSound(it);
  });
  if (found != defined.end()) {
    const cad::Point at = placing_(found->at);
    const double height = HeightOf(found->height);
    if (IsPlace(at)) return {at, height, insert_.rotation, attribute.text};
  }
  const double height = HeightOf(cad::AttributeDefinition{}.height);
  const cad::Point at = below_;
  below_ = Below(below_, placing_.TextDirection(), height * kLineDistance);
  return {IsPlace(at) ? at : insert_.at, height, insert_.rotation, attribute.text};
}

// As large as it is in the insert, unless that is beyond all numbers.
double AttributePlaces::HeightOf(double inBlock) const {
  const double height = inBlock * std::fabs(insert_.scale.getY());
  return IsNumber(height) && height > 0 ? height : inBlock;
}

}  // namespace cad_writer
