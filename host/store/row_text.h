// The values of one feature as a text: one column for tables of any fields.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/gis_table.h"

/// Appends a value: "5:hello" for a text (bytes counted), "12;", "1.5;", "2024-02-29;", "1;" for
/// true, "-;" for null.
void AppendRowValue(std::string& text, const gis::Value& value);

/// Takes the values of such a text, by the fields of the table. False when it does not fit them.
/// The texts among them lie in `text`.
bool TakeRowValues(std::string_view text, const gis::CTable& table,
                   std::vector<gis::Value>& values);
