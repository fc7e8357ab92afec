// An object on the stack that counts references to it.
#pragma once

#include <unknwn.h>

class CountedUnknown : public IUnknown
{
public:
    virtual ~CountedUnknown() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--m_references); }

    /// The test's own counts as one.
    int References() const { return m_references; }

private:
    int m_references = 1;
};
