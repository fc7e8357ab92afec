// The plant's navigator: the bookmarks that it writes.
#pragma once

#include "PlantCore.h"

#include <string>

namespace refhost
{
/// Adds a bookmark behind those of the project: an entry of its list of names and one of its list of places
/// in the tree, under the next free number.
void AddBookmark(PlantCore& core, long long project, long long object, const std::string& name);

/// The object of a place in the tree; 0 if it names none.
long long ObjectOfTree(const std::string& tree);
} // namespace refhost
