// The sort of a tree: stable, and each node's text is asked for once.
#pragma once

#include "package/host/api/idevirtualtrees.h"

#include <vector>

namespace workbench {

/// Sorts the nodes by a column. Nodes that compare equal stay in their order, in both directions.
void SortNodes(std::vector<deployment::TNodeId>& nodes,
               const deployment::TVirtualTreeEvents& events, int column,
               deployment::TSortDirection direction);

} // namespace workbench
