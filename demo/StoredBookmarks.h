// The bookmarks in the plant's key store, with names in place of identifiers.
#pragma once

#include "Plant.h"

#include <map>
#include <string>
#include <vector>

/// The names of objects by their identifiers.
using ObjectNames = std::map<std::wstring, std::wstring>;

/// A project's two lists: entries "<value name>=<value>".
struct StoredBookmarks
{
    std::vector<std::wstring> names;
    std::vector<std::wstring> places; ///< identifiers read as "<name of the object>"
};

/// The projects that have keys in the store, even empty ones. `names` has those of all objects concerned.
std::map<std::wstring, StoredBookmarks> ReadBookmarks(refhost::Plant& plant, const ObjectNames& names);

/// A table with the two lists of each project side by side.
void PrintBookmarks(const std::map<std::wstring, StoredBookmarks>& projects);

/// Both lists side by side: "0=Doors at Door line, 1=..." Entries of different numbers show both.
std::wstring InOneLine(const StoredBookmarks& bookmarks);

/// Replaces each identifier with "<name of the object>".
std::wstring WithNames(std::wstring text, const ObjectNames& names);
