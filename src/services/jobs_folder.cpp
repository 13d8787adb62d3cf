#include "services/jobs_folder.h"

namespace {

std::string& CurrentFolder() {
  static std::string folder = ".";
  return folder;
}

}  // namespace

void CJobsFolder::SetJobFolder(const tdk::WString& folder) {
  std::string text = folder.ToUtf8();
  while (!text.empty() && (text.back() == '/' || text.back() == '\\')) text.pop_back();
  CurrentFolder() = std::move(text);
}

tdk::WString CJobsFolder::GetJobNameFolderNoSlash() { return tdk::WString(CurrentFolder()); }
tdk::WString CJobsFolder::GetJobNameFolderWthSlash() {
  return tdk::WString(CurrentFolder() + '\\');
}
