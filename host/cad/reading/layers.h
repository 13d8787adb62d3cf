// The layers of a drawing file as drawings of the engine.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "host/cad/reading/text.h"
#include "model/tcad_eng.h"

namespace cad_reader {

/// How a layer of a file is.
struct LayerState {
  bool isVisible = true;
  bool isLocked = false;
  int color = 0;  ///< its index; white where there is none of that
};

class Layers {
 public:
  /// Nothing is owned.
  Layers(CTcadEng& engine, TextDecoder& text);

  /// Adds a layer of the layer table, its name as it is in the file. A drawing of that name keeps
  /// its state. The drawing's id.
  int Take(std::string_view name, const LayerState& state);
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

}  // namespace cad_reader
