// A value that the host delivered, read with its references followed.
#pragma once

#include "ComPtr.h"
#include "XQPComVariant.h"

#include "qpobjects.h"

namespace qptools
{

/// Looks at a variant as if it held its value itself, also when it holds a reference (VT_BYREF) to it. The
/// variant must outlive this object and is left as it is. A value that cannot be resolved reads as empty.
class XResolvedValue
{
public:
    /// Throws ComException(E_OUTOFMEMORY) if a text behind a reference cannot be copied.
    explicit XResolvedValue(const VARIANT& value);
    XResolvedValue(const XResolvedValue&) = delete;
    XResolvedValue& operator=(const XResolvedValue&) = delete;

    VARTYPE Type() const noexcept { return m_value->vt; }
    const VARIANT& Value() const noexcept { return *m_value; }

    /// True if the value is an object reference (VT_UNKNOWN), which may be null.
    bool IsObject() const noexcept { return Type() == VT_UNKNOWN; }

    /// The data object that an object reference stands for; null for a null reference, for an object that is
    /// no data object and for every other value.
    ComPtr<IQP_BaseDataObject> DataObject() const;

private:
    XQPComVariant m_copy;
    const VARIANT* m_value;
};

/// Converts `value` to a text in place. Returns false, and leaves it as it is, if it has none. Throws
/// ComException(E_OUTOFMEMORY).
bool ConvertToText(XQPComVariant& value);

} // namespace qptools
