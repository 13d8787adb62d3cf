#include "host/gis/remarks.h"

#include <string>

#include "platform/numbers.h"
#include "services/translate.h"

namespace shape {

tdk::WString NumberText(std::uint64_t number) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(number));
  return tdk::WString(std::move(text));
}

void Remark(Remarks& remarks, const char* text, std::initializer_list<tdk::WString> arguments) {
  remarks.push_back(Fill(Xlate(text), arguments));
}

void RemarkCount(Remarks& remarks, const char* text, std::uint64_t count) {
  if (count != 0) Remark(remarks, text, {NumberText(count)});
}

}  // namespace shape
