// The attributes of inserts, with their texts in their places.
#pragma once

#include <string>
#include <string_view>

#include "host/cad/writing/geometry.h"
#include "model/drawing_entities.h"

namespace cad_writer {

/// A line of text as a record has it.
struct TextLine {
  cad::Point at;
  double height;
  double rotation;
  std::string_view text;  ///< UTF-8
};

/// A tag as files have it, in one word; UTF-8.
std::string TagOf(std::string_view utf8);

/// Where the texts of an insert's attributes stand.
class AttributePlaces {
 public:
  /// Keeps both.
  AttributePlaces(const cad::InsertShape& insert, const cad::Block& block)
      : insert_(insert), block_(block), placing_(insert, block.base), below_(insert.at) {}

  /// The next attribute, which has to live as long as the line.
  TextLine Of(const cad::Attribute& attribute);

 private:
  double HeightOf(double inBlock) const;

  const cad::InsertShape& insert_;
  const cad::Block& block_;
  InsertPlacing placing_;
  cad::Point below_;  // for the next that its block does not place
};

}  // namespace cad_writer
