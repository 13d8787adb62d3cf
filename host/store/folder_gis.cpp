#include "host/store/folder_gis.h"

#include "host/store/folder_rows.h"
#include "host/store/row_text.h"

namespace {

class GisWriter {
 public:
  GisWriter(const Database& database, const gis::CLibGis& library, PointProgress& progress)
      : library_(library),
        themes_(database, kThemeTable),
        fields_(database, kThemeFieldTable),
        features_(database, kFeatureTable),
        vertices_(database, kFeatureVertexTable),
        progress_(progress) {}

  void Write() {
    for (int i = 0; i < library_.GetNumThemes(); ++i) WriteTheme(*library_.GetTheme(i), i);
  }

 private:
  void WriteTheme(const gis::CTheme& theme, int position) {
    StoredThemeRecord record{RecordOf(library_, theme)};
    record.measures = theme.HasMeasures();
    themes_.Add(record);
    const gis::CTable* const table = theme.GetTable();
    for (int i = 0; table != nullptr && i < table->GetNumFields(); ++i) {
      fields_.Add(RecordOf(table->GetField(i)), position);
    }
    for (int feature = 0; feature < theme.GetNumFeatures(); ++feature) {
      WriteFeature(theme, feature, position);
    }
  }

  void WriteFeature(const gis::CTheme& theme, int feature, int position) {
    row_.row.clear();
    const gis::CTable* const table = theme.GetTable();
    for (int i = 0; table != nullptr && i < table->GetNumFields(); ++i) {
      AppendRowValue(row_.row, table->GetValue(feature, i));
    }
    features_.Add(row_, position);
    for (int part = 0; part < theme.GetNumParts(feature); ++part) {
      const gis::VertexRange vertices = theme.GetPart(feature, part);
      for (std::size_t v = vertices.first; v < vertices.last; ++v) {
        const gis::Vertex vertex = theme.GetVertex(v);
        vertices_.Add({{vertex.x, vertex.y, vertex.z}, vertex.m}, position, feature, part);
      }
    }
    progress_.Step();
  }

  const gis::CLibGis& library_;
  Inserter<StoredThemeRecord> themes_;
  Inserter<GisFieldRecord> fields_;
  Inserter<FeatureRecord> features_;
  Inserter<FeatureVertexRecord> vertices_;
  PointProgress& progress_;
  FeatureRecord row_;
};

// Features and vertices stand in tables of their own, in the order of the themes.
class GisReader {
 public:
  GisReader(const Database& database, gis::CLibGis& library, PointProgress& progress)
      : database_(database),
        library_(library),
        vertices_(database, kFeatureVertexTable),
        progress_(progress) {}

  void Read() {
    ForEachRow(database_, kThemeTable, [&](const auto& row, const RowParents&) { AddTheme(row); });
    ForEachRow(database_, kThemeFieldTable, [&](const auto& row, const RowParents& parents) {
      const auto type = FieldTypeNamed(row.type);
      Require(type.has_value());
      Theme(parents).GetTable()->AddField({tdk::WString(row.name), *type, row.width, row.decimals});
    });
    ForEachRow(database_, kFeatureTable, [&](const auto& row, const RowParents& parents) {
      AddFeature(row, parents[0]);
      progress_.Step();
    });
    Require(vertices_.IsAtEnd());
  }

 private:
  void AddTheme(const StoredThemeRecord& row) {
    const auto type = EntityTypeNamed(row.type);
    Require(type.has_value());
    auto theme = std::make_unique<gis::CTheme>(tdk::WString(row.name), *type, row.dimension == 3,
                                               row.measures);
    theme->SetReferenceSystem(row.referenceSystem);
    gis::CTable* const table = library_.AddTable(
        std::make_unique<gis::CTable>(tdk::WString(row.table.empty() ? row.name : row.table)),
        false);
    Require(table != nullptr);
    theme->SetTable(table);
    gis::CTheme* const added = library_.AddTheme(std::move(theme), false);
    Require(added != nullptr);
    library_.SetThemeTargetDrawing(added, row.targetDrawing);
  }

  void AddFeature(const FeatureRecord& row, int position) {
    gis::CTheme* const theme = library_.GetTheme(position);
    Require(theme != nullptr && TakeRowValues(row.row, *theme->GetTable(), values_));
    theme->GetTable()->AddRow(values_);
    const int feature = theme->GetNumFeatures();
    theme->AddFeature();
    int parts = 0;
    for (; IsOf(position, feature); vertices_.Next()) {
      const int part = vertices_.Parents()[2];
      Require(part == parts || part == parts - 1);
      for (; parts <= part; ++parts) theme->AddPart();
      const auto& [x, y, z] = vertices_.Row().place;
      theme->AddVertex({x, y, z, vertices_.Row().measure});
    }
  }

  bool IsOf(int theme, int feature) const {
    return vertices_.IsOf(theme) && vertices_.Parents()[1] == feature;
  }

  gis::CTheme& Theme(const RowParents& parents) {
    gis::CTheme* const theme = library_.GetTheme(parents[0]);
    Require(theme != nullptr);
    return *theme;
  }

  void Require(bool isSound) const {
    if (!isSound) database_.Fail("the job is damaged: a record of a theme does not fit there");
  }

  const Database& database_;
  gis::CLibGis& library_;
  RowCursor<FeatureVertexRecord> vertices_;
  PointProgress& progress_;
  std::vector<gis::Value> values_;
};

}  // namespace

void WriteGis(const Database& database, const gis::CLibGis& library, PointProgress& progress) {
  GisWriter(database, library, progress).Write();
}

void ReadGis(const Database& database, gis::CLibGis& library, PointProgress& progress) {
  GisReader(database, library, progress).Read();
}
