// The floors that the enhanced copy is measured against: the same host calls in bare loops, which keep the
// same objects, and a dialog of the same template, shown by the system alone.
#pragma once

#include "TreeHost.h"

#include <cstddef>
#include <string_view>

/// The calls of a walk over all objects of the host. Returns how many it kept, by type.
std::size_t DeepWalkFloor(TreeHost& host);

/// The same, and the array with a value for each of the `attributes` written to each object.
std::size_t ApplyFloor(TreeHost& host, std::size_t attributes);

/// The calls and controls of opening the dialog, expanding it and choosing the first plan type. `dialog` is
/// its template. Returns the rows of its grid.
std::size_t CopyDialogFloor(TreeHost& host, std::string_view dialog);
