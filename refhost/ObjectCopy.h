// Copies objects of a plant, alone or with everything below them.
#pragma once

#include "CopyOption.h"
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

/// Copies the objects and returns their copies: see Plant::Copy. Runs inside the caller's transaction.
std::vector<RowPlace> CopyObjects(PlantCore& core, const std::vector<RowPlace>& objects, CopyOption option);
} // namespace refhost
