// The cadastral survey in a JSON job.
#pragma once

#include "host/store/json_writer.h"
#include "model/cadastre.h"

/// The member "cadastral" of the open object; nothing when the survey is empty.
void WriteCadastreJson(JsonWriter& json, const CCts& cadastre);
