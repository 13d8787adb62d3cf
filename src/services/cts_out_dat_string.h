// The host's writer of the land agency's text of a cadastral survey.
#pragma once

#include "model/cadastre.h"
#include "model/gps.h"
#include "model/total_station.h"
#include "services/window.h"

class CCtsOutDatString {
 public:
  /// None of them is owned, and the last three must be there. `owner` is where the writer shows its
  /// messages.
  CCtsOutDatString(HWND owner, CCts* cadastre, CLibCmp* surveys, CLibGps* gps);

  /// Composes the text and writes the file in place of what was there. False, with the old file
  /// untouched and the reason shown, when data are missing or wrong or the file cannot be written.
  /// What was left out is told to the views as notes.
  bool WriteFileText(const tdk::WString& path) const;

 private:
  HWND owner_;
  CCts* cadastre_;
  CLibCmp* surveys_;
  CLibGps* gps_;
};
