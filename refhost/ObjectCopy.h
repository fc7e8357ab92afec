// Copies objects of a plant, alone or with everything below them.
#pragma once

#include "CopyOption.h"
#include "ObjectTree.h"

namespace refhost
{
/// Copies the objects and returns their copies: see Plant::Copy. Runs inside the caller's transaction.
std::vector<RowPlace> CopyObjects(PlantCore& core, const std::vector<RowPlace>& objects, CopyOption option);
} // namespace refhost
