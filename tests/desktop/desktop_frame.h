// What the tests of the dialogs' windows stand on: the module, a document, and windows that a
// driver works.
#pragma once

#include "apps/desktop/dialogs/dialog_view.h"
#include "apps/desktop/dialogs/qt_views.h"
#include "apps/desktop/job/text_preview.h"
#include "host/document/host_document.h"
#include "services/jobs_folder.h"
#include "services/translate.h"
#include "tests/desktop/driver.h"
#include "tests/support/temporary_folder.h"

namespace desktop_test {

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    SetLanguage("en");
    CJobsFolder::SetJobFolder(tdk::WString(folder.Path()));
    JobSettings::MakeCurrent(&document.Settings());
    views.SetPreview(&preview);
  }
  ~DesktopTest() override {
    SetLanguage("en");
    CJobsFolder::SetJobFolder(".");
    JobSettings::MakeCurrent(nullptr);
    EXPECT_FALSE(driver.HasStepsLeft());
  }

  /// Calls a function of the module; its value.
  int Call(const char* function) {
    return module.Call(function, parent, document).value.value_or(-1);
  }
  void AddKnown() {
    for (int i = 0; i < 2; ++i) {
      document.GetLibPnt()->AddGrp(true)->SetLabels(i == 0 ? "G1" : "G2", "", "", "");
      document.GetLibPnt()->AddPtn(i, true)->SetNomCoord("P", "c", 1, 2, 3);
    }
  }
  void AddJob() {
    CLibCmp& jobs = *document.GetLibCmp();
    jobs.AddJob(true)->SetNome("J");
    jobs.AddSta(0, true)->SetNome("S");
    jobs.AddPun(0, 0, true)->SetNome("P");
  }
  std::string Text(const char* name) const { return ReadBytes(folder.File(name)); }

  TemporaryFolder folder;
  Module module;
  HostDocument document;
  QtViews views{nullptr, DialogShape{}};
  TextPreview preview{module, views};
  CWnd parent{&views};
  Driver driver;
};

}  // namespace desktop_test
