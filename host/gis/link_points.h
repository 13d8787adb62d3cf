// Points out of the features of a theme.
#pragma once

#include "host/gis/remarks.h"
#include "model/gis.h"
#include "model/known_points.h"

namespace shape {

/// Hands a point for each vertex of the theme to the receiver: of points with the name and code of
/// the fields chosen, else numbered; the closing vertex of a ring once.
void LinkPointsOf(const gis::CTheme& theme, const tdk::WString& fileName,
                  const TOpzImportShape& options, gis::ILinkImportedEnt& link, Remarks& remarks);

/// A value as the text of a name.
void AppendText(std::string& text, const gis::Value& value);

}  // namespace shape

/// The receiver of the reference host: a new group of known points for each theme, called as its
/// file, with its points in the order of the features.
class KnownPointLink : public gis::ILinkImportedEnt {
 public:
  /// Not owned.
  explicit KnownPointLink(CLibPnt& library) : library_(library) {}
  void OnBeginLink(const gis::CTheme& theme, const tdk::WString& fileName) override;
  bool OnLinkPoint(int feature, const tdk::geom::PNT_3D& place, std::string_view name,
                   std::string_view code) override;
  void OnEndLink() override { group_ = -1; }

 private:
  CLibPnt& library_;
  int group_ = -1;
};
