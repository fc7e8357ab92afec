// An owning pointer to one COM interface.
#pragma once

#include <unknwn.h>

#include <utility>

/// Owns one reference. There is no operator&: put() is for out arguments and releases what was held before,
/// so that no call can leak or overwrite a live reference.
template <class T>
class ComPtr
{
public:
    ComPtr() noexcept = default;
    // NOLINTNEXTLINE(google-explicit-constructor): converts from null
    ComPtr(std::nullptr_t) noexcept {}

    /// Adds a reference to `pointer`, which may be null.
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

    /// Releases what is held. The member is null before Release is called, because Release may call back.
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

    /// Takes ownership of a reference.
    void attach(T* pointer) noexcept
    {
        reset();
        m_ptr = pointer;
    }

    /// Transfers the reference to the caller.
    T* detach() noexcept { return std::exchange(m_ptr, nullptr); }

    /// Writes a new reference to `*target`, owned by the caller. Returns E_POINTER if `target` is null, else
    /// S_OK.
    HRESULT copyTo(T** target) const noexcept
    {
        if (!target)
            return E_POINTER;
        if (m_ptr)
            m_ptr->AddRef();
        *target = m_ptr;
        return S_OK;
    }

    /// Queries `source` for T; the result replaces what is held. Returns E_POINTER if `source` is null, else
    /// the status of QueryInterface; null is held after a failure.
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
