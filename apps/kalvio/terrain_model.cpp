#include "terrain_model.h"

#include "console.h"
#include "failure.h"
#include "host/store/file_trouble_catcher.h"
#include "platform/numbers.h"
#include "services/translate.h"
#include "word_list.h"

namespace {

terrain::Kinds ReadKinds(const std::string& list) {
  terrain::Kinds kinds{false, false, false, false};
  const std::vector<std::string> words = WordList(std::string_view(list));
  for (const std::string& word : words) {
    if (word == "ts") {
      kinds.totalStation = true;
    } else if (word == "gps") {
      kinds.gps = true;
    } else if (word == "known") {
      kinds.known = true;
    } else if (word == "control") {
      kinds.control = true;
    } else {
      throw BadUsage(
          Fill(Xlate("--points: \"{1}\" is none of ts, gps, known, control"), {tdk::WString(word)})
              .ToUtf8());
    }
  }
  if (words.empty()) throw BadUsage(Xlate("--points: no kind of points is named").ToUtf8());
  return kinds;
}

double ReadLength(const std::string& text) {
  std::string_view rest = text;
  const auto length = platform::TakeDecimal(rest);
  if (length && *length > 0 && rest.empty()) return *length;
  throw BadUsage(
      Fill(Xlate("--max-edge: \"{1}\" is no length in metres"), {tdk::WString(text)}).ToUtf8());
}

// Why there is no triangle: what was left out comes first.
std::string WhyNone(const TerrainReport& report) {
  std::string why;
  for (const std::string& remark : report.Remarks()) why += remark + "; ";
  return why + Xlate("the points make no triangle").ToUtf8();
}

}  // namespace

terrain::Choice TerrainChoice(const Arguments& arguments) {
  terrain::Choice choice;
  if (const auto kinds = arguments.Value("--points")) choice.kinds = ReadKinds(*kinds);
  if (arguments.Has("--codes")) {
    choice.breaklineCodes = WordList(arguments.All("--codes"));
    if (choice.breaklineCodes.empty()) throw BadUsage(Xlate("--codes: no code is named").ToUtf8());
  }
  if (const auto edge = arguments.Value("--max-edge")) choice.longestSide = ReadLength(*edge);
  return choice;
}

bool HasTerrain(HostDocument& document, const std::string& name) {
  const CLibDtm& models = *document.GetLibDtm();
  for (int i = 0; i < models.GetPrjArSize(); ++i) {
    if (models.GetPrjAt(i)->GetName().ToUtf8() == name) return true;
  }
  return false;
}

std::string FreeTerrainName(HostDocument& document) {
  const std::string first = "terrain";
  std::string name = first;
  for (std::int64_t n = 2; HasTerrain(document, name); ++n) {
    name = first + " ";
    platform::AppendWhole(name, n);
  }
  return name;
}

TerrainReport MakeTerrain(HostDocument& document, const std::string& name,
                          const terrain::Choice& choice) {
  if (HasTerrain(document, name)) {
    throw Failed(name, Xlate("the job has a terrain model of that name already").ToUtf8());
  }
  const FileTroubleCatcher trouble;
  terrain::ITriangulator* const triangulator = terrain::Triangulator();
  if (triangulator == nullptr) {
    throw Failed(name, Xlate("the triangulation cannot be loaded").ToUtf8());
  }
  TerrainReport report;
  report.chosen = terrain::Choose(document, choice);
  if (report.chosen.source.points.empty()) {
    throw Failed(name, Xlate("there is no point with plane coordinates and an elevation").ToUtf8());
  }
  CDtmPrj* const model = document.GetLibDtm()->AddPrj(false);
  if (model == nullptr) throw Failed(name, Xlate("the job takes no more of these").ToUtf8());
  model->SetName(tdk::WString(std::string_view(name)));
  report.model = model;
  report.findings = triangulator->Triangulate(std::move(report.chosen.source), *model);
  if (model->GetTris().GetNoTris() == 0) throw Failed(name, WhyNone(report));
  return report;
}

std::string InWords(const TerrainReport& report) {
  const auto count = [](int value, const tdk::WString& one, const tdk::WString& many) {
    return console::Count(static_cast<std::uint64_t>(value), one, many);
  };
  const CDtmPrj& model = *report.model;
  std::string text =
      count(model.GetTris().GetNoTriVrts(), Xlate("{1} vertex"), Xlate("{1} vertices")) + ", " +
      count(model.GetTris().GetNoTris(), Xlate("{1} triangle"), Xlate("{1} triangles")) + ", " +
      count(model.GetOuterCnts().GetNoCnts(), Xlate("{1} outer contour"),
            Xlate("{1} outer contours"));
  if (model.GetIslandCnts().GetNoCnts() != 0) {
    text += ", " + count(model.GetIslandCnts().GetNoCnts(), Xlate("{1} hole"), Xlate("{1} holes"));
  }
  if (report.chosen.breaklines != 0) {
    text += ", " + console::Count(report.chosen.breaklines, Xlate("{1} breakline"),
                                  Xlate("{1} breaklines"));
  }
  return text;
}

std::vector<std::string> TerrainReport::Remarks() const {
  std::vector<std::string> remarks;
  for (const std::string& code : chosen.unusedCodes) {
    remarks.push_back(Fill(Xlate("no point has the code \"{1}\""), {tdk::WString(code)}).ToUtf8());
  }
  const auto add = [&](std::uint64_t count, const tdk::WString& one, const tdk::WString& many) {
    if (count != 0) remarks.push_back(console::Count(count, one, many));
  };
  add(chosen.incomplete, Xlate("{1} point without plane coordinates or elevation is left out"),
      Xlate("{1} points without plane coordinates or elevation are left out"));
  add(findings.samePlace, Xlate("{1} point lies in the place of an earlier one, which holds"),
      Xlate("{1} points lie in the place of an earlier one, which holds"));
  add(findings.crossings, Xlate("breaklines cross in {1} place, at the mean of their elevations"),
      Xlate("breaklines cross in {1} places, at the mean of their elevations"));
  add(chosen.longLegs, Xlate("{1} leg of a breakline is longer than --max-edge and left out"),
      Xlate("{1} legs of breaklines are longer than --max-edge and left out"));
  add(findings.longTriangles, Xlate("{1} triangle with a side longer than --max-edge is left out"),
      Xlate("{1} triangles with a side longer than --max-edge are left out"));
  return remarks;
}
