// What happens when a host loads the module and when it unloads it.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/document/host_document.h"
#include "platform/window_registry.h"
#include "services/extensions.h"
#include "tdk/string_loader.h"
#include "tests/support/exchange_frame.h"

using namespace exchange_test;

namespace {

// What the framework is to answer, and what it was asked.
bool refuseExtensions = false;
bool refuseResources = false;
int extensionsAttached = 0;
int extensionsDetached = 0;

/// The function of that mangled name in the host's library, which the ones below stand before.
template <class Function>
Function* Original(const char* mangled) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, mangled));
}

}  // namespace

// The functions of a program come before those of the libraries it loads: so the module reaches
// these, which hand every call on unless a test wants the framework to refuse.
bool AttachExtension(const void* instance) {
  if (refuseExtensions) return false;
  ++extensionsAttached;
  return Original<bool(const void*)>("_Z15AttachExtensionPKv")(instance);
}

bool RegisterExtensionResources(const void* instance) {
  if (refuseResources) return false;
  return Original<bool(const void*)>("_Z26RegisterExtensionResourcesPKv")(instance);
}

void DetachExtension(const void* instance) {
  ++extensionsDetached;
  Original<void(const void*)>("_Z15DetachExtensionPKv")(instance);
}

namespace {

constexpr const char* kFirstWindow = "KalvioFieldStart";
constexpr const char* kSecondWindow = "Avvio_TrembaloCrash";

class FrameStartUp : public testing::Test {
 protected:
  FrameStartUp() {
    extensionsAttached = 0;
    extensionsDetached = 0;
  }
  ~FrameStartUp() override {
    refuseExtensions = false;
    refuseResources = false;
    platform::UnregisterWindow(kFirstWindow);
    platform::UnregisterWindow(kSecondWindow);
  }

  /// Opens a window that keeps what it is sent as "name message wparam lparam".
  void Open(const std::string& name) {
    platform::RegisterWindow(name, [this, name](const platform::WindowMessage& sent) {
      received.push_back(name + ' ' + std::to_string(sent.message) + ' ' +
                         std::to_string(sent.wparam) + ' ' + std::to_string(sent.lparam));
    });
  }
  /// Loads the module and unloads it again.
  static void LoadAndUnload() {
    ASSERT_FALSE(LoadedModule::IsInMemory());
    { const LoadedModule module; }
    ASSERT_FALSE(LoadedModule::IsInMemory());
  }

  std::vector<std::string> received;
};

TEST_F(FrameStartUp, SendsItsMessageToTheFirstWindow) {
  Open(kFirstWindow);
  LoadAndUnload();
  EXPECT_EQ(received, std::vector<std::string>{"KalvioFieldStart 1165 1 0"});
}

TEST_F(FrameStartUp, SendsItsMessageToTheSecondWindowWhenThereIsNoFirst) {
  Open(kSecondWindow);
  LoadAndUnload();
  EXPECT_EQ(received, std::vector<std::string>{"Avvio_TrembaloCrash 1165 1 0"});
}

TEST_F(FrameStartUp, SendsItsMessageToTheFirstWindowOnlyWhenThereAreBoth) {
  Open(kSecondWindow);
  Open(kFirstWindow);
  LoadAndUnload();
  EXPECT_EQ(received, std::vector<std::string>{"KalvioFieldStart 1165 1 0"});
}

TEST_F(FrameStartUp, SendsNothingWhenThereIsNoWindowAndStillSucceeds) {
  Open("KalvioField");
  Open("kalviofieldstart");
  const LoadedModule module;
  EXPECT_TRUE(module.IsLoaded());
  EXPECT_TRUE(received.empty());
  HostDocument document;
  ScriptedViews views;
  CWnd parent(&views);
  Exports(module).importJb2(&parent, &document, 0);
  EXPECT_EQ(views.dialogs.size(), 1u);
  platform::UnregisterWindow("KalvioField");
  platform::UnregisterWindow("kalviofieldstart");
}

TEST_F(FrameStartUp, SendsItsMessageWhileTheModuleIsLoadedAndNotLater) {
  Open(kFirstWindow);
  const LoadedModule module;
  EXPECT_EQ(received.size(), 1u);
  const LoadedModule sameModule;
  HostDocument document;
  ScriptedViews views;
  CWnd parent(&views);
  Exports(module).exportJb2(&parent, &document, 0);
  EXPECT_EQ(received.size(), 1u);
}

TEST_F(FrameStartUp, SendsItsMessageEachTimeTheModuleIsLoaded) {
  Open(kFirstWindow);
  LoadAndUnload();
  LoadAndUnload();
  EXPECT_EQ(received.size(), 2u);
}

TEST_F(FrameStartUp, SendsNothingWhenTheModuleIsUnloaded) {
  {
    const LoadedModule module;
    Open(kFirstWindow);
  }
  EXPECT_FALSE(LoadedModule::IsInMemory());
  EXPECT_TRUE(received.empty());
}

TEST_F(FrameStartUp, SendsItsMessageBeforeItMeetsTheFramework) {
  int attachedBefore = -1;
  platform::RegisterWindow(
      kFirstWindow, [&](const platform::WindowMessage&) { attachedBefore = extensionsAttached; });
  LoadAndUnload();
  EXPECT_EQ(attachedBefore, 0);
  EXPECT_EQ(extensionsAttached, 1);
}

TEST_F(FrameStartUp, AttachesTheModuleToTheFrameworkUntilItIsUnloaded) {
  {
    const LoadedModule module;
    EXPECT_EQ(extensionsAttached, 1);
    EXPECT_EQ(extensionsDetached, 0);
  }
  EXPECT_EQ(extensionsAttached, 1);
  EXPECT_EQ(extensionsDetached, 1);
}

TEST_F(FrameStartUp, MakesTheTextsOfTheModuleKnownUntilItIsUnloaded) {
  constexpr unsigned kTextError = 1800;
  {
    const LoadedModule module;
    EXPECT_EQ(tdk::CStringLoader::Load(kTextError), "Error !");
  }
  EXPECT_EQ(tdk::CStringLoader::Load(kTextError), "");
}

// ---- A framework that refuses the module ----

TEST_F(FrameStartUp, RunsNoExchangeWhenTheFrameworkRefusesTheModule) {
  refuseExtensions = true;
  const LoadedModule module;
  const Exports exports(module);
  HostDocument document;
  document.GetLibCmp()->AddJob(true);
  ScriptedViews views;
  CWnd parent(&views);
  tdk::WString path = "before";
  EXPECT_EQ(exports.importImage(&parent, path, 0), 0);
  EXPECT_EQ(exports.importJb2(&parent, &document, 0), 0);
  EXPECT_EQ(exports.importJb3(&parent, &document, 0), 0);
  EXPECT_EQ(exports.exportJb2(&parent, &document, 0), 0);
  EXPECT_EQ(exports.exportLandXml(&parent, &document, 0), 0);
  EXPECT_EQ(exports.exportShape(&parent, document.GetLibGis()), 0);
  exports.dummy();
  EXPECT_TRUE(views.dialogs.empty());
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(FrameStartUp, KeepsItsTextsToItselfWhenTheFrameworkRefusesTheModule) {
  refuseExtensions = true;
  const LoadedModule module;
  EXPECT_EQ(tdk::CStringLoader::Load(1), "");
}

TEST_F(FrameStartUp, DetachesNothingWhenTheFrameworkRefusedTheModule) {
  refuseExtensions = true;
  LoadAndUnload();
  EXPECT_EQ(extensionsDetached, 0);
}

TEST_F(FrameStartUp, RunsNoExchangeWhenTheFrameworkRefusesItsResources) {
  refuseResources = true;
  const LoadedModule module;
  HostDocument document;
  ScriptedViews views;
  CWnd parent(&views);
  EXPECT_EQ(Exports(module).importJb2(&parent, &document, 0), 0);
  EXPECT_TRUE(views.dialogs.empty());
}

TEST_F(FrameStartUp, LeavesNothingBehindWhenTheFrameworkRefusedItsResources) {
  refuseResources = true;
  LoadAndUnload();
  EXPECT_EQ(extensionsAttached, 1);
  EXPECT_EQ(extensionsDetached, 1);
  EXPECT_EQ(tdk::CStringLoader::Load(1), "");
}

TEST_F(FrameStartUp, IsNotStoppedByAWindowThatThrows) {
  platform::RegisterWindow(kFirstWindow, [](const platform::WindowMessage&) { throw 42; });
  const LoadedModule module;
  ASSERT_TRUE(module.IsLoaded());
  HostDocument document;
  ScriptedViews views;
  CWnd parent(&views);
  Exports(module).importJb2(&parent, &document, 0);
  EXPECT_EQ(views.dialogs.size(), 1u);
}

TEST_F(FrameStartUp, SendsItsMessageEvenWhenTheFrameworkRefusesTheModule) {
  refuseExtensions = true;
  Open(kFirstWindow);
  LoadAndUnload();
  EXPECT_EQ(received.size(), 1u);
}

TEST_F(FrameStartUp, RunsAgainWhenItIsLoadedAnewAfterARefusal) {
  refuseExtensions = true;
  LoadAndUnload();
  refuseExtensions = false;
  const LoadedModule module;
  HostDocument document;
  ScriptedViews views;
  CWnd parent(&views);
  Exports(module).importJb2(&parent, &document, 0);
  EXPECT_EQ(views.dialogs.size(), 1u);
}

}  // namespace
