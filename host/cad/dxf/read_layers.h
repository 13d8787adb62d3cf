// The layers of a DXF file as drawings of the engine.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "host/cad/dxf/read_fields.h"
#include "host/cad/dxf/read_text.h"
#include "model/tcad_eng.h"

namespace dxf_reader {

class Layers {
 public:
  /// Nothing is owned.
  Layers(CTcadEng& engine, TextDecoder& text);

  /// Adds the layer of a record in the layer table. A drawing of that name keeps its state.
  void Take(const Fields& record);
  /// The drawing of a layer as an entity names it; made when there is none.
  int IdOf(std::string_view name) { return name == lastName_ ? lastId_ : Find(name); }

 private:
  int Find(std::string_view name);

  CTcadEng& engine_;
  TextDecoder& text_;
  std::map<std::string, int, std::less<>> ids_;  // by the names in the file
  std::string lastName_;
  int lastId_ = 1;
  bool isFirstNew_;  // the engine was empty, so its first drawing has no state to keep
};

}  // namespace dxf_reader
