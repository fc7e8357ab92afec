// Variants of the host's callers: ownership and reading.
#pragma once

#include <oleauto.h>
#include <windows.h>

namespace refhost
{
/// The owner of one VARIANT.
class HostVariant
{
public:
    HostVariant() noexcept { VariantInit(&m_value); }
    ~HostVariant() { VariantClear(&m_value); }
    HostVariant(const HostVariant&) = delete;
    HostVariant& operator=(const HostVariant&) = delete;

    /// Copies `source` with VT_BYREF resolved. Throws StatusError with the status of a failed copy.
    explicit HostVariant(const VARIANT& source);

    VARIANT* operator->() noexcept { return &m_value; }
    const VARIANT* operator->() const noexcept { return &m_value; }
    VARIANT& get() noexcept { return m_value; }
    const VARIANT& get() const noexcept { return m_value; }

    /// Converts in place. Throws StatusError with the status of a failed conversion.
    void Become(VARTYPE type);

private:
    VARIANT m_value;
};

/// Whether `value` means "no value": VT_EMPTY, VT_NULL or a null object reference.
bool IsNothing(const VARIANT& value);

/// Whether `value` is an object reference, which may be null.
bool IsReference(const VARIANT& value);
} // namespace refhost
