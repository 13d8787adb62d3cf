// GIS themes as the stores hold them.
#pragma once

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "host/store/fields.h"
#include "host/store/json_values.h"
#include "model/gis.h"

struct ThemeRecord {
  std::string name;
  std::string type;   ///< "point", "line", "polygon"; empty: "point"
  int dimension = 0;  ///< 2 or 3; 0: 3 where a vertex has a height
  std::string table;  ///< the name of its table where that is another one; else empty
  std::string referenceSystem;
  int targetDrawing = 0;

  static constexpr auto Fields() {
    using R = ThemeRecord;
    return std::tuple{Field{"name", &R::name},
                      Field{"type", &R::type},
                      Field{"dimension", &R::dimension},
                      Field{"table", &R::table},
                      Field{"referenceSystem", &R::referenceSystem},
                      Field{"targetDrawing", &R::targetDrawing}};
  }
};

/// A theme with what only a database says in so many words.
struct StoredThemeRecord : ThemeRecord {
  bool measures = false;

  static constexpr auto Fields() {
    return std::tuple_cat(ThemeRecord::Fields(),
                          std::tuple{Field{"measures", &StoredThemeRecord::measures}});
  }
};

/// The values of a feature, see row_text.h.
struct FeatureRecord {
  std::string row;

  static constexpr auto Fields() { return std::tuple{Field{"row", &FeatureRecord::row}}; }
};

struct GisFieldRecord {
  std::string name;
  std::string type;  ///< "text", "integer", "real", "date", "bool"; empty: "text"
  int width = 0;
  int decimals = 0;

  static constexpr auto Fields() {
    using R = GisFieldRecord;
    return std::tuple{Field{"name", &R::name}, Field{"type", &R::type}, Field{"width", &R::width},
                      Field{"decimals", &R::decimals}};
  }
};

ThemeRecord RecordOf(const gis::CLibGis& library, const gis::CTheme& theme);
GisFieldRecord RecordOf(const gis::Field& field);

/// Nothing when a type is none.
std::optional<gis::EntityType> EntityTypeNamed(std::string_view name);
std::optional<gis::FieldType> FieldTypeNamed(std::string_view name);

/// "2024-02-29"; and back, nothing when it is no date.
std::string DateText(const gis::Date& date);
std::optional<gis::Date> DateIn(std::string_view text);

/// A JSON value as a value of such a field; nothing, with what was `expected`, when it is none.
std::optional<gis::Value> ValueIn(const JsonValue& json, gis::FieldType type,
                                  std::string& expected);

/// What of a theme is not as it should be.
struct ThemeTrouble {
  std::string key;  ///< "type", "features[3].values[1]"
  std::string reason;
};

/// A theme with its table, put together from parts in any order.
class ThemeBuilder {
 public:
  ThemeRecord theme;
  std::vector<GisFieldRecord> fields;

  void AddFeature();
  void AddPart() { parts_.push_back(xs_.size()), ++features_.back().parts; }
  /// Undefined heights and measures are ones that are not there.
  void AddVertex(const gis::Vertex& vertex);
  /// The next value of the last feature. Texts are copied.
  void AddValue(const JsonValue& value);

  /// Puts the theme and its table into the library. What is wrong, or nothing.
  std::optional<ThemeTrouble> Finish(gis::CLibGis& library);
  std::size_t FeatureCount() const { return features_.size(); }

 private:
  struct Feature {
    std::size_t parts = 0;
    std::size_t values = 0;
  };
  using OwnedValue =
      std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, std::string>;

  std::optional<ThemeTrouble> AddFields(gis::CTable& table) const;
  std::optional<ThemeTrouble> AddRows(gis::CTable& table) const;
  void AddShapes(gis::CTheme& built) const;

  std::vector<Feature> features_;
  std::vector<std::size_t> parts_;  // the first vertex of each
  std::vector<double> xs_;
  std::vector<double> ys_;
  std::vector<double> zs_;
  std::vector<double> ms_;
  std::vector<OwnedValue> values_;
};
