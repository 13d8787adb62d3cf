// What the tests of the frame stand on: the module, a document and a scripted user interface.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "host/document/host_document.h"
#include "services/jobs_folder.h"
#include "services/translate.h"
#include "tests/support/exchange_files.h"
#include "tests/support/exchange_jb2.h"
#include "tests/support/exchange_module.h"
#include "tests/support/exchange_views.h"

namespace exchange_test {

class FrameTest : public testing::Test {
 protected:
  FrameTest() {
    SetLanguage("en");
    CJobsFolder::SetJobFolder(tdk::WString(folder.Path()));
  }
  ~FrameTest() override {
    SetLanguage("en");
    CJobsFolder::SetJobFolder(".");
  }

  /// A job with a station and a point.
  void FillJobs() {
    CLibCmp& jobs = *document.GetLibCmp();
    jobs.AddJob(true)->SetNome("J");
    jobs.AddSta(0, true)->SetNome("S");
    jobs.AddPun(0, 0, true)->SetNome("P");
  }

  TempFolder folder;
  LoadedModule module;
  Exports exports{module};
  HostDocument document;
  ScriptedViews views;
  CWnd parent{&views};
};

/// The state in which a file dialog is shown in `folder`.
inline DialogState FileDialogState(const std::string& folder, const char* extensions,
                                   bool isImport) {
  return {{"folder", folder + '\\'},
          {"extensions", extensions},
          {"import", isImport},
          {"initialName", ""}};
}

}  // namespace exchange_test
