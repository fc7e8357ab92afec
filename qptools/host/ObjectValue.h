// References to objects as VARIANTs, from and to the host.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace qptools
{
/// The object that a VT_UNKNOWN or VT_DISPATCH refers to, also with VT_BYREF; borrowed from the value. Null
/// for a null reference and for any other type.
IUnknown* ObjectOf(const VARIANT& value) noexcept;

/// A VT_UNKNOWN that borrows `object`, which may be null: pass it on or copy it, never clear it.
VARIANT BorrowedObject(IUnknown* object) noexcept;
} // namespace qptools
