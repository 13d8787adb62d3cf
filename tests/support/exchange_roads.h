// Roads for the tests of the export: elements, height lines and sections put in by hand.
#pragma once

#include <initializer_list>
#include <memory>
#include <utility>

#include "model/road.h"

namespace exchange_test {

inline constexpr double kPi = 3.14159265358979323846;

template <class Element, class... Arguments>
void AddElement(CRoad& road, Arguments&&... arguments) {
  road.AddElement(std::make_unique<Element>(std::forward<Arguments>(arguments)...));
}

/// A straight to the east of 100 m, from chainage 100 on.
inline void AddStraight(CRoad& road) {
  AddElement<CLinePlaniElem>(road, 100.0, tdk::geom::PNT_2D(1000, 2000),
                             tdk::geom::PNT_2D(1100, 2000));
}

inline void AddVertices(CProfileAlti& line, std::initializer_list<TAltiVrt> vertices) {
  for (const TAltiVrt& vertex : vertices) line.AddVrt(vertex);
}

/// The main height line of a road, made of these vertices.
inline CProfileAlti& AddMainLine(CRoad& road, std::initializer_list<TAltiVrt> vertices) {
  CProfileAlti& line = road.GetRoadProfile()->MakeMainPrjAlti();
  AddVertices(line, vertices);
  return line;
}

inline CProfile& AddSection(CRoad& road, const char* name, double prog) {
  CProfile& section = road.GetRoadProfile()->AddSection();
  section.SetName(name);
  section.SetSectionProg(prog);
  return section;
}

/// A vertex that was not designed.
inline TAltiVrt NotPrincipal(double distance, double height) { return {distance, height, false}; }
inline TAltiVrt Curved(double distance, double height, double start, double end) {
  return {distance, height, true, TRaccVert{start, end}};
}

}  // namespace exchange_test
