// An owning pointer to one COM interface.
#pragma once

#include <unknwn.h>

#include <utility>

/// Holds one counted reference. There is no operator&: put() names the place where an out argument is written
/// and releases what was held before, so that no call can leak or overwrite a live reference.
template <class T>
class ComPtr
{
public:
    ComPtr() noexcept = default;
    // NOLINTNEXTLINE(google-explicit-constructor): null is a pointer like any other
    ComPtr(std::nullptr_t) noexcept {}

    /// Takes a reference of its own to `pointer`, which may be null.
    explicit ComPtr(T* pointer) noexcept : m_ptr(pointer)
    {
        if (m_ptr)
            m_ptr->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.m_ptr) {}
    ComPtr(ComPtr&& other) noexcept : m_ptr(std::exchange(other.m_ptr, nullptr)) {}
    ~ComPtr() { reset(); }

    ComPtr& operator=(ComPtr other) noexcept
    {
        std::swap(m_ptr, other.m_ptr);
        return *this;
    }

    T* get() const noexcept { return m_ptr; }
    T* operator->() const noexcept { return m_ptr; }
    T& operator*() const noexcept { return *m_ptr; }
    explicit operator bool() const noexcept { return m_ptr != nullptr; }

    /// Releases what is held. The member is null before Release runs, which may call back.
    void reset() noexcept
    {
        if (T* old = std::exchange(m_ptr, nullptr))
            old->Release();
    }

    /// The address for an out argument; what was held is released first.
    T** put() noexcept
    {
        reset();
        return &m_ptr;
    }
    void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }

    /// Takes over a reference that the caller owns.
    void attach(T* pointer) noexcept
    {
        reset();
        m_ptr = pointer;
    }

    /// Gives the reference to the caller.
    T* detach() noexcept { return std::exchange(m_ptr, nullptr); }

    /// Writes a reference of its own to `*target`. Returns E_POINTER if `target` is null, else S_OK.
    HRESULT copyTo(T** target) const noexcept
    {
        if (!target)
            return E_POINTER;
        if (m_ptr)
            m_ptr->AddRef();
        *target = m_ptr;
        return S_OK;
    }

    /// Asks `source` for T, which replaces what is held. A null source gives null and E_POINTER, a failure
    /// null and the status of QueryInterface.
    HRESULT queryFrom(IUnknown* source) noexcept
    {
        reset();
        if (!source)
            return E_POINTER;
        void* found = nullptr;
        const HRESULT status = source->QueryInterface(__uuidof(T), &found);
        if (status >= 0)
            m_ptr = static_cast<T*>(found);
        return status;
    }

private:
    T* m_ptr = nullptr;
};
