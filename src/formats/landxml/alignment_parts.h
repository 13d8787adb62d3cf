// The parts of an `Alignment` element. All numbers in metres, except where a name says degrees.
#pragma once

#include "model/road.h"

namespace platform {
class OutputFile;
}

namespace landxml {

/// The direction of a vector, degrees within [0, 360), counter-clockwise from the X axis (east).
double DirectionDegrees(const tdk::geom::VECTOR_2D& vector);

void WriteCoordGeom(platform::OutputFile& file, const CRoad& road, const tdk::WString& name);
void WriteLine(platform::OutputFile& file, const CPlaniElem& element);
void WriteCurve(platform::OutputFile& file, const CArcPlaniElem& element);
void WriteSpiral(platform::OutputFile& file, const CClotPlaniElem& element);

/// The principal vertices of a road's main height line. `name`: of the road.
void WriteProfile(platform::OutputFile& file, const CProfileAlti& line, const tdk::WString& name);

void WriteCrossSects(platform::OutputFile& file, const CProfile& profile);
void WriteCrossSect(platform::OutputFile& file, const CProfile& section);
/// One height line of the design in a section, cut where it is undefined.
void WriteCrossSectSurfaces(platform::OutputFile& file, const CProfileAlti& line);

}  // namespace landxml
