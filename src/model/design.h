// Cadastral data as far as exchanges reach them so far: shown in a target drawing.
#pragma once

#include "model/library_base.h"

/// Cadastral survey data.
class CCts : public TargetDrawingHolder {};
