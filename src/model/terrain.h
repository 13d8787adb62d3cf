// Terrain models: contours, breaklines, triangles.
#pragma once

#include <cstdint>
#include <vector>

#include "model/compact_text.h"
#include "model/library_base.h"
#include "model/stable_list.h"
#include "tdk/geometry.h"
#include "tdk/wstring.h"

/// A closed contour; whether its last vertex repeats the first is up to who made it.
class CCnt {
 public:
  int GetNoVrts() const { return static_cast<int>(vertices_.size()); }
  const tdk::geom::PNT_3D& GetVrt(int i) const { return vertices_[static_cast<std::size_t>(i)]; }
  void AddVrt(const tdk::geom::PNT_3D& vertex) { vertices_.push_back(vertex); }

 private:
  std::vector<tdk::geom::PNT_3D> vertices_;
};

class CCnts {
 public:
  int GetNoCnts() const { return static_cast<int>(contours_.size()); }
  const CCnt& GetCntAt(int i) const { return contours_[static_cast<std::size_t>(i)]; }
  CCnt& GetCntAt(int i) { return contours_[static_cast<std::size_t>(i)]; }
  /// Stays where it is only until the next is added.
  CCnt& AddCnt() { return contours_.emplace_back(); }

 private:
  std::vector<CCnt> contours_;
};

/// A breakline of two points.
class CVnc {
 public:
  explicit CVnc(const tdk::geom::LINE_3D& line) : line_(line) {}
  const tdk::geom::LINE_3D& GetCoords() const { return line_; }

 private:
  tdk::geom::LINE_3D line_;
};

class CVncs {
 public:
  int GetNoVncs() const { return static_cast<int>(breaklines_.size()); }
  const CVnc& GetVncAt(int i) const { return breaklines_[static_cast<std::size_t>(i)]; }
  void AddVnc(const tdk::geom::LINE_3D& line) { breaklines_.emplace_back(line); }

 private:
  std::vector<CVnc> breaklines_;
};

/// Three positions in the array of vertices.
class CTri {
 public:
  CTri(int a, int b, int c) : vertices_{a, b, c} {}
  /// k: 0, 1 or 2.
  int GetVerIndex(int k) const { return vertices_[k]; }

 private:
  std::int32_t vertices_[3];
};

/// A triangulation. Vertices that no triangle uses may be among its vertices.
class CTris {
 public:
  virtual ~CTris();
  virtual int GetNoTris() const;

  int GetNoTriVrts() const { return static_cast<int>(vertices_.size()); }
  const tdk::geom::PNT_3D& GetTriVrtAt(int i) const {
    return vertices_[static_cast<std::size_t>(i)];
  }
  const CTri& GetTriAt(int i) const { return triangles_[static_cast<std::size_t>(i)]; }

  void Reserve(std::size_t vertices, std::size_t triangles);
  void AddTriVrt(const tdk::geom::PNT_3D& vertex) { vertices_.push_back(vertex); }
  /// False, and nothing added, when a position is not that of a vertex.
  bool AddTri(int a, int b, int c);

 private:
  std::vector<tdk::geom::PNT_3D> vertices_;
  std::vector<CTri> triangles_;
};

/// One terrain model.
class CDtmPrj {
 public:
  tdk::WString GetName() const { return tdk::WString(name_.View()); }
  void SetName(const tdk::WString& name) { name_.Set(name.ToUtf8()); }

  CCnts& GetOuterCnts() { return outer_; }
  const CCnts& GetOuterCnts() const { return outer_; }
  CCnts& GetIslandCnts() { return islands_; }
  const CCnts& GetIslandCnts() const { return islands_; }
  CVncs& GetVncs() { return breaklines_; }
  const CVncs& GetVncs() const { return breaklines_; }
  CTris& GetTris() { return triangles_; }
  const CTris& GetTris() const { return triangles_; }

 private:
  CompactText name_;
  CCnts outer_;
  CCnts islands_;
  CVncs breaklines_;
  CTris triangles_;
};

/// The terrain library; see CLibCmp for what its operations have in common.
class CLibDtm : public LibraryBase {
 public:
  int GetPrjArSize() const { return CountOf(models_); }
  CDtmPrj* GetPrjAt(int model) const { return ElementAt(models_, model); }
  CDtmPrj* AddPrj(bool notify);

 private:
  StableList<CDtmPrj> models_;
};
