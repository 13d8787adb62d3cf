// Shapes of ".shp" files.
#pragma once

#include <memory>
#include <string_view>

#include "host/gis/remarks.h"
#include "host/gis/shape_index.h"
#include "host/gis/shp_types.h"
#include "host/gis/streams.h"
#include "model/gis_theme.h"

namespace shape {

/// The way to the shapes of one open file.
class ShpReader {
 public:
  /// `shx`: what its ".shx" file holds, empty for none. Null when this is no file of shapes or ends
  /// within one; `why` then says so. The stream must outlive the reader.
  static std::unique_ptr<ShpReader> Open(Stream& shp, std::string_view shx, Remarks& why);

  const ShapeKind& Kind() const { return kind_; }
  int Count() const { return shp_->nRecords; }
  /// Appends a shape to the theme as a feature; a null shape has no parts. False, with nothing
  /// appended, when it cannot be read.
  bool ReadShape(int shape, gis::CTheme& theme);
  /// What was read otherwise than it stands; once all shapes have been read.
  void TellRemarks(Remarks& remarks) const;

 private:
  struct Closer {
    void operator()(SHPInfo* shapes) const { SHPClose(shapes); }
  };
  ShpReader(SHPHandle shp, const ShapeKind& kind, bool isRebuilt)
      : shp_(shp), kind_(kind), isRebuilt_(isRebuilt) {}

  bool IsSound(const SHPObject& object) const;
  void AddParts(const SHPObject& object, gis::CTheme& theme);
  void AddPart(const SHPObject& object, int first, int last, gis::CTheme& theme);
  void AddTriangles(const SHPObject& object, int first, int last, bool isFan, gis::CTheme& theme);
  void AddRing(const SHPObject& object, int first, int last, gis::CTheme& theme);

  std::unique_ptr<SHPInfo, Closer> shp_;
  ShapeKind kind_;
  bool isRebuilt_;
  std::uint64_t badPlaces_ = 0;   // shapes with a vertex that is nowhere
  std::uint64_t otherTypes_ = 0;  // shapes that are of another kind than the file
  std::uint64_t openRings_ = 0;
  std::uint64_t surfaces_ = 0;  // made of triangles
};

/// The shapes of a Z file need no measures: takes them away where there is none.
void DropUnusedMeasures(gis::CTheme& theme);

}  // namespace shape
