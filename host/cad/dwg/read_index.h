// The records of a file: what kind each is of, and what it belongs to.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/cad/dwg/entity_records.h"
#include "host/cad/dwg/field_reader.h"
#include "host/cad/dwg/read_file.h"
#include "host/cad/reading/notes.h"

namespace dwg {

/// A record that is open for reading.
struct OpenRecord {
  unsigned type = 0;
  bool isEntity = false;
  Handle own = 0;
  bool hasRightChecksum = true;
  FieldReader fields;
};

/// What is known of a record before it is read.
struct IndexedRecord {
  Handle handle = 0;
  std::uint32_t address = 0;
  std::uint16_t type = 0;  ///< that of light polylines where a class says that it is one
  bool isEntity = false;
  Space space = Space::kOwner;  ///< of an entity
};

class RecordIndex {
 public:
  /// Looks at all records of the file, which is kept. Throws Failure.
  RecordIndex(File& file, cad_reader::Notes& notes);

  std::span<const IndexedRecord> Records() const { return records_; }
  /// Null when there is none.
  const IndexedRecord* Find(Handle handle) const;
  /// The records that belong to a polyline or an insert, in their order.
  std::span<const std::pair<Handle, const IndexedRecord*>> PartsOf(Handle owner) const;

  /// Throws Damage.
  OpenRecord Open(const IndexedRecord& record) const;
  /// What the user knows a kind of entity as; in the code page of the file.
  std::string NameOf(unsigned type) const;
  /// Counts a record that is left out because it is damaged; the first is told with its place.
  void TellDamage(const IndexedRecord& record, const Damage& damage);

 private:
  void Look(const MapEntry& entry);
  void CountBytes(std::uint32_t address);
  void CollectParts();
  void CountLostParts();
  OpenRecord OpenAt(std::uint32_t address) const;
  const ClassRecord* ClassOf(unsigned type) const;

  File& file_;
  cad_reader::Notes& notes_;
  std::vector<ClassRecord> classes_;
  std::vector<IndexedRecord> records_;
  std::vector<std::pair<Handle, const IndexedRecord*>> parts_;  // by their owners
  std::size_t bytes_ = 0;                                       // of all records
  bool hasToldDamage_ = false;
};

}  // namespace dwg
