#include "host/landxml/remarks.h"

#include "platform/numbers.h"
#include "services/translate.h"

namespace landxml_load {

tdk::WString InWords(std::uint64_t number) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(number));
  return tdk::WString(text);
}

void Remarks::Add(std::uint64_t line, const tdk::WString& text) {
  all_.push_back(line == 0 ? text.ToUtf8()
                           : Fill(Xlate("line {1}: {2}"), {InWords(line), text}).ToUtf8());
}

}  // namespace landxml_load
