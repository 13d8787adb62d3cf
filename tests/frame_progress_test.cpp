// Every long exchange tells how far it has come, and can be ended from there: an export then leaves
// the old file, and nothing gets past the module's functions.
#include <gmock/gmock.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "formats/cad/cad_options.h"
#include "host/cad/cad_files.h"
#include "host/gis/shape_files.h"
#include "platform/paths.h"
#include "services/message_box.h"
#include "services/progress.h"
#include "tests/support/exchange_frame.h"

using namespace exchange_test;

namespace {

constexpr int kMany = 17'000;
constexpr const char* kOld = "what was here before\n";

/// What a user does who stops the work.
struct Stopped {};

/// Takes everything that a dialog offers, and the file `path`.
class WillingUser : public ScriptedViews {
 public:
  explicit WillingUser(std::string path) : path_(std::move(path)) {}

  int ShowDialog(Dialog& dialog) override {
    const std::string_view name = dialog.Name();
    if (name == "cad-file") return ChooseDrawing(dialog);
    if (name == "file") return Choose(path_)(dialog);
    if (name == "text-main") return ChooseText(dialog);
    if (name == "shape-import") return ChooseFolderAndFile(dialog);
    if (name == "shape-export") return ChooseThemes(dialog);
    if (name.starts_with("landxml")) return ChooseParts(dialog);
    return dialog.Press("OK").value_or(Dialog::kCancel);
  }

  int ShowMessage(const tdk::WString& caption, const tdk::WString& text, unsigned flags) override {
    ScriptedViews::ShowMessage(caption, text, flags);
    return (flags & kBoxYesNo) != 0 ? kAnswerYes : kAnswerOk;
  }

  void ShowProgress(std::uint64_t done, std::uint64_t total) override {
    ScriptedViews::ShowProgress(done, total);
    if (stops) throw Stopped();
  }

  bool stops = false;

 private:
  std::string Folder() const {
    return path_.substr(0, path_.size() - platform::FileName(path_).size());
  }
  std::string NameWithoutExtension() const {
    const std::string name(platform::FileName(path_));
    return name.substr(0, name.rfind('.'));
  }

  int ChooseDrawing(Dialog& dialog) const {
    const bool isDwg = path_.ends_with(".dwg");
    int version = 0;
    while (cad::IsDwgVersion(version) != isDwg) ++version;
    EXPECT_EQ(dialog.Set("version", version), DialogSet::kDone);
    return Choose(path_)(dialog);
  }
  int ChooseText(Dialog& dialog) const {
    EXPECT_EQ(dialog.Set("kind", 0), DialogSet::kDone);
    return ChooseFolderAndFile(dialog);
  }
  int ChooseFolderAndFile(Dialog& dialog) const {
    EXPECT_EQ(dialog.Set("folder", Folder()), DialogSet::kDone);
    EXPECT_EQ(dialog.Set("file", NameWithoutExtension()), DialogSet::kDone);
    return dialog.Press("OK").value_or(Dialog::kCancel);
  }
  int ChooseThemes(Dialog& dialog) const {
    EXPECT_EQ(dialog.Set("themes", DialogState::array({0})), DialogSet::kDone);
    EXPECT_EQ(dialog.Set("folder", Folder()), DialogSet::kDone);
    return dialog.Press("OK").value_or(Dialog::kCancel);
  }
  static int ChooseParts(Dialog& dialog) {
    const DialogState state = dialog.State();
    for (const auto& [key, list] : state.items()) {
      DialogState positions = DialogState::array();
      for (std::size_t i = 0; i < list.size(); ++i) positions.push_back(i);
      EXPECT_EQ(dialog.Set(key, positions), DialogSet::kDone);
    }
    const bool isLast = dialog.Name() == "landxml-roads";
    return dialog.Press(isLast ? "Cancel" : ">>").value_or(Dialog::kCancel);
  }

  std::string path_;
};

struct Exchange {
  const char* name;
  const char* file;
  int (*run)(const Exports&, CWnd&, HostDocument&);
};

void PrintTo(const Exchange& exchange, std::ostream* out) { *out << exchange.name; }

constexpr Exchange kExports[] = {
    {"Jb2", "a.jb2",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.exportJb2(&w, &d, 0); }},
    {"Jb3", "a.jb3",
     [](const Exports& e, CWnd& w, HostDocument& d) {
       const tdk::WString name = "name";
       return e.exportJb3(&w, &d, &name, &name);
     }},
    {"Txt", "a.txt",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.exportTxt(&w, &d, 0); }},
    {"Csv", "a.csv",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.exportCsv(&w, &d, 0); }},
    {"Dxf", "a.dxf",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.exportDrawing(&w, &d, 0); }},
    {"Dwg", "a.dwg",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.exportDrawing(&w, &d, 0); }},
    {"LandXml", "a.xml",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.exportLandXml(&w, &d, 0); }},
    {"Shape", "a.shp",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.exportShape(&w, d.GetLibGis()); }}};

constexpr Exchange kImports[] = {
    {"Jb2", "a.jb2",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.importJb2(&w, &d, 0); }},
    {"Jb3", "a.jb3",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.importJb3(&w, &d, 0); }},
    {"Txt", "a.txt",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.importTxt(&w, &d, 0); }},
    {"Csv", "a.csv",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.importCsv(&w, &d, 0); }},
    {"Dxf", "a.dxf",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.importDrawing(&w, &d, 0); }},
    {"Dwg", "a.dwg",
     [](const Exports& e, CWnd& w, HostDocument& d) { return e.importDrawing(&w, &d, 0); }},
    {"Shape", "a.shp", [](const Exports& e, CWnd& w, HostDocument& d) {
       return e.importShape(&w, d.GetLibGis(), nullptr, false) ? 1 : 0;
     }}};

/// A job that has a lot of everything, as long as the test lives.
class LongExchange : public FrameTest, public testing::WithParamInterface<Exchange> {
 protected:
  LongExchange() {
    CadFiles::Install();
    ShapeFiles::Install();
  }

  static void Fill(HostDocument& document) {
    CLibCmp& jobs = *document.GetLibCmp();
    jobs.AddJob(true)->SetNome("J");
    jobs.AddSta(0, true)->SetNome("S");
    CLibPnt& known = *document.GetLibPnt();
    known.AddGrp(true)->SetLabels("K", {}, {}, {});
    auto theme = std::make_unique<gis::CTheme>("a", gis::EntityType::kPoint, false, false);
    for (int i = 0; i < kMany; ++i) {
      const std::string name = std::to_string(i);
      jobs.AddPun(0, 0, true)->SetNome(tdk::WString(name));
      known.AddPtn(0, true)->SetNomCoord(tdk::WString(name), {}, i % 100, i / 100, 0);
      theme->AddFeature();
      theme->AddPart();
      theme->AddVertex({double(i), 0, 0});
    }
    document.GetLibGis()->AddTheme(std::move(theme), true);
  }

  std::string File() const { return folder.Path(GetParam().file); }

  /// The result, or nothing when something got past the module.
  std::optional<int> Run(const Exchange& exchange, WillingUser& user, HostDocument& document) {
    CWnd window(&user);
    try {
      return exchange.run(exports, window, document);
    } catch (...) {
      return std::nullopt;
    }
  }
};

void ExpectRising(const WillingUser& user) {
  ASSERT_FALSE(user.progress.empty());
  double before = 0;
  for (const auto& [done, total] : user.progress) {
    ASSERT_GT(total, 0u);
    const double part = static_cast<double>(done) / static_cast<double>(total);
    EXPECT_GE(part, before);
    EXPECT_LE(part, 1);
    before = part;
  }
  EXPECT_GT(before, 0.5);
}

// ---- Exports ----

class LongExport : public LongExchange {
 protected:
  LongExport() { Fill(document); }
};
INSTANTIATE_TEST_SUITE_P(Frame, LongExport, testing::ValuesIn(kExports),
                         [](const auto& info) { return info.param.name; });

TEST_P(LongExport, TellsHowFarItHasCome) {
  WillingUser user(File());
  EXPECT_EQ(Run(GetParam(), user, document), 1);
  ExpectRising(user);
  EXPECT_TRUE(std::filesystem::exists(File()));
}

TEST_P(LongExport, LeavesTheOldFileWhenItIsStopped) {
  WriteFile(File(), kOld);
  WillingUser user(File());
  user.stops = true;
  EXPECT_EQ(Run(GetParam(), user, document), 0);
  EXPECT_EQ(user.progress.size(), 1u);
  EXPECT_EQ(ReadFile(File()), kOld);
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    EXPECT_EQ(entry.path().filename().string().find(".part-"), std::string::npos) << entry.path();
  }
  EXPECT_TRUE(user.messages.empty() || user.messages.size() == 1);  // whether to overwrite it
}

TEST_P(LongExport, CanBeRunAgainAfterItWasStopped) {
  WillingUser user(File());
  user.stops = true;
  EXPECT_EQ(Run(GetParam(), user, document), 0);
  user.stops = false;
  user.progress.clear();
  EXPECT_EQ(Run(GetParam(), user, document), 1);
  ExpectRising(user);
}

// ---- Imports ----

class LongImport : public LongExchange {
 protected:
  LongImport() {
    HostDocument full;
    Fill(full);
    for (const Exchange& each : kExports) {
      if (each.file != std::string_view(GetParam().file)) continue;
      WillingUser user(File());
      EXPECT_EQ(Run(each, user, full), 1);
    }
  }
};
INSTANTIATE_TEST_SUITE_P(Frame, LongImport, testing::ValuesIn(kImports),
                         [](const auto& info) { return info.param.name; });

TEST_P(LongImport, TellsHowFarItHasCome) {
  WillingUser user(File());
  EXPECT_EQ(Run(GetParam(), user, document), 1);
  ExpectRising(user);
}

TEST_P(LongImport, EndsWithoutSuccessWhenItIsStopped) {
  WillingUser user(File());
  user.stops = true;
  EXPECT_EQ(Run(GetParam(), user, document), 0);
  EXPECT_EQ(user.progress.size(), 1u);
  EXPECT_EQ(user.waitsStarted, user.waitsEnded);
}

}  // namespace
