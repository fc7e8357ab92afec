// Loads a folder of sample data into a plant's database.
#pragma once

#include "Database.h"
#include "Schema.h"

#include <filesystem>
#include <optional>
#include <string>

namespace refhost
{
/// All rights of QPRightType that give access.
inline constexpr long kAllRights = 2 | 4 | 8 | 16 | 32 | 64 | 128 | 256 | 512;

/// The folder holds one text table (see SampleTable.h) per kind of object, "scriptaction.txt" for the table
/// scriptaction, and "setting.txt" for the key store. Columns are those of the kind, in any order, and
///   name    must be there; the name of the object, by which other rows refer to it
///   key     what other rows refer to it by instead, for objects whose name is missing or not the only one
///   rights  the user's rights: words of read, execute, change, create, erase, take_ownership, change_rights,
///           add_child, remove_child; "all" (also when empty), "none", or "norights": no rights service at
///           all
/// A row without name needs a key. Flags are yes and no. References may point to any row of any file and to
/// what the database holds already.
///
/// Everything goes in as one transaction. Throws PlantError "file:line: reason", the database being as it
/// was.
void LoadSample(Database& database, const std::filesystem::path& folder);

/// Adds an object with no values and returns its number. Throws PlantError if that kind has one of that key.
long long InsertObject(Database& database, const Kind& kind, const std::string& key);

/// Sets the rights of an object; none at all takes its rights service away.
void StoreRights(Database& database, long long object, std::optional<long> rights);
} // namespace refhost
