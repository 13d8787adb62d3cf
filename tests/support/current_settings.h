// Settings that CIniFile reaches as long as this lives.
#pragma once

#include "services/ini_file.h"

class CurrentSettings {
 public:
  CurrentSettings() { JobSettings::MakeCurrent(&settings); }
  ~CurrentSettings() { JobSettings::MakeCurrent(nullptr); }
  CurrentSettings(const CurrentSettings&) = delete;
  CurrentSettings& operator=(const CurrentSettings&) = delete;

  JobSettings settings;
};
