#include "services/file_name.h"

#include "platform/paths.h"

tdk::WString EstraiIlNomeFile(const tdk::WString& path) {
  return tdk::WString(platform::FileName(path.ToUtf8()));
}
