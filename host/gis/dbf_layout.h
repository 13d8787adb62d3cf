// How a table of the library fits into a dBASE file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/gis/remarks.h"
#include "model/gis_table.h"

namespace shape {

/// One field of the file.
struct DbfColumn {
  int field = -1;    ///< of the table; -1: the number of the feature
  std::string name;  ///< at most ten bytes, unlike all others
  char kind = 'C';   ///< as dBASE writes it: C, N, D, L
  int width = 0;     ///< bytes
  int decimals = 0;
  std::size_t mostCharacters = 0;  ///< of a text
  bool mayBeFine = false;          ///< real numbers that need more decimals than the field has
};

struct DbfLayout {
  std::vector<DbfColumn> columns;
  int recordLength = 1;  ///< bytes
  /// Whether dBASE can hold it.
  bool Fits() const;
  /// Bytes of the file with so many records.
  std::uint64_t SizeOf(int records) const;
};

/// `table` may be null: features are numbered then, for a file must have a field. Texts are cut to
/// `mostCharacters`; fields are as wide as they say, or wider where a number needs it. What is
/// changed is told.
DbfLayout LayOut(const gis::CTable* table, int mostCharacters, Remarks& remarks);

/// A text as it goes into a column: cut at a character.
std::string_view Fitting(std::string_view text, const DbfColumn& column);

/// A number as it goes into a column: with an exponent where it has no room, or is not the same,
/// without.
void AppendReal(std::string& text, double value, const DbfColumn& column);

}  // namespace shape
