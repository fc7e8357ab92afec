// The floor that the bookmark dialog is measured against: the same host calls in a bare loop, and a dialog of
// the same template, shown by the system alone.
#pragma once

#include "qpobjects.h"

#include <cstddef>
#include <string_view>

/// The calls and controls of opening the dialog of the only project with bookmarks. `dialog` is its template.
/// Returns the rows of its list.
std::size_t BookmarkFloor(IQPFObjectManager* manager, const CLSID& viewClass, std::string_view dialog);
