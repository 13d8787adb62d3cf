#include "formats/jb3/jb3_reader.h"

#include <tinyxml.h>

#include <algorithm>
#include <utility>

#include "formats/jb3/jb3_elements.h"
#include "formats/jb3/jb3_schema.h"
#include "formats/jb3/nesting_guard.h"
#include "model/change_event_scope.h"
#include "platform/numbers.h"
#include "platform/text_reader.h"
#include "services/translate.h"

namespace jb3 {
namespace {

constexpr std::size_t kPiece = 254;
// The parser steps over a UTF-8 sequence by its first byte, and so past the end of a text that ends
// within one; it must find an end there too.
constexpr std::size_t kEndMarks = 8;

// The element's own name.
bool Is(const TiXmlElement& element, const char* name) { return element.ValueTStr() == name; }

// Whether the element is a point: lists of points are called alike, with an "s".
bool BeginsPoint(std::string_view tag) {
  const auto isNamed = [tag](std::string_view name) {
    return tag.starts_with(name) && !tag.substr(name.size()).starts_with('s');
  };
  return isNamed(element::kPoint) || isNamed(element::kGpsPoint) || isNamed(element::kKnownPoint);
}

// How many points a document has. It is what progress is measured by, so nothing is parsed for it.
std::uint64_t PointsIn(std::string_view text) {
  std::uint64_t points = 0;
  for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
    if (BeginsPoint(text.substr(at + 1))) ++points;
  }
  return points;
}

// Calls `take` for each child element.
template <class Take>
void ForEachChild(const TiXmlElement& parent, Take take) {
  for (const TiXmlElement* child = parent.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    take(*child);
  }
}

}  // namespace

Jb3Reader::Jb3Reader(CWnd* parent, ExchangeContext& document, tdk::WString path)
    : parent_(parent),
      totalStation_(document.GetLibCmp()),
      gps_(document.GetLibGps()),
      known_(document.GetLibPnt()),
      path_(std::move(path)),
      currentJob_(totalStation_->GetJobArSize() - 1),
      currentGroup_(gps_->GetGrpArSize() - 1) {}

bool Jb3Reader::Read() {
  std::string text;
  if (path_.IsEmpty() || !ReadText(text)) return true;
  const ChangeEventScope scope(totalStation_->GetCmpContext());
  if (CutTooDeepNesting(text)) {
    Tell(Xlate("elements are nested too deeply; the file was read up to the first of them"), 0);
  }
  TiXmlDocument document;
  text.append(kEndMarks, '\0');
  document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UNKNOWN);
  // What ends too soon has no place of its own for the parser.
  const auto lines = document.Error() ? std::count(text.begin(), text.end(), '\n') + 1 : 0;
  const auto line = document.ErrorRow() > 0 ? document.ErrorRow() : static_cast<int>(lines);
  progress_ = ProgressSteps(PointsIn(text));
  text = {};
  if (!ReadDocument(document)) {
    Tell(Xlate("this is no JB3 document"), 0);
    return false;
  }
  if (document.Error()) TellDamage(document, line);
  return true;
}

// The file as one text. Each piece ends at its first NUL, as strings do.
bool Jb3Reader::ReadText(std::string& text) const {
  platform::TextReader file;
  if (!file.Open(path_.ToUtf8())) return false;
  text.reserve(file.Size() + kEndMarks);
  while (const auto piece = file.NextPiece(kPiece)) text += piece->substr(0, piece->find('\0'));
  return true;
}

bool Jb3Reader::ReadDocument(const TiXmlDocument& document) {
  const TiXmlNode* const declaration = document.FirstChild();
  if (declaration == nullptr || declaration->ToDeclaration() == nullptr) return false;
  const TiXmlNode* const second = declaration->NextSibling();
  const TiXmlElement* const root = second == nullptr ? nullptr : second->ToElement();
  if (root == nullptr || !Is(*root, element::kRoot)) return false;
  ForEachChild(*root, [this](const TiXmlElement& child) {
    if (Is(child, element::kJob)) ReadJob(child);
    if (Is(child, element::kKnownPoints)) ReadKnownPoints(child);
  });
  return true;
}

void Jb3Reader::ReadJob(const TiXmlElement& job) {
  const TiXmlNode* const first = job.FirstChild();
  if (first == nullptr) return;
  const TiXmlElement* const firstElement = first->ToElement();
  if (firstElement != nullptr && Is(*firstElement, element::kStation)) {
    CJob* const added = totalStation_->AddJob(true);
    if (added == nullptr) return;
    ++currentJob_;
    currentStation_ = -1;
    ReadJobLabels(job, *added);
  }
  ForEachChild(job, [this](const TiXmlElement& child) {
    if (Is(child, element::kGpsBase)) ReadGpsGroup(child);
    if (Is(child, element::kStation)) ReadStation(child);
  });
}

void Jb3Reader::ReadStation(const TiXmlElement& station) {
  CSta* const added = totalStation_->AddSta(currentJob_, true);
  if (added == nullptr) return;
  totalStation_->GetIndiciDiSta(added, currentJob_, currentStation_);
  ReadStationValues(station, *added);
  ForEachChild(station, [&](const TiXmlElement& child) {
    if (Is(child, element::kPlaniCoords)) ReadPlaneCoordinates(child).ApplyTo(*added);
    if (Is(child, element::kPoints)) ReadPoints(child);
  });
}

void Jb3Reader::ReadPoints(const TiXmlElement& points) {
  for (const TiXmlElement* each = points.FirstChildElement(); each != nullptr;
       each = each->NextSiblingElement()) {
    if (!Is(*each, element::kPoint)) continue;
    CPun* const added = totalStation_->AddPun(currentJob_, currentStation_, true);
    if (added == nullptr) return;
    progress_.Step();
    ReadNameAndText(*each, *added);
    ForEachChild(*each, [&](const TiXmlElement& child) {
      if (Is(child, element::kRawObservation)) ReadRawObservation(child, *added);
      if (Is(child, element::kPlaniCoords)) ReadPlaneCoordinates(child).ApplyTo(*added);
    });
  }
}

void Jb3Reader::ReadGpsGroup(const TiXmlElement& base) {
  CGrpGps* const added = gps_->AddGrp(true);
  if (added == nullptr) return;
  ++currentGroup_;
  ReadGpsBaseValues(base, *added);
  ForEachChild(base, [&](const TiXmlElement& child) {
    if (Is(child, element::kGeoCoords)) ReadGeocentric(child, *added);
    if (Is(child, element::kPlaniCoords)) ReadPlaneCoordinates(child).ApplyTo(*added);
    if (Is(child, element::kGpsPoints)) ReadGpsPoints(child);
  });
}

void Jb3Reader::ReadGpsPoints(const TiXmlElement& points) {
  for (const TiXmlElement* each = points.FirstChildElement(); each != nullptr;
       each = each->NextSiblingElement()) {
    if (!Is(*each, element::kGpsPoint)) continue;
    CPunGps* const added = gps_->AddPun(currentGroup_, true);
    if (added == nullptr) return;
    progress_.Step();
    ReadGpsPointValues(*each, *added);
    ForEachChild(*each, [&](const TiXmlElement& child) {
      if (Is(child, element::kGeoCoords)) ReadGeocentric(child, *added);
      if (Is(child, element::kGpsStat)) ReadPrecision(child, *added);
      if (Is(child, element::kGpsSat)) ReadSatellites(child, *added);
      if (Is(child, element::kPlaniCoords)) ReadPlaneCoordinates(child).ApplyTo(*added);
    });
  }
}

void Jb3Reader::ReadKnownPoints(const TiXmlElement& points) {
  bool groupMade = false;
  for (const TiXmlElement* each = points.FirstChildElement(); each != nullptr;
       each = each->NextSiblingElement()) {
    progress_.Step();
    const KnownPointValues values = ReadKnownPointValues(*each);
    const bool isOurs = values.type == kGenericPoint || values.type == kControlPoint;
    if (!isOurs) continue;
    CEgn* const added = AddKnownPoint(values.type, groupMade);
    if (added == nullptr) return;
    values.ApplyTo(*added);
  }
}

CEgn* Jb3Reader::AddKnownPoint(std::string_view type, bool& groupMade) {
  if (type == kControlPoint) return totalStation_->AddOri(true);
  return AddGenericPoint(groupMade);
}

// The first point of an element makes the group that takes all of them.
CEgn* Jb3Reader::AddGenericPoint(bool& groupMade) {
  if (!groupMade) {
    CGrpPnt* const group = known_->AddGrp(true);
    if (group == nullptr) return nullptr;
    groupMade = true;
    currentGroup_ = known_->GetGrpArSize() - 1;
    group->SetLabels(KnownGroupName(currentGroup_ + 1), {}, {}, {});
  }
  return known_->AddPtn(currentGroup_, true);
}

void Jb3Reader::TellDamage(const TiXmlDocument& document, int line) const {
  std::string number;
  platform::AppendWhole(number, line);
  Tell(Fill(Xlate("line {1}: the file is damaged and was read up to there ({2})"),
            {tdk::WString(number), tdk::WString(document.ErrorDesc())}),
       line);
}

void Jb3Reader::Tell(const tdk::WString& text, int line) const {
  if (parent_ == nullptr || parent_->GetViews() == nullptr) return;
  parent_->GetViews()->TakeNote({path_, static_cast<std::uint64_t>(line), text});
}

}  // namespace jb3
