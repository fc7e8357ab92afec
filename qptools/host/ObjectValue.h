// References to objects as values: what the host delivers, and what it is given.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace qptools
{
/// The object that a value refers to (VT_UNKNOWN, VT_DISPATCH, and both behind VT_BYREF), borrowed from the
/// value. Null for a reference to no object and for every other value.
IUnknown* ObjectOf(const VARIANT& value) noexcept;

/// A reference to `object`, which may be null, as a value that only borrows it: to be passed on or copied,
/// never cleared.
VARIANT BorrowedObject(IUnknown* object) noexcept;
} // namespace qptools
