// A DXF file, section by section.
#pragma once

#include <string_view>

#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {

class DocumentReader {
 public:
  explicit DocumentReader(Context& context)
      : context_(context), pairs_(context.pairs), entities_(context) {}

  /// Reads all of it. Throws Failure.
  void Read();

 private:
  struct Section {
    std::string_view name;
    void (DocumentReader::*read)();
  };
  static const Section kSections[];

  bool GoToSection();
  void ReadSection();
  bool IsAtSectionEnd() const;
  void ReadHeader();
  void TakeVariable(std::string_view name);
  void ReadTables();
  void ReadBlocks();
  void ReadBlock();
  void ReadEntities();

  Context& context_;
  PairStream& pairs_;
  EntityReader entities_;
  Fields record_;
};

}  // namespace dxf_reader
