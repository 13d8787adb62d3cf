// Where the entities of a drawing file go: in the shapes that there are, and in the world's axes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/cad/reading/blocks.h"
#include "host/cad/reading/notes.h"
#include "host/cad/reading/plane.h"
#include "host/cad/reading/shapes.h"
#include "model/tcad_eng.h"

namespace cad_reader {

/// Numbers as a file has them; angles in degrees. What lies in a plane has that plane's coordinates
/// unless it says otherwise.
struct EllipseNumbers {
  cad::Point center;     ///< in the world
  cad::Point major;      ///< in the world
  cad::Point direction;  ///< of its plane
  double ratio = 1;
  double start = 0;
  double end = 360;
};

/// Text whose place is that of the top, the middle or the bottom of all its lines, in the world.
struct LinesNumbers {
  cad::Point at;
  double height = 0;
  double direction = 0;
  int attachment = 1;  ///< 1 to 9, from the top left to the bottom right
  double spacing = 1;  ///< of the lines, by the usual one
  std::string text;    ///< UTF-8
};

/// A text whose first point is where it begins, and the second what it is aligned with.
struct TextNumbers {
  cad::Point first;
  bool hasFirst = true;
  cad::Point second;
  bool hasSecond = false;
  int across = 0;  ///< left, centred, right, aligned, middle, fitted
  int up = 0;      ///< at the base line, bottom, middle, top

  cad::Point Place() const;
};

struct InsertArray {
  int columns = 1;
  int rows = 1;
  double columnWidth = 0;
  double rowHeight = 0;
};

/// A vertex of a polyline with records of their own for its vertices.
struct Vertex {
  cad::Point at;
  double bulge = 0;
  int flags = 0;
  int corners[4] = {};  ///< of a face: numbers of other vertices, from 1
};

/// A polyline of such vertices.
struct VertexLine {
  int flags = 0;
  double elevation = 0;
  int rows = 0;  ///< of a mesh
  int columns = 0;
  std::vector<Vertex> vertices;
};
// Flags of such polylines, as all files have them.
inline constexpr int kLineClosed = 1;
inline constexpr int kLineSmoothed = 4;
inline constexpr int kLineInSpace = 8;
inline constexpr int kLineMesh = 16;
inline constexpr int kLineMeshClosed = 32;  // across its other direction
inline constexpr int kLinePolyface = 64;
// Flags of their vertices.
inline constexpr int kVertexControl = 16;
inline constexpr int kVertexOfMesh = 64;
inline constexpr int kVertexOfPolyface = 128;

// Flags of attributes.
inline constexpr int kAttributeInvisible = 1;
inline constexpr int kAttributeConstant = 2;

class EntitySink {
 public:
  /// Nothing is owned.
  EntitySink(CTcadEng& engine, BlockTable& blocks, Notes& notes)
      : engine_(engine), blocks_(blocks), notes_(notes) {}

  /// What is put from now on goes into a block, or into the engine (null).
  void Into(cad::Block* block) { block_ = block; }
  cad::Block* TargetBlock() const { return block_; }
  /// The drawing and the colour of what is put from now on.
  void SetLook(int drawing, std::uint16_t color) {
    drawing_ = drawing;
    color_ = color;
  }
  /// Entities that went into the engine so far.
  std::int64_t PutIntoEngine() const { return put_; }

  /// A shape of the world. One whose numbers are beyond all measure is left out, and told.
  void Put(cad::Shape&& shape);

  void PutSolid(std::vector<cad::Point> corners, const Plane& plane);
  void PutCircle(const cad::Point& center, double radius, const Plane& plane);
  void PutArc(const cad::ArcShape& arc, const Plane& plane);
  void PutEllipse(const EllipseNumbers& ellipse);
  void PutSpline(const Spline& spline);
  /// With as many bulges as points.
  void PutFlat(cad::PolylineShape line, const Plane& plane);
  void PutVertexLine(const VertexLine& line, const Plane& plane);
  void PutText(cad::TextShape text, const Plane& plane);
  void PutLines(LinesNumbers lines, const Plane& plane);
  /// What an attribute of the block is; one that is the same in all inserts is a text of the block.
  /// `definition` has the height that its texts have.
  void PutDefinition(cad::AttributeDefinition definition, cad::TextShape text, int flags,
                     const Plane& plane);
  /// Its block is the id of the table; inserts of blocks that are not in the engine yet wait.
  void PutInsert(cad::InsertShape insert, const InsertArray& array, const Plane& plane);
  /// Adds the inserts that wait, when all blocks are in the engine.
  void AddWaiting();

 private:
  void PutDefinition(cad::AttributeDefinition definition, const Plane& plane);
  void PutCurve(const Curve& curve);
  void PutFlatVertices(const VertexLine& line, const Plane& plane);
  void PutVerticesInSpace(const VertexLine& line);
  void PutMesh(const VertexLine& line);
  void PutPolyface(const VertexLine& line);
  void PutFace(std::vector<cad::Point> points);
  void PutSingleInsert(cad::InsertShape insert, const Plane& plane);

  CTcadEng& engine_;
  BlockTable& blocks_;
  Notes& notes_;
  cad::Block* block_ = nullptr;
  int drawing_ = 1;
  std::uint16_t color_ = cad::kByLayer;
  std::int64_t put_ = 0;
  std::int64_t copies_ = 0;  // that arrays of inserts have made so far
  std::vector<cad::Entity> waiting_;
};

}  // namespace cad_reader
