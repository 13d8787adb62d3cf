#include "services/file_name.h"

#include "platform/paths.h"

tdk::WString EstraiIlNomeFile(const tdk::WString& path) {
  return tdk::WString(platform::FileName(path.ToUtf8()));
}

tdk::WString EliminaEstensioneFile(const tdk::WString& path) {
  const std::string& text = path.ToUtf8();
  const std::size_t name = text.size() - platform::FileName(text).size();
  const std::size_t dot = text.rfind('.');
  return dot == std::string::npos || dot < name
             ? path
             : tdk::WString(std::string_view(text).substr(0, dot));
}
