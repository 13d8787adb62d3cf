#include "host/landxml/landxml_reader.h"

#include <algorithm>

#include "host/landxml/road_reader.h"
#include "host/landxml/survey_reader.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace landxml_load {
namespace {

// What is kept inside an element that is taken whole.
constexpr std::string_view kKeptNames[] = {
    // of roads
    "Start",
    "End",
    "Center",
    "PI",
    "Line",
    "Curve",
    "Spiral",
    "IrregularLine",
    "Chain",
    "CoordGeom",
    "Profile",
    "ProfAlign",
    "PVI",
    "ParaCurve",
    "UnsymParaCurve",
    "CircCurve",
    "CrossSects",
    "CrossSect",
    "CrossSectSurf",
    "DesignCrossSectSurf",
    "CrossSectPnt",
    "PntList2D",
    "PntList3D",
    "StaEquation",
    // of surveys
    "InstrumentPoint",
    "ObservationGroup",
    "RawObservation",
    "TargetPoint",
    "GPSQCInfoLevel1",
    "GPSQCInfoLevel2",
    "GPSPosition",
};

// Says nothing about points, roads or terrain, or what it says stands elsewhere too.
constexpr std::string_view kSilentNames[] = {"Project", "Author",   "Equipment",
                                             "Feature", "Property", "DocFileRef"};

constexpr std::size_t kMostNames = 50;

bool IsAmong(std::string_view name, std::span<const std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

using R = LandXmlReader;
const LandXmlReader::Rule LandXmlReader::kRules[] = {
    {Place::kPoints, "P", Place::kPoint, &R::BeginPoint, &R::EndPoint, nullptr},
    {Place::kFaces, "F", Place::kFace, &R::BeginFace, &R::EndFace, nullptr},
    {Place::kGroup, "CgPoint", Place::kElement, nullptr, nullptr, &R::TakePoint},
    {Place::kDocument, "LandXML", Place::kRoot, nullptr, nullptr, nullptr},
    {Place::kRoot, "Units", Place::kUnits, nullptr, nullptr, nullptr},
    {Place::kUnits, "Metric", Place::kElement, nullptr, nullptr, &R::TakeUnits},
    {Place::kUnits, "Imperial", Place::kElement, nullptr, nullptr, &R::TakeUnits},
    {Place::kRoot, "Application", Place::kElement, nullptr, nullptr, &R::TakeApplication},
    {Place::kRoot, "CgPoints", Place::kGroup, &R::BeginGroup, &R::EndGroup, nullptr},
    {Place::kGroup, "CgPoints", Place::kGroup, &R::BeginGroup, &R::EndGroup, nullptr},
    {Place::kRoot, "Surfaces", Place::kSurfaces, nullptr, nullptr, nullptr},
    {Place::kSurfaces, "Surface", Place::kSurface, &R::BeginSurface, &R::EndSurface, nullptr},
    {Place::kSurface, "SourceData", Place::kSource, nullptr, nullptr, nullptr},
    {Place::kSource, "Boundaries", Place::kBoundaries, nullptr, nullptr, nullptr},
    {Place::kBoundaries, "Boundary", Place::kElement, nullptr, nullptr, &R::TakeBoundary},
    {Place::kSource, "Breaklines", Place::kBreaklines, nullptr, nullptr, nullptr},
    {Place::kBreaklines, "Breakline", Place::kElement, nullptr, nullptr, &R::TakeBreakline},
    {Place::kSurface, "Definition", Place::kDefinition, &R::BeginDefinition, nullptr, nullptr},
    {Place::kDefinition, "Pnts", Place::kPoints, nullptr, nullptr, nullptr},
    {Place::kDefinition, "Faces", Place::kFaces, nullptr, nullptr, nullptr},
    {Place::kDefinition, "FACES", Place::kFaces, nullptr, nullptr, nullptr},
    {Place::kRoot, "Alignments", Place::kAlignments, nullptr, nullptr, nullptr},
    {Place::kAlignments, "Alignment", Place::kElement, nullptr, nullptr, &R::KeepRoad},
    {Place::kRoot, "Survey", Place::kSurvey, &R::BeginSurvey, nullptr, nullptr},
    {Place::kSurvey, "CgPoints", Place::kGroup, &R::BeginGroup, &R::EndGroup, nullptr},
    {Place::kSurvey, "SurveyHeader", Place::kElement, nullptr, nullptr, &R::KeepInSurvey},
    {Place::kSurvey, "InstrumentSetup", Place::kElement, nullptr, nullptr, &R::KeepInSurvey},
    {Place::kSurvey, "ObservationGroup", Place::kElement, nullptr, nullptr, &R::KeepInSurvey},
    {Place::kSurvey, "RawObservation", Place::kElement, nullptr, nullptr, &R::KeepInSurvey},
    {Place::kSurvey, "GPSSetup", Place::kElement, nullptr, nullptr, &R::KeepInSurvey},
    {Place::kSurvey, "GPSPosition", Place::kElement, nullptr, nullptr, &R::KeepInSurvey},
};

const LandXmlReader::Rule* LandXmlReader::FindRule(Place in, std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kRules), std::end(kRules),
                   [&](const Rule& rule) { return rule.in == in && rule.name == name; });
  return found == std::end(kRules) ? nullptr : found;
}

void LandXmlReader::Begin(const XmlTag& tag) {
  if (skipped_ > 0) {
    ++skipped_;
    return;
  }
  if (!element_.empty()) {
    BeginInElement(tag);
    return;
  }
  const Place in = open_.empty() ? Place::kDocument : open_.back()->place;
  const Rule* const rule = FindRule(in, tag.Name());
  if (rule == nullptr) {
    if (in == Place::kDocument) stream_.Fail(Xlate("this is no LandXML file").ToUtf8());
    CountNotLoaded(tag);
    skipped_ = 1;
    return;
  }
  open_.push_back(rule);
  if (rule->begin != nullptr) (this->*rule->begin)(tag);
  if (rule->place == Place::kElement) {
    kept_ = ElementOf(tag);
    element_.push_back(&kept_);
  }
}

XmlElement LandXmlReader::ElementOf(const XmlTag& tag) {
  XmlElement element;
  element.name = tag.Name();
  element.line = tag.Line();
  tag.ForEach([&](std::string_view name, std::string_view value) {
    element.attributes.emplace_back(name, value);
  });
  return element;
}

void LandXmlReader::BeginInElement(const XmlTag& tag) {
  if (!IsAmong(tag.Name(), kKeptNames)) {
    CountNotLoaded(tag);
    skipped_ = 1;
    return;
  }
  // Elder siblings may move when this one is added; they are not open any more.
  element_.push_back(&element_.back()->children.emplace_back(ElementOf(tag)));
}

void LandXmlReader::CountNotLoaded(const XmlTag& tag) {
  if (IsAmong(tag.Name(), kSilentNames)) return;
  auto found = notLoaded_.find(tag.Name());
  if (found == notLoaded_.end()) {
    if (notLoaded_.size() >= kMostNames) return;
    found = notLoaded_.emplace(tag.Name(), NotLoaded{0, tag.Line()}).first;
  }
  ++found->second.count;
}

void LandXmlReader::Text(std::string_view text) {
  if (skipped_ > 0) return;
  if (element_.empty()) {
    text_ += text;
  } else if (!element_.back()->text.empty() || !platform::IsBlank(text)) {
    element_.back()->text += text;
  }
}

void LandXmlReader::End() {
  if (skipped_ > 0) {
    --skipped_;
    return;
  }
  if (element_.size() > 1) {
    element_.pop_back();
    return;
  }
  const Rule& rule = *open_.back();
  open_.pop_back();
  if (rule.take != nullptr) {
    element_.clear();
    (this->*rule.take)(kept_);
  }
  if (rule.end != nullptr) (this->*rule.end)();
  text_.clear();
}

void LandXmlReader::BeginGroup(const XmlTag& tag) {
  hasGeometry_ = true;
  points_.BeginGroup(tag);
}

void LandXmlReader::BeginSurface(const XmlTag& tag) {
  hasGeometry_ = true;
  surface_.Begin(tag);
}

void LandXmlReader::BeginPoint(const XmlTag& tag) {
  text_.clear();
  surface_.BeginPoint(tag);
}

void LandXmlReader::BeginFace(const XmlTag& tag) {
  text_.clear();
  surface_.BeginFace(tag);
}

void LandXmlReader::TakeUnits(XmlElement& element) {
  context_.units = ReadUnits(element, context_.remarks);
  if (!context_.units.isKnown && element.name == "Imperial") {
    stream_.Fail(
        Fill(Xlate("the unit \"{1}\" is not known"), {tdk::WString(element.Value("linearUnit"))})
            .ToUtf8());
  }
  const bool isLate = hasGeometry_ && context_.units.metres != 1;
  if (isLate) stream_.Fail(Xlate("the units come after points that are in them").ToUtf8());
}

void LandXmlReader::TakeApplication(XmlElement& element) {
  context_.isOurs = element.Value("manufacturer") == "Kalvio" &&
                    tdk::WString(element.Value("name")) == tdk::GetPrgName();
}

void LandXmlReader::TakePoint(XmlElement& element) { points_.TakePoint(element); }

void LandXmlReader::Finish() {
  points_.Finish();
  for (const XmlElement& road : roads_) ReadRoad(road, points_, context_);
  for (const XmlElement& survey : surveys_) ReadSurvey(survey, points_, context_);
  for (const auto& [name, notLoaded] : notLoaded_) {
    context_.remarks.Add(notLoaded.line, Fill(Xlate("{1} is not loaded ({2})"),
                                              {tdk::WString(name), InWords(notLoaded.count)}));
  }
  const bool hasAnything = hasGeometry_ || !roads_.empty() || !surveys_.empty();
  if (hasAnything && !context_.units.isDeclared) {
    context_.remarks.Add(Xlate("the file declares no units; metres are assumed"));
  }
}

}  // namespace landxml_load
