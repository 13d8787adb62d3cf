// The icons of the tree: points have the symbols of the plan.
#pragma once

#include <QIcon>

#include "apps/desktop/job/job_node.h"

const QIcon& IconOf(NodeKind kind);
