// The owner of one SAFEARRAY.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

/// Destroys its array. There is no operator&: put() is for out arguments and destroys what was held before.
class SafeArray
{
public:
    SafeArray() noexcept = default;

    /// Takes ownership of `array`, which may be null.
    explicit SafeArray(SAFEARRAY* array) noexcept : m_array(array) {}
    SafeArray(SafeArray&& other) noexcept : m_array(other.detach()) {}
    ~SafeArray() { Destroy(); }
    SafeArray& operator=(const SafeArray&) = delete;

    SAFEARRAY* get() const noexcept { return m_array; }
    explicit operator bool() const noexcept { return m_array != nullptr; }

    /// The address for an out argument; what was held is destroyed first.
    SAFEARRAY** put() noexcept
    {
        Destroy();
        return &m_array;
    }

    /// The address for a callee that reads the array and may exchange it.
    SAFEARRAY** Address() noexcept { return &m_array; }

    /// Transfers the array to the caller.
    SAFEARRAY* detach() noexcept { return std::exchange(m_array, nullptr); }

private:
    void Destroy() noexcept
    {
        if (SAFEARRAY* old = std::exchange(m_array, nullptr))
            SafeArrayDestroy(old);
    }

    SAFEARRAY* m_array = nullptr;
};
