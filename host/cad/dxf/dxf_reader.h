// Reads DXF files of other programs, and our own, into the drawing engine.
#pragma once

#include "model/cad_files.h"

/// Adds what a DXF file (R12 to 2018, text or binary) holds to `engine`: its layers as drawings,
/// its blocks, and the entities of its model space. Lengths stay as they are in the file, angles
/// are in degrees. A drawing or block whose name is taken is the one of that name, and stays as it
/// is. `path` may have backslashes. What was not read or had to be changed is told in the notes. A
/// file that cannot be read to its end is not loaded: the line says where (0 in a binary file, and
/// when it could not be opened), and what came before may be in the engine.
CadLoad ReadDxf(const tdk::WString& path, CTcadEng& engine);
