#include "model/terrain.h"

CTris::~CTris() = default;

int CTris::GetNoTris() const { return static_cast<int>(triangles_.size()); }

void CTris::Reserve(std::size_t vertices, std::size_t triangles) {
  vertices_.reserve(vertices);
  triangles_.reserve(triangles);
}

bool CTris::AddTri(int a, int b, int c) {
  for (const int vertex : {a, b, c}) {
    if (vertex < 0 || vertex >= GetNoTriVrts()) return false;
  }
  triangles_.emplace_back(a, b, c);
  return true;
}

CDtmPrj* CLibDtm::AddPrj(bool /*notify*/) {
  return MayAdd(AddedKind::kTerrainModel, models_.Size()) ? &models_.Append() : nullptr;
}
