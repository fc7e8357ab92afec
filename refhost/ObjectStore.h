// New objects, and what the user may do with them.
#pragma once

#include "Database.h"
#include "Limit.h"
#include "Schema.h"

#include <optional>
#include <string>

namespace refhost
{
/// All rights of QPRightType that give access.
inline constexpr long kAllRights = 2 | 4 | 8 | 16 | 32 | 64 | 128 | 256 | 512;

/// Adds an object with no values and returns its number. Throws PlantError if that kind has one of that key.
long long InsertObject(Database& database, const Kind& kind, const std::string& key);

/// Removes an object with its rights and limits. Throws PlantError if another object refers to it.
void RemoveObject(Database& database, const Kind& kind, long long object);

/// Sets the rights of an object; std::nullopt removes its rights service.
void StoreRights(Database& database, long long object, std::optional<long> rights);

/// Sets the limit of one attribute of an object.
void StoreLimit(Database& database, long long object, const Attribute& attribute, Limit limit);
} // namespace refhost
