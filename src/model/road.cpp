#include "model/road.h"

CRoad::CRoad() : profile_(std::make_unique<CProfile>(&codes_)) {}

void CRoad::AddElement(std::unique_ptr<CPlaniElem> element) {
  elements_.emplace_back(std::move(element));
}

const CRoadPlaniElem* CRoad::GetFirstRoadPlaniElem() const {
  return elements_.empty() ? nullptr : &elements_.front();
}

void CRoad::RetrieveLinkedPlaniElems(std::vector<const CPlaniElem*>& elements) const {
  elements.clear();
  for (const CRoadPlaniElem& link : elements_) elements.push_back(link.GetElem());
}

// Elements stand in the order of driving, but their chainages may leave gaps and overlap.
bool CRoad::PointAt(double prog, tdk::geom::PNT_2D& place) const {
  for (const CRoadPlaniElem& link : elements_) {
    const CPlaniElem& element = *link.GetElem();
    const double s = prog - element.GetProg();
    if (s < 0 || s > element.GetLength()) continue;
    place = element.PointAt(s);
    return true;
  }
  return false;
}

CRoad* CLibRoad::AddRoad(bool /*notify*/) {
  return MayAdd(AddedKind::kRoad, roads_.Size()) ? &roads_.Append() : nullptr;
}
