// The symbols of points, taken apart.
#pragma once

#include <memory>

#include "model/tcad_eng.h"

/// A copy of an engine in which the inserts of field-book blocks are the lines and texts that they
/// show; null when there are none. Their entities are where they are seen, on the drawing of the
/// insert where the block leaves that open, and each attribute is a text. An insert that is
/// mirrored, or stretched more one way than the other, stays one. The blocks stay.
std::unique_ptr<CTcadEng> WithoutFieldBookBlocks(const CTcadEng& engine);
