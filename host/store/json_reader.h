// The job as a JSON document, taken up event by event: the document itself is never held.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "host/store/cadastre_records.h"
#include "host/store/drawing_builder.h"
#include "host/store/gis_records.h"
#include "host/store/json_place.h"
#include "host/store/json_values.h"
#include "host/store/progress.h"
#include "host/store/records.h"
#include "host/store/road_records.h"
#include "platform/text_reader.h"

/// Takes the events of a parser and fills a document. Complaints are JobError and JobKeyError and
/// leave the parser.
class JsonJobReader {
 public:
  /// `path` names the file in complaints, `file` tells how far it is read. Nothing is owned.
  JsonJobReader(const std::string& path, const platform::TextReader& file, HostDocument& document,
                const JobProgress& progress)
      : path_(path), file_(file), document_(document), progress_(progress, 0) {}

  // What the parser calls, by its names; each returns true: go on.
  bool null() { return TakeValue({}); }
  bool boolean(bool value) { return TakeValue(value); }
  bool number_integer(std::int64_t value) { return TakeValue(value); }
  bool number_unsigned(std::uint64_t value) { return TakeValue(value); }
  bool number_float(double value, const std::string& /*text*/) { return TakeValue(value); }
  bool string(const std::string& value) { return TakeValue(&value); }
  bool start_object(std::size_t /*size*/) { return Open(/*isList=*/false); }
  bool start_array(std::size_t /*size*/) { return Open(/*isList=*/true); }
  bool key(const std::string& key);
  bool end_object();
  bool end_array();

  [[noreturn]] void Fail(const std::string& reason) const;
  /// The parser came upon a number that no double holds.
  [[noreturn]] void FailAtLargeNumber(const std::string& text);

 private:
  struct Setting {
    std::string section;
    std::string key;
  };
  // The field that the next value is for; none when an object or a list of objects is to come.
  using Slot =
      std::variant<std::monostate, std::string*, double*, bool*, std::uint8_t*, std::uint16_t*,
                   std::uint32_t*, std::uint64_t*, std::int32_t*, GeocentricRecord*, PlaceRecord*,
                   CovarianceRecord*, std::array<std::string, 4>*, std::array<int, 2>*, Setting*>;

  // A row is a list of a certain number of numbers; values are plain ones of any kind.
  enum class Form {
    kObject,
    kListOfObjects,
    kListOfLists,
    kRow,
    kNumbers,
    kTexts,
    kValues,
    kNotHeld
  };
  // One kind of object in the document: where it stands in the object above, what it holds, what it
  // leads to. `begin` and `end` are of each object; of a list of lists and of a row, of the list;
  // of numbers, texts and values, `begin` is of the list and `end` of each of them.
  struct Level {
    std::string_view key = {};  // in the object above; empty: any
    Form form = Form::kObject;
    Slot (JsonJobReader::*select)(std::string_view key) = nullptr;
    void (JsonJobReader::*begin)() = nullptr;
    void (JsonJobReader::*end)() = nullptr;
    std::span<const Level> below = {};
    std::size_t columns = 0;  // of a row
    std::size_t least = 0;    // so many of them must be there; 0: all
  };
  struct Levels;
  struct DrawingLevels;
  struct CadastreLevels;
  struct GisLevels;
  static const Level kDrawing[3];
  static const Level kCadastre[4];
  static const Level kGis[1];

  bool TakeValue(const JsonValue& value);
  bool Open(bool isList);
  const Level* LevelOf(bool isList);
  const Level* LevelOfMember(bool isList);
  static const Level* Below(const Level& level, std::string_view key);
  static bool IsListForm(Form form) { return form != Form::kObject; }
  static bool IsOfLists(Form form) { return form == Form::kListOfLists || form == Form::kRow; }
  static bool IsOfPlain(Form form) {
    return form == Form::kNumbers || form == Form::kTexts || form == Form::kValues;
  }
  void RequireHeld() const;

  std::string PutMember(const JsonValue& value);
  std::string PutPart(const JsonValue& value);
  std::string PutListed(const JsonValue& value);
  std::string PutNumber(const JsonValue& value);
  std::string PutLoneNumber(const JsonValue& value);
  std::string PutLoneValue(const JsonValue& value);
  std::string PutLoneText(const JsonValue& value);
  std::string PutSetting(const JsonValue& value);
  void RequireAllParts() const;

  template <auto record>
  Slot Select(std::string_view key) {
    auto& target = this->*record;
    Slot slot;
    ForEachField<std::remove_reference_t<decltype(target)>>([&](const auto& field) {
      if (field.key == key) slot = &(target.*field.member);
    });
    return slot;
  }
  Slot SelectCurrent(std::string_view key);
  Slot SelectCurve(std::string_view key);
  Slot SelectSetting(std::string_view key);
  Slot SelectEntity(std::string_view key);
  Slot SelectAttribute(std::string_view key);
  Slot SelectTheme(std::string_view key);

  template <class Object>
  Object* Added(Object* object) const {
    if (object == nullptr) Fail("the host takes no more of these");
    return object;
  }
  void BeginJob();
  void EndJob();
  void BeginStation();
  void EndStation();
  void BeginObservation() { observation_ = {}; }
  void EndObservation();
  void BeginGpsGroup();
  void EndGpsGroup();
  void BeginGpsPoint() { gpsPoint_ = {}; }
  void EndGpsPoint();
  void BeginKnownGroup();
  void EndKnownGroup();
  void BeginPoint() { point_ = {}; }
  void EndKnownPoint();
  void EndControl();
  void EndTargets();
  void BeginModel();
  void EndModel();
  void BeginOuter();
  void BeginIsland();
  void EndContourVertex();
  void EndBreaklinePoint();
  void EndBreakline();
  void EndTerrainVertex();
  void EndTriangle();
  void BeginRoad();
  void EndRoad();
  void BeginElement() { element_ = {}; }
  void EndElement();
  void BeginMainLine();
  void BeginCode() { code_ = {}; }
  void EndCode();
  void BeginRoadSection();
  void EndRoadSection();
  void EndSectionVertex();
  void BeginLine();
  void EndLine();
  void BeginVertex();
  void EndVertex();
  void BeginCurve() { curve_.emplace(); }
  void BeginLayer() { layer_ = {}; }
  void EndLayer();
  void BeginBlock();
  void EndBlock();
  void BeginDefinition() { definition_ = {}; }
  void EndDefinition() { block_.attributes.push_back(DefinitionOf(definition_)); }
  void BeginEntity();
  void EndEntityOfBlock() { block_.entities.push_back(MadeEntity()); }
  void EndEntity() { drawing_.Add(MadeEntity()); }
  void EndEntityPoint() { entity_.points.emplace_back(row_[0], row_[1], row_[2]); }
  void EndBulge() { entity_.bulges.push_back(row_[0]); }
  cad::Entity MadeEntity();
  void FinishDrawing();
  void BeginTheme() { themes_ = {}; }
  void EndTheme();
  void BeginThemeField() { themeField_ = {}; }
  void EndThemeField() { themes_.fields.push_back(themeField_); }
  void BeginFeature() { themes_.AddFeature(); }
  void EndFeature() { CountPoint(); }
  void BeginThemePart() { themes_.AddPart(); }
  void EndThemeVertex();
  void EndThemeValue() { themes_.AddValue(loneValue_); }
  void EndParcel() { Cadastre().parcels.push_back(text_); }
  void BeginTraverse() { Cadastre().traverses.emplace_back(); }
  void EndTraverseVertex() { Cadastre().traverses.back().push_back(text_); }
  void BeginContourLine();
  void EndContourLine() { Cadastre().contours.back().type = contourLine_.type; }
  void EndContourLineVertex() { Cadastre().contours.back().points.push_back(text_); }
  void BeginFiducial() { fiducial_ = {}; }
  void EndFiducial() { Cadastre().fiducials.push_back(fiducial_); }
  void EndCadastre() { Cadastre().heading = cadastre_; }
  cadastre::Survey& Cadastre() { return document_.GetCts()->Survey(); }
  void BeginSection() { setting_.section = place_.KeyAbove(); }
  void EndDocument();
  void CountPoint();

  const std::string& path_;
  const platform::TextReader& file_;
  HostDocument& document_;
  PointProgress progress_;

  JsonPlace place_;
  std::vector<const Level*> levels_;  // of the open objects and lists
  Slot slot_;
  std::size_t part_ = 0;  // of the list that slot_ leads to

  JobRecord job_;
  StationRecord station_;
  ObservationRecord observation_;
  GpsGroupRecord gpsGroup_;
  GpsPointRecord gpsPoint_;
  KnownGroupRecord knownGroup_;
  PointRecord point_;
  TargetsRecord targets_;
  CurrentRecord current_;
  bool selectsStation_ = false;
  bool selectsGpsGroup_ = false;
  Setting setting_;
  CSta* openStation_ = nullptr;

  std::array<double, 4> row_{};  // the first part_ of them
  JsonValue loneValue_;          // of a list of values
  TerrainRecord terrain_;
  RoadRecord road_;
  ElementRecord element_;
  CodeRecord code_;
  SectionRecord section_;
  LineRecord line_;
  VertexRecord vertex_;
  std::optional<TRaccVert> curve_;
  CDtmPrj* openModel_ = nullptr;
  CCnt* openContour_ = nullptr;
  std::vector<tdk::geom::PNT_3D> breakline_;
  std::vector<std::array<int, 3>> triangles_;  // of the open model, whose vertices may come later
  CRoad* openRoad_ = nullptr;
  CProfile* openSection_ = nullptr;
  CProfileAlti* openLine_ = nullptr;

  ThemeBuilder themes_;  // the open one
  GisFieldRecord themeField_;
  std::string text_;  // of a list of texts
  CadastreRecord cadastre_;
  ContourLineRecord contourLine_;
  FiducialRecord fiducial_;

  DrawingBuilder drawing_{*document_.GetCadEngine()};
  LayerRecord layer_;
  BlockRecord blockRecord_;
  AttributeDefinitionRecord definition_;
  EntityRecord entity_;
  bool endIsGiven_ = false;               // of the open entity
  cad::Block block_;                      // the open one
  std::vector<std::string> blockPlaces_;  // where each inserted block was named first
};
