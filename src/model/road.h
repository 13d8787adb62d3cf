// Roads: horizontal geometry, profile, sections.
#pragma once

#include <memory>
#include <vector>

#include "model/plani_elem.h"
#include "model/profile.h"
#include "model/stable_list.h"

/// The link of one element into a road.
class CRoadPlaniElem {
 public:
  explicit CRoadPlaniElem(std::unique_ptr<CPlaniElem> element) : element_(std::move(element)) {}
  const CPlaniElem* GetElem() const { return element_.get(); }

 private:
  std::unique_ptr<CPlaniElem> element_;
};

/// A road alignment. Chainages ("Prog") in metres.
class CRoad : public TargetDrawingHolder {
 public:
  CRoad();

  tdk::WString GetName() const { return tdk::WString(name_.View()); }
  void SetName(const tdk::WString& name) { name_.Set(name.ToUtf8()); }
  double GetStartProg() const { return start_; }
  double GetEndProg() const { return end_; }
  void SetProgs(double start, double end) {
    start_ = start;
    end_ = end;
  }

  /// True for a road without elements, or one that is marked so.
  bool IsEmpty() const { return isMarkedEmpty_ || elements_.empty(); }
  bool IsMarkedEmpty() const { return isMarkedEmpty_; }
  void MarkEmpty(bool empty) { isMarkedEmpty_ = empty; }

  void AddElement(std::unique_ptr<CPlaniElem> element);
  /// Null when there is none.
  const CRoadPlaniElem* GetFirstRoadPlaniElem() const;
  /// The elements in the order of driving.
  void RetrieveLinkedPlaniElems(std::vector<const CPlaniElem*>& elements) const;

  /// The place of the axis at a chainage; false, with the place untouched, where no element lies.
  bool PointAt(double prog, tdk::geom::PNT_2D& place) const;

  /// Each road has a profile, which may hold nothing, and a catalogue of section codes of its own.
  CProfile* GetRoadProfile() const { return profile_.get(); }
  CLibProfile& ProfileCodes() { return codes_; }
  const CLibProfile& ProfileCodes() const { return codes_; }

 private:
  CompactText name_;
  double start_ = 0;
  double end_ = 0;
  bool isMarkedEmpty_ = false;
  std::vector<CRoadPlaniElem> elements_;
  CLibProfile codes_;
  std::unique_ptr<CProfile> profile_;
};

/// The road library; see CLibCmp for what its operations have in common.
class CLibRoad : public LibraryBase {
 public:
  int GetRoadArSize() const { return CountOf(roads_); }
  CRoad* GetRoadAt(int road) const { return ElementAt(roads_, road); }
  CRoad* AddRoad(bool notify);

 private:
  StableList<CRoad> roads_;
};
