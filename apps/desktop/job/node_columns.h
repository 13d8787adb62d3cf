// What the table tells of each kind of node.
#pragma once

#include <span>
#include <string>

#include "apps/desktop/job/job_node.h"

struct NodeColumn {
  const char* title;  ///< untranslated
  bool isNumber;
  /// UTF-8; empty for what is not known.
  std::string (*text)(HostDocument& document, const JobNode& node);
};

/// The columns for nodes of a kind.
std::span<const NodeColumn> ColumnsOf(NodeKind kind);
