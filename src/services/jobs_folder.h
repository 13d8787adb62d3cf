// The folder of the open job.
#pragma once

#include "tdk/wstring.h"

class CJobsFolder {
 public:
  /// Makes `folder` (with or without a final separator) the current job's folder.
  static void SetJobFolder(const tdk::WString& folder);

  static tdk::WString GetJobNameFolderNoSlash();
  /// With a trailing backslash.
  static tdk::WString GetJobNameFolderWthSlash();
};
