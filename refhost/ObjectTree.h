// Objects and those below them: what their child lists "nodes" hold.
#pragma once

#include "PlantCore.h"

#include <vector>

namespace refhost
{
/// An object of the database.
struct RowPlace
{
    const Kind* kind;
    long long id;
};

/// The objects directly below one, in the order of their numbers.
std::vector<RowPlace> ChildrenOf(PlantCore& core, const RowPlace& object);

/// Removes the objects and all below them: see Plant::Remove. Runs inside the caller's transaction.
void RemoveObjects(PlantCore& core, const std::vector<RowPlace>& objects);
} // namespace refhost
