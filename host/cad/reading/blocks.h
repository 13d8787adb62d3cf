// The blocks of a drawing file.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/cad/reading/notes.h"
#include "host/cad/reading/text.h"
#include "model/tcad_eng.h"

namespace cad_reader {

enum class BlockKind { kUser, kModelSpace, kPaperSpace };
/// What a block of this name is, in the file's code page.
BlockKind KindOf(std::string_view name);

/// Blocks may be inserted before the file says what is in them: until then, inserts name them by
/// ids of this table, which follow the order in which the names come.
class BlockTable {
 public:
  /// Nothing is owned.
  BlockTable(CTcadEng& engine, TextDecoder& text, Notes& notes)
      : engine_(engine), text_(text), notes_(notes) {}

  /// The id of a block as the file names it.
  int IdOf(std::string_view name);
  /// What is in a block, whose inserts name others by their ids. The first of a name holds.
  void Define(int id, cad::Block block);
  /// Moves all blocks that are defined since the last call into the engine. Inserts in them are
  /// left out, and told, when there is no such block or it would contain itself.
  void Deliver();
  /// The block's position in the engine; negative while it is not there.
  int PositionOf(int id) const { return items_[static_cast<std::size_t>(id)].position; }

 private:
  struct Item {
    cad::Block block;
    bool isWaiting = false;  // defined, and not yet in the engine
    int position = -1;
  };
  void RemoveCycles();
  void PlaceAll(std::vector<int>& isNew);
  void FillBlock(Item& item);

  CTcadEng& engine_;
  TextDecoder& text_;
  Notes& notes_;
  std::vector<Item> items_;
  std::map<std::string, int, std::less<>> ids_;  // by the names in capitals
};

}  // namespace cad_reader
