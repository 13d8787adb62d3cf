#include "host/store/json_reader.h"

#include <type_traits>

#include "platform/numbers.h"

// The shape of the document, from the inside out.
struct JsonJobReader::Levels {
  using R = JsonJobReader;
  static constexpr Form kList = Form::kListOfObjects;

  static constexpr Level kObservation[] = {
      {"points", kList, &R::Select<&R::observation_>, &R::BeginObservation, &R::EndObservation}};
  static constexpr Level kStation[] = {{"stations", kList, &R::Select<&R::station_>,
                                        &R::BeginStation, &R::EndStation, kObservation}};
  static constexpr Level kGpsPoint[] = {
      {"points", kList, &R::Select<&R::gpsPoint_>, &R::BeginGpsPoint, &R::EndGpsPoint}};
  static constexpr Level kKnownPoint[] = {
      {"points", kList, &R::Select<&R::point_>, &R::BeginPoint, &R::EndKnownPoint}};
  static constexpr Level kSection[] = {
      {"", Form::kObject, &R::SelectSetting, &R::BeginSection, nullptr}};

  static constexpr Level kContourVertex[] = {
      {"", Form::kRow, nullptr, nullptr, &R::EndContourVertex, {}, 3}};
  static constexpr Level kBreaklinePoint[] = {
      {"", Form::kRow, nullptr, nullptr, &R::EndBreaklinePoint, {}, 3}};
  static constexpr Level kTerrainVertex[] = {
      {"", Form::kRow, nullptr, nullptr, &R::EndTerrainVertex, {}, 3}};
  static constexpr Level kTriangle[] = {{"", Form::kRow, nullptr, nullptr, &R::EndTriangle, {}, 3}};
  static constexpr Level kSectionVertex[] = {
      {"", Form::kRow, nullptr, nullptr, &R::EndSectionVertex, {}, 2}};
  static constexpr Form kLists = Form::kListOfLists;
  static constexpr Level kOuter[] = {
      {"", kLists, nullptr, &R::BeginOuter, nullptr, kContourVertex}};
  static constexpr Level kIsland[] = {
      {"", kLists, nullptr, &R::BeginIsland, nullptr, kContourVertex}};
  static constexpr Level kBreakline[] = {
      {"", kLists, nullptr, nullptr, &R::EndBreakline, kBreaklinePoint}};
  static constexpr Level kModel[] = {
      {"outer", kLists, nullptr, nullptr, nullptr, kOuter},
      {"islands", kLists, nullptr, nullptr, nullptr, kIsland},
      {"breaklines", kLists, nullptr, nullptr, nullptr, kBreakline},
      {"vertices", kLists, nullptr, nullptr, nullptr, kTerrainVertex},
      {"triangles", kLists, nullptr, nullptr, nullptr, kTriangle}};

  static constexpr Level kCurve[] = {
      {"curve", Form::kObject, &R::SelectCurve, &R::BeginCurve, nullptr}};
  static constexpr Level kVertices[] = {
      {"vertices", kList, &R::Select<&R::vertex_>, &R::BeginVertex, &R::EndVertex, kCurve}};
  static constexpr Level kRoadSection[] = {
      {"terrain", kLists, nullptr, nullptr, nullptr, kSectionVertex},
      {"lines", kList, &R::Select<&R::line_>, &R::BeginLine, &R::EndLine, kVertices}};
  static constexpr Level kProfile[] = {
      {"main", Form::kObject, nullptr, &R::BeginMainLine, nullptr, kVertices},
      {"codes", kList, &R::Select<&R::code_>, &R::BeginCode, &R::EndCode},
      {"sections", kList, &R::Select<&R::section_>, &R::BeginRoadSection, &R::EndRoadSection,
       kRoadSection}};
  static constexpr Level kRoad[] = {
      {"elements", kList, &R::Select<&R::element_>, &R::BeginElement, &R::EndElement},
      {"profile", Form::kObject, nullptr, nullptr, nullptr, kProfile}};

  static constexpr Level kMembers[] = {
      {"jobs", kList, &R::Select<&R::job_>, &R::BeginJob, &R::EndJob, kStation},
      {"gpsGroups", kList, &R::Select<&R::gpsGroup_>, &R::BeginGpsGroup, &R::EndGpsGroup,
       kGpsPoint},
      {"knownGroups", kList, &R::Select<&R::knownGroup_>, &R::BeginKnownGroup, &R::EndKnownGroup,
       kKnownPoint},
      {"controlPoints", kList, &R::Select<&R::point_>, &R::BeginPoint, &R::EndControl},
      {"current", Form::kObject, &R::SelectCurrent},
      {"targets", Form::kObject, &R::Select<&R::targets_>, nullptr, &R::EndTargets},
      {"settings", Form::kObject, nullptr, nullptr, nullptr, kSection},
      {"terrain", kList, &R::Select<&R::terrain_>, &R::BeginModel, &R::EndModel, kModel},
      {"roads", kList, &R::Select<&R::road_>, &R::BeginRoad, &R::EndRoad, kRoad},
      {"gis", Form::kObject, nullptr, nullptr, nullptr, kGis},
      {"cadastral", Form::kObject, &R::Select<&R::cadastre_>, nullptr, &R::EndCadastre, kCadastre},
      {"drawing", Form::kObject, nullptr, nullptr, nullptr, kDrawing}};

  static constexpr Level kDocument = {"",      Form::kObject,   nullptr,
                                      nullptr, &R::EndDocument, kMembers};
  // A list of plain values, as a field has it.
  static constexpr Level kParts = {};
};

namespace {

template <class Number>
inline constexpr Number kUndefined = std::is_same_v<Number, float>
                                         ? static_cast<Number>(UndefinedFloat)
                                         : static_cast<Number>(UndefinedValue);

template <class Field>
inline constexpr bool kHasParts = kIsList<std::remove_pointer_t<Field>>;

std::string ExpectedParts(std::size_t count) {
  std::string expected = "a list of ";
  platform::AppendWhole(expected, static_cast<std::int64_t>(count));
  return expected;
}

}  // namespace

void JsonJobReader::Fail(const std::string& reason) const {
  throw JobError(path_ + ": " + place_.Text() + ": " + reason);
}

void JsonJobReader::FailAtLargeNumber(const std::string& text) {
  place_.NextValue();
  Fail("the number is too large: " + text);
}

bool JsonJobReader::key(const std::string& key) {
  const Level& level = *levels_.back();
  slot_ = level.select == nullptr ? Slot() : (this->*level.select)(key);
  if (slot_.index() == 0 && Below(level, key) == nullptr) {
    place_.SetKey("");
    throw JobKeyError(path_ + ": " + place_.Text() + ": unknown key \"" + key + "\"");
  }
  place_.SetKey(key);
  return true;
}

bool JsonJobReader::TakeValue(const JsonValue& value) {
  place_.NextValue();
  std::string expected = "an object";
  if (!levels_.empty()) {
    expected = place_.InList() ? PutListed(value) : PutMember(value);
  }
  if (!expected.empty()) Fail("expected " + expected + ", found " + InWords(value));
  return true;
}

bool JsonJobReader::Open(bool isList) {
  place_.NextValue();
  const Level* const level = LevelOf(isList);
  if (level == nullptr)
    Fail(isList ? "a list does not belong here" : "an object does not belong here");
  place_.Enter(isList);
  levels_.push_back(level);
  part_ = 0;
  const bool isWhole = isList == (IsOfLists(level->form) || IsOfPlain(level->form));
  if (isWhole && level->begin != nullptr) (this->*level->begin)();
  return true;
}

// What the object or list that begins is; null when it does not belong there.
const JsonJobReader::Level* JsonJobReader::LevelOf(bool isList) {
  if (levels_.empty()) return isList ? nullptr : &Levels::kDocument;
  if (!place_.InList()) return LevelOfMember(isList);
  const Form form = levels_.back()->form;
  if (form == Form::kListOfLists) return isList ? &levels_.back()->below.front() : nullptr;
  if (form == Form::kRow || IsOfPlain(form)) return nullptr;
  return isList || levels_.back() == &Levels::kParts ? nullptr : levels_.back();
}

const JsonJobReader::Level* JsonJobReader::LevelOfMember(bool isList) {
  const Level* const below = Below(*levels_.back(), place_.Key());
  if (below == nullptr) {
    const bool hasParts = std::visit([](auto field) { return kHasParts<decltype(field)>; }, slot_);
    return isList && hasParts ? &Levels::kParts : nullptr;
  }
  return isList == IsListForm(below->form) ? below : nullptr;
}

const JsonJobReader::Level* JsonJobReader::Below(const Level& level, std::string_view key) {
  for (const Level& below : level.below) {
    if (below.key.empty() || below.key == key) return &below;
  }
  return nullptr;
}

std::string JsonJobReader::PutMember(const JsonValue& value) {
  if (const Level* const below = Below(*levels_.back(), place_.Key())) {
    if (IsListForm(below->form)) return "a list";
    return std::holds_alternative<std::nullptr_t>(value) ? "" : "an object";
  }
  return std::visit(
      [&](auto field) -> std::string {
        using Target = std::remove_pointer_t<decltype(field)>;
        if constexpr (std::is_same_v<Target, std::monostate>) {
          return "nothing";  // no key leads here
        } else if constexpr (std::is_same_v<Target, Setting>) {
          return PutSetting(value);
        } else if constexpr (kIsList<Target>) {
          // Nothing of a list of numbers is defined.
          constexpr bool mayBeNull = std::is_floating_point_v<typename Target::value_type>;
          const bool isNull = std::holds_alternative<std::nullptr_t>(value);
          if (!mayBeNull || !isNull) return ExpectedParts(field->size());
          if constexpr (mayBeNull) field->fill(kUndefined<typename Target::value_type>);
          return "";
        } else {
          return Put(value, *field);
        }
      },
      slot_);
}

std::string JsonJobReader::PutListed(const JsonValue& value) {
  if (levels_.back() == &Levels::kParts) return PutPart(value);
  switch (levels_.back()->form) {
    case Form::kRow: return PutNumber(value);
    case Form::kNumbers: return PutLoneNumber(value);
    case Form::kValues: return PutLoneValue(value);
    case Form::kTexts: return PutLoneText(value);
    case Form::kListOfLists: return "a list";
    default: return "an object";
  }
}

std::string JsonJobReader::PutPart(const JsonValue& value) {
  return std::visit(
      [&](auto field) -> std::string {
        if constexpr (kHasParts<decltype(field)>) {
          if (part_ == field->size()) return ExpectedParts(field->size());
          return Put(value, (*field)[part_++]);
        } else {
          return "nothing";  // only a list of parts leads here
        }
      },
      slot_);
}

std::string JsonJobReader::PutNumber(const JsonValue& value) {
  if (part_ == levels_.back()->columns) return ExpectedParts(part_);
  return Put(value, row_[part_++]);
}

std::string JsonJobReader::PutLoneNumber(const JsonValue& value) {
  std::string expected = Put(value, row_[0]);
  if (expected.empty()) (this->*levels_.back()->end)();
  return expected;
}

std::string JsonJobReader::PutLoneValue(const JsonValue& value) {
  loneValue_ = value;
  (this->*levels_.back()->end)();
  return {};
}

std::string JsonJobReader::PutLoneText(const JsonValue& value) {
  std::string expected = Put(value, text_);
  if (expected.empty()) (this->*levels_.back()->end)();
  return expected;
}

std::string JsonJobReader::PutSetting(const JsonValue& value) {
  std::string text;
  bool flag = false;
  std::int64_t whole = 0;
  if (Put(value, flag).empty()) {
    text = flag ? "true" : "false";
  } else if (Put(value, whole).empty()) {
    platform::AppendWhole(text, whole);
  } else if (!Put(value, text).empty()) {
    return "a text, a whole number, true or false";
  }
  document_.Settings().Set(setting_.section, setting_.key, text);
  return {};
}

// An empty list of texts is what stands for a list that is left out.
void JsonJobReader::RequireAllParts() const {
  std::visit(
      [&](auto field) {
        if constexpr (kHasParts<decltype(field)>) {
          const bool isLeftOut =
              std::is_same_v<decltype(field), std::array<std::string, 4>*> && part_ == 0;
          if (part_ != field->size() && !isLeftOut)
            Fail("expected " + ExpectedParts(field->size()));
        }
      },
      slot_);
}

bool JsonJobReader::end_object() {
  const Level& level = *levels_.back();
  if (level.end != nullptr) (this->*level.end)();
  levels_.pop_back();
  place_.Leave();
  return true;
}

bool JsonJobReader::end_array() {
  const Level& level = *levels_.back();
  levels_.pop_back();
  place_.Leave();
  if (&level == &Levels::kParts) RequireAllParts();
  if (level.form == Form::kRow && part_ < (level.least == 0 ? level.columns : level.least)) {
    Fail("expected " + ExpectedParts(level.columns));
  }
  if (IsOfLists(level.form) && level.end != nullptr) (this->*level.end)();
  return true;
}

JsonJobReader::Slot JsonJobReader::SelectCurrent(std::string_view key) {
  selectsStation_ = selectsStation_ || key == "station";
  selectsGpsGroup_ = selectsGpsGroup_ || key == "gpsGroup";
  return Select<&JsonJobReader::current_>(key);
}

JsonJobReader::Slot JsonJobReader::SelectCurve(std::string_view key) {
  if (key == "start") return &curve_->start;
  if (key == "end") return &curve_->end;
  return {};
}

JsonJobReader::Slot JsonJobReader::SelectSetting(std::string_view key) {
  setting_.key = key;
  return &setting_;
}
