// Loads a folder of sample data into a plant's database.
#pragma once

#include "Database.h"

#include <filesystem>

namespace refhost
{
/// The folder holds one text table (see SampleTable.h) per kind of object, "scriptaction.txt" for the table
/// scriptaction, and "setting.txt" for the key store. Columns are those of the kind, in any order, and
///   name    required; the name of the object, by which other rows refer to it
///   key     by which other rows refer to it instead, for objects whose name is missing or not unique
///   rights  the user's rights: words of read, execute, change, create, erase, take_ownership, change_rights,
///           add_child, remove_child; "all" (also when empty), "none", or "norights": no rights service at
///           all
///   locked  the attributes, by their columns, that the user may read but not write
///   hidden  the attributes that the user may neither read nor write
/// A row without name needs a key. Flags are yes and no, dates as in HostDate.h. References may point to any
/// row of any file and to objects that are in the database already.
///
/// Runs as one transaction. Throws PlantError "file:line: reason" and leaves the database unchanged.
void LoadSample(Database& database, const std::filesystem::path& folder);
} // namespace refhost
