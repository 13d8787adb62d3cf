// The job as a tree, by indices: nothing is kept for a point.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/document/host_document.h"

enum class NodeKind : std::uint8_t {
  kRoot,
  // The sections below the root, in their order.
  kJobs,
  kGpsGroups,
  kKnownGroups,
  kControls,
  kSurfaces,
  kRoads,
  kThemes,
  kLayers,
  // What is in them.
  kJob,
  kStation,
  kPoint,
  kGpsGroup,
  kGpsPoint,
  kKnownGroup,
  kKnownPoint,
  kControl,
  kSurface,
  kRoad,
  kTheme,
  kFeature,
  kLayer
};

/// A place in the tree: what it is, and the indices that lead there from the root. For a point of a
/// station: job, station, point.
struct JobNode {
  NodeKind kind = NodeKind::kRoot;
  int a = 0;
  int b = 0;
  int c = 0;

  bool operator==(const JobNode&) const = default;
};

/// How many nodes lie below one.
int ChildCount(HostDocument& document, const JobNode& node);
/// The kind of the nodes below one; its own kind where there can be none.
NodeKind ChildKind(NodeKind kind);
JobNode ChildAt(const JobNode& node, int row);
/// Of the root: itself.
JobNode ParentOf(const JobNode& node);
/// Its position below its parent.
int RowOf(const JobNode& node);

/// The name; of a section in the user's language.
tdk::WString NameOf(HostDocument& document, const JobNode& node);
/// What stands at a node that is a point, a station or a base; null for all others.
const CEgn* PointOf(HostDocument& document, const JobNode& node);

/// The node of a point of the job; the root when it is none.
JobNode NodeOf(HostDocument& document, const CEgn& point);
/// The first job, group, model, road, theme or layer of that name, else the first station, else the
/// first point; the root when there is none.
JobNode FindNamed(HostDocument& document, std::string_view name);
