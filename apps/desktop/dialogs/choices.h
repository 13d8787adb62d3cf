// What there is to choose from in the lists of the dialogs.
#pragma once

#include "apps/desktop/dialogs/control_table.h"

namespace choices {

std::vector<Choice> PointKinds(const DialogState& state);
std::vector<Choice> FieldTypes(const DialogState& state);
/// The entry for all, then the groups or stations of "units".
std::vector<Choice> Units(const DialogState& state);
/// The names of "files".
std::vector<Choice> Files(const DialogState& state);
std::vector<Choice> BasicSeparators(const DialogState& state);
std::vector<Choice> BasicFields(const DialogState& state);
std::vector<Choice> FullSeparators(const DialogState& state);
std::vector<Choice> GpsFields(const DialogState& state);
std::vector<Choice> TotalStationFields(const DialogState& state);
std::vector<Choice> AngleFormats(const DialogState& state);
std::vector<Choice> DrawingVersions(const DialogState& state);
std::vector<Choice> CoordinateTypes(const DialogState& state);
/// The empty entry, then the names of "fields".
std::vector<Choice> TableFields(const DialogState& state);

}  // namespace choices
