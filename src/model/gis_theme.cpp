#include "model/gis_theme.h"

namespace gis {

std::size_t CTheme::FirstPart(int feature) const {
  return feature == 0 ? 0 : featureEnds_[static_cast<std::size_t>(feature) - 1];
}

int CTheme::GetNumParts(int feature) const {
  return static_cast<int>(featureEnds_[static_cast<std::size_t>(feature)] - FirstPart(feature));
}

VertexRange CTheme::GetPart(int feature, int part) const {
  const std::size_t at = FirstPart(feature) + static_cast<std::size_t>(part);
  return {FirstVertex(at), partEnds_[at]};
}

VertexRange CTheme::GetFeature(int feature) const {
  const std::size_t last = featureEnds_[static_cast<std::size_t>(feature)];
  return {FirstVertex(FirstPart(feature)), FirstVertex(last)};
}

Vertex CTheme::GetVertex(std::size_t vertex) const {
  return {x_[vertex], y_[vertex], is3D_ ? z_[vertex] : UndefinedValue,
          hasMeasures_ ? m_[vertex] : UndefinedValue};
}

tdk::geom::PNT_3D CTheme::GetPoint(std::size_t vertex) const {
  return {x_[vertex], y_[vertex], is3D_ ? z_[vertex] : UndefinedValue};
}

void CTheme::AddFeature() { featureEnds_.push_back(static_cast<std::uint32_t>(partEnds_.size())); }

void CTheme::AddPart() {
  partEnds_.push_back(static_cast<std::uint32_t>(x_.size()));
  ++featureEnds_.back();
}

void CTheme::AddVertex(const Vertex& vertex) {
  x_.push_back(vertex.x);
  y_.push_back(vertex.y);
  if (is3D_) z_.push_back(vertex.z);
  if (hasMeasures_) m_.push_back(vertex.m);
  ++partEnds_.back();
}

void CTheme::Reserve(std::size_t features, std::size_t parts, std::size_t vertices) {
  featureEnds_.reserve(features);
  partEnds_.reserve(parts);
  x_.reserve(vertices);
  y_.reserve(vertices);
  if (is3D_) z_.reserve(vertices);
  if (hasMeasures_) m_.reserve(vertices);
}

}  // namespace gis
