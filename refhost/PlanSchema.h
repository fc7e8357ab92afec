// The kinds of objects that make up a plan: a tree of nodes with relationships.
#pragma once

#include "Schema.h"

namespace refhost
{
Kind PlanNodeKind();
Kind PlanRelationKind();
} // namespace refhost
