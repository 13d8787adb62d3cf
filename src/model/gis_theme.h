// Themes of the GIS library: features of one kind, with the table of their values.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/gis_table.h"
#include "model/undefined.h"
#include "tdk/geometry.h"
#include "tdk/wstring.h"

namespace gis {

/// What the features of a theme are. The numbers are those that FGetEntTypeFromFileShp answers.
enum class EntityType : std::uint8_t { kPoint = 1, kLine = 2, kPolygon = 3 };

/// One vertex; metres, x the easting, y the northing. Heights of a theme in 2D and measures of one
/// without are undefined.
struct Vertex {
  double x = 0;
  double y = 0;
  double z = UndefinedValue;
  double m = UndefinedValue;  ///< a measure: a chainage, say
};

/// Positions of vertices in the theme: from `first` up to, and without, `last`.
struct VertexRange {
  std::size_t first = 0;
  std::size_t last = 0;
  std::size_t Size() const { return last - first; }
};

/// Features in the order of the table's rows. A feature has parts: the pieces of a line, the rings
/// of a polygon (closed; outer or hole by how they lie), one part with all of its points for
/// points. A feature without parts is there, but nowhere (a null shape).
class CTheme {
 public:
  CTheme(const tdk::WString& name, EntityType type, bool is3D, bool hasMeasures)
      : name_(name), type_(type), is3D_(is3D), hasMeasures_(hasMeasures) {}

  const tdk::WString& GetName() const { return name_; }
  void SetName(const tdk::WString& name) { name_ = name; }
  EntityType GetType() const { return type_; }
  bool Is3D() const { return is3D_; }
  bool HasMeasures() const { return hasMeasures_; }

  /// The reference system as WKT, as it was read or is to be written; empty when it is not known.
  const std::string& GetReferenceSystem() const { return referenceSystem_; }
  void SetReferenceSystem(const std::string& wkt) { referenceSystem_ = wkt; }

  /// The table of the values, row by feature; null for none. Not owned: the library has it.
  CTable* GetTable() const { return table_; }
  void SetTable(CTable* table) { table_ = table; }

  int GetNumFeatures() const { return static_cast<int>(featureEnds_.size()); }
  std::size_t GetNumVertices() const { return x_.size(); }
  int GetNumParts(int feature) const;
  /// `feature` and `part` must be ones that there are.
  VertexRange GetPart(int feature, int part) const;
  /// The vertices of all parts, which lie one after the other.
  VertexRange GetFeature(int feature) const;
  Vertex GetVertex(std::size_t vertex) const;
  tdk::geom::PNT_3D GetPoint(std::size_t vertex) const;

  // Building, from the first feature to the last: a feature, its parts, their vertices.
  void AddFeature();
  /// Of the feature added last, which there must be.
  void AddPart();
  /// To the part added last. A height in 2D, and a measure where there are none, is left out.
  void AddVertex(const Vertex& vertex);
  /// For those who know beforehand how many will come.
  void Reserve(std::size_t features, std::size_t parts, std::size_t vertices);

  // The coordinates of all vertices; the last two are empty in 2D and without measures.
  const std::vector<double>& Xs() const { return x_; }
  const std::vector<double>& Ys() const { return y_; }
  const std::vector<double>& Zs() const { return z_; }
  const std::vector<double>& Ms() const { return m_; }

 private:
  friend class CLibGis;
  std::size_t FirstPart(int feature) const;
  std::size_t FirstVertex(std::size_t part) const { return part == 0 ? 0 : partEnds_[part - 1]; }

  tdk::WString name_;
  EntityType type_;
  bool is3D_;
  bool hasMeasures_;
  std::string referenceSystem_;
  CTable* table_ = nullptr;
  int targetDrawing_ = 0;
  std::vector<std::uint32_t> featureEnds_;  // the part after each feature's last
  std::vector<std::uint32_t> partEnds_;     // the vertex after each part's last
  std::vector<double> x_;
  std::vector<double> y_;
  std::vector<double> z_;
  std::vector<double> m_;
};

}  // namespace gis
