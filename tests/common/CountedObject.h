// Objects of the tests that count their references.
#pragma once

#include "InterfaceAnswer.h"

/// Base of an object that implements these interfaces and is owned by its creator, for example on the stack.
template <class First, class... Rest>
class OwnedObject : public First, public Rest...
{
public:
    OwnedObject() = default;
    OwnedObject(const OwnedObject&) = delete;
    OwnedObject& operator=(const OwnedObject&) = delete;

    /// References held.
    ULONG Count() const noexcept { return m_count; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        if (iid == __uuidof(First) || iid == __uuidof(IUnknown))
            return Give(static_cast<First*>(this), result);
        HRESULT status = Refuse(result);
        (void)((iid == __uuidof(Rest) && (status = Give(static_cast<Rest*>(this), result)) == S_OK) || ...);
        return status;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_count; }

protected:
    // After the methods of the interfaces, whose order it must not change.
    virtual ~OwnedObject() = default;

private:
    ULONG m_count = 0;
};

/// Base of an object that is deleted by its last Release. It is created with a count of 0; its creator puts
/// it into a ComPtr.
template <class First, class... Rest>
class CountedObject : public OwnedObject<First, Rest...>
{
public:
    /// References held by others than the creator.
    ULONG References() const noexcept { return this->Count() - 1; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = OwnedObject<First, Rest...>::Release();
        if (left == 0)
            delete this;
        return left;
    }

protected:
    ~CountedObject() override = default;
};
