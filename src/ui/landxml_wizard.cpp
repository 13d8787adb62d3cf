#include "ui/landxml_wizard.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "services/translate.h"

namespace ui {
namespace {

// Where the lists stand on the survey page.
constexpr std::size_t kJobs = 0;
constexpr std::size_t kGpsGroups = 1;
constexpr std::size_t kPointGroups = 2;

// The names of `count` items, as `nameAt` gives them.
template <class NameAt>
std::vector<tdk::WString> Names(int count, NameAt nameAt) {
  std::vector<tdk::WString> names;
  names.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) names.push_back(nameAt(i));
  return names;
}

LandXmlPage SurveyPage(ExchangeContext& document) {
  const CLibCmp& jobs = *document.GetLibCmp();
  const CLibGps& gps = *document.GetLibGps();
  const CLibPnt& known = *document.GetLibPnt();
  return {"landxml-survey",
          ToXlate("Survey"),
          {{"jobs", Names(jobs.GetJobArSize(), [&](int i) { return jobs.GetJobAt(i)->GetNome(); })},
           {"gpsGroups",
            Names(gps.GetGrpArSize(), [&](int i) { return gps.GetGrpAt(i)->GetNomeGrp(); })},
           {"pointGroups",
            Names(known.GetGrpArSize(), [&](int i) { return known.GetGrpAt(i)->GetNome(); })}}};
}

LandXmlPage TriangulationPage(ExchangeContext& document) {
  const CLibDtm* const models = document.GetLibDtm();
  const int count = models == nullptr ? 0 : models->GetPrjArSize();
  return {"landxml-triangulation",
          ToXlate("Triangulation"),
          {{"surfaces", Names(count, [&](int i) { return models->GetPrjAt(i)->GetName(); })}}};
}

LandXmlPage RoadPage(ExchangeContext& document) {
  const CLibRoad* const roads = document.GetLibRoad();
  const int count = roads == nullptr ? 0 : roads->GetRoadArSize();
  return {"landxml-roads",
          ToXlate("Road Projects"),
          {{"roads", Names(count, [&](int i) { return roads->GetRoadAt(i)->GetName(); })}}};
}

}  // namespace

LandXmlPage::LandXmlPage(std::string name, const char* title, std::vector<CheckList> lists)
    : name_(std::move(name)), title_(title), lists_(std::move(lists)) {}

tdk::WString LandXmlPage::Title() const { return Xlate(title_); }

DialogState LandXmlPage::State() const {
  DialogState state;
  for (const CheckList& list : lists_) state[list.Key()] = list.State();
  return state;
}

DialogSet LandXmlPage::Set(std::string_view key, const DialogState& value) {
  const auto list = std::find_if(lists_.begin(), lists_.end(),
                                 [&](const CheckList& each) { return each.Key() == key; });
  return list == lists_.end() ? DialogSet::kUnknownKey : list->Set(value);
}

std::vector<std::string_view> LandXmlPage::Buttons() const {
  return {"<<", ">>", "Cancel", "Select All", "Deselect All"};
}

std::optional<int> LandXmlPage::Press(std::string_view button) {
  if (button == "<<") return kBack;
  if (button == ">>") return kForward;
  if (button == "Cancel") return kCancel;
  for (CheckList& list : lists_) list.CheckAll(button == "Select All");
  return std::nullopt;
}

LandXmlWizard::LandXmlWizard(ExchangeContext& document)
    : document_(document),
      pages_{SurveyPage(document), TriangulationPage(document), RoadPage(document)} {}

void LandXmlWizard::Run(CWnd* parent) {
  constexpr int kLastPage = 2;
  int page = 0;
  for (;;) {
    const int code = ShowDialog(parent, pages_[static_cast<std::size_t>(page)]);
    if (code == Dialog::kCancel) return;
    // Before the first page and after the last there is none to show, so the page stays; any other
    // code shows it again.
    if (code == LandXmlPage::kBack) page = std::max(page - 1, 0);
    if (code == LandXmlPage::kForward) page = std::min(page + 1, kLastPage);
  }
}

landxml::LandXmlSelection LandXmlWizard::Selection() const {
  landxml::LandXmlSelection selection;
  const LandXmlPage& survey = pages_[0];
  selection.tsLibrary = document_.GetLibCmp();
  selection.gpsLibrary = document_.GetLibGps();
  selection.pointLibrary = document_.GetLibPnt();
  for (const int i : survey.List(kJobs).Checked()) {
    selection.tsJobs.push_back(selection.tsLibrary->GetJobAt(i));
  }
  for (const int i : survey.List(kGpsGroups).Checked()) {
    selection.gpsGroups.push_back(selection.gpsLibrary->GetGrpAt(i));
  }
  for (const int i : survey.List(kPointGroups).Checked()) {
    selection.pointGroups.push_back(selection.pointLibrary->GetGrpAt(i));
  }
  for (const int i : pages_[1].List(0).Checked()) {
    selection.surfaces.push_back(document_.GetLibDtm()->GetPrjAt(i));
  }
  for (const int i : pages_[2].List(0).Checked()) {
    selection.roads.push_back(document_.GetLibRoad()->GetRoadAt(i));
  }
  return selection;
}

}  // namespace ui
