// Horizontal geometry of a LandXML alignment.
#pragma once

#include <memory>
#include <vector>

#include "host/landxml/load_context.h"
#include "model/plani_elem.h"

namespace landxml_load {

/// Builds the elements of a road in the order of driving. Directions are worked out from points
/// alone: the attributes that hold them have another zero and another sense in every second file.
class ElementReader {
 public:
  /// `start`: chainage of the first element, metres. Nothing is owned.
  ElementReader(LoadContext& context, PointFinder& points, double start)
      : context_(context), points_(points), prog_(start) {}

  /// All elements of a `CoordGeom`. What the host cannot hold is told.
  void Take(const XmlElement& geometry);

  std::vector<std::unique_ptr<CPlaniElem>>& Elements() { return elements_; }
  /// Chainage of the last element's end.
  double Prog() const { return prog_; }

 private:
  struct Ends {
    tdk::geom::PNT_2D start;
    tdk::geom::PNT_2D end;
  };

  void TakeElement(const XmlElement& element);
  void TakeLine(const XmlElement& element);
  void TakeCurve(const XmlElement& element);
  void TakeSpiral(const XmlElement& element);
  void TakeIrregularLine(const XmlElement& element);
  void TakeChain(const XmlElement& element);

  std::optional<Ends> EndsOf(const XmlElement& element);
  void AddLine(const Ends& ends);
  void AddArc(const Ends& ends, const tdk::geom::PNT_2D& centre, bool ccw);
  void AddArcOfRadius(const XmlElement& element, const Ends& ends, double radius, bool ccw);
  void AddClothoid(const XmlElement& element, const Ends& ends, double k0, double k1, double length,
                   bool ccw);
  void AddOther(const XmlElement& element, const Ends& ends, const tdk::WString& why);
  void Add(std::unique_ptr<CPlaniElem> element, double length);
  void Refuse(const XmlElement& element, const tdk::WString& why);

  LoadContext& context_;
  PointFinder& points_;
  double prog_;
  std::vector<std::unique_ptr<CPlaniElem>> elements_;
};

}  // namespace landxml_load
