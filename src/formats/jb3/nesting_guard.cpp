#include "formats/jb3/nesting_guard.h"

#include <algorithm>
#include <string_view>

namespace jb3 {
namespace {

// Walks the tags as the parser does: comments, CDATA and quoted values hide what looks like one.
class TagWalk {
 public:
  TagWalk(std::string_view xml, int limit) : xml_(xml), limit_(limit) {}

  // Where the first start tag below the limit begins; the text's length when there is none.
  std::size_t FirstTooDeep() {
    int depth = 0;
    while ((at_ = xml_.find('<', at_)) < xml_.size()) {
      const std::size_t tag = at_;
      if (StartsElement()) {
        if (++depth > limit_) return tag;
        if (SkipElementTag()) --depth;
      } else {
        if (Has("</")) depth = std::max(depth - 1, 0);
        SkipOther();
      }
    }
    return xml_.size();
  }

 private:
  bool Has(std::string_view text) const { return xml_.compare(at_, text.size(), text) == 0; }

  // Anything that is no markup of another kind counts as an element, so that the depth is never
  // taken for less.
  bool StartsElement() const {
    const char next = at_ + 1 < xml_.size() ? xml_[at_ + 1] : '\0';
    return next != '/' && next != '!' && next != '?';
  }

  // True when the element ends with its start tag.
  bool SkipElementTag() {
    for (++at_; at_ < xml_.size(); ++at_) {
      const char c = xml_[at_];
      if (c > '>') continue;  // most of what a tag holds
      if (c == '"' || c == '\'') {
        at_ = std::min(xml_.find(c, at_ + 1), xml_.size());
      } else if (c == '>') {
        return xml_[at_ - 1] == '/';
      } else if (c == '<') {
        return false;
      }
    }
    return false;
  }

  void SkipOther() {
    if (Has("<!--")) return SkipPast("-->");
    if (Has("<![CDATA[")) return SkipPast("]]>");
    SkipPast(">");
  }

  void SkipPast(std::string_view end) {
    const std::size_t found = xml_.find(end, at_);
    at_ = found == std::string_view::npos ? xml_.size() : found + end.size();
  }

  std::string_view xml_;
  int limit_;
  std::size_t at_ = 0;
};

}  // namespace

bool CutTooDeepNesting(std::string& xml, int limit) {
  const std::size_t end = TagWalk(xml, limit).FirstTooDeep();
  if (end >= xml.size()) return false;
  xml.resize(end);
  return true;
}

}  // namespace jb3
