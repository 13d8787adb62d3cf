// A drawing that is put together from records in any order.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/store/drawing_records.h"

/// Texts, each with a number by which it goes until it is known what it names.
class NumberedNames {
 public:
  /// The number of a name, counted from 0; a new one for a new name.
  int NumberOf(const std::string& name);
  const std::vector<std::string>& All() const { return all_; }

 private:
  std::vector<std::string> all_;
  std::unordered_map<std::string, int> numbers_;
};

/// Layers and blocks go into the engine as they come; entities name them, and get their places
/// there when all are known.
class DrawingBuilder {
 public:
  /// `engine` is not owned; it must hold no more than its first layer.
  explicit DrawingBuilder(CTcadEng& engine) : engine_(engine) {}

  /// Each is false when the name is taken, by another layer than the one that is always there.
  bool AddLayer(const LayerRecord& record);
  bool AddBlock(cad::Block block);

  /// Makes an entity that can be added to the drawing, or to a block. What is wrong, or nothing.
  std::optional<EntityTrouble> Make(const EntityRecord& record, cad::Entity& entity);
  void Add(cad::Entity entity) { entities_.push_back(std::move(entity)); }

  /// The names of blocks that inserts have given so far, each once.
  const std::vector<std::string>& InsertedBlocks() const { return blocks_.All(); }
  /// Fills the engine, with the layers that were only named. Hands back which of the inserted
  /// blocks is nowhere; nothing when all is well.
  std::optional<std::size_t> Finish();

 private:
  void FindLayers();
  std::optional<std::size_t> FindBlocks();
  void Place(cad::Entity& entity) const;

  CTcadEng& engine_;
  NumberedNames layers_;
  NumberedNames blocks_;
  std::vector<int> drawings_;   // of each name of a layer
  std::vector<int> positions_;  // of each name of a block
  std::vector<cad::Entity> entities_;
};
