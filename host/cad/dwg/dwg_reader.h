// Reads DWG files of other programs, and our own, into the drawing engine.
#pragma once

#include "model/cad_files.h"

/// Adds what a DWG file (R13, R14 or 2000) holds to `engine`: its layers as drawings, its blocks,
/// and the entities of its model space. Lengths stay as they are in the file, angles are in
/// degrees. A drawing or block whose name is taken is the one of that name, and stays as it is.
/// `path` may have backslashes. What was not read or had to be changed is told in the notes, also
/// records that are damaged. A file whose header or map of records cannot be read is not loaded:
/// the text says why and at which byte. Files of other versions are refused by their name.
CadLoad ReadDwg(const tdk::WString& path, CTcadEng& engine);
