// An enumerator that is only held: its references are counted, on any thread.
#pragma once

#include "qpobjects.h"

#include <atomic>
#include <functional>
#include <utility>

/// Lives as long as its creator wants. All calls but those of the references fail.
class CountedEnum final : public IEnumBaseDataObject
{
public:
    /// Called after each AddRef (`taken`) and Release.
    using Look = std::function<void(bool taken, LONG count)>;

    explicit CountedEnum(Look look = {}) : m_look(std::move(look)) {}

    LONG Count() const noexcept { return m_count; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override
    {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return Changed(true, ++m_count); }
    ULONG STDMETHODCALLTYPE Release() override { return Changed(false, --m_count); }
    HRESULT STDMETHODCALLTYPE RemNext(ULONG, IQP_BaseDataObject**, ULONG*) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject**) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject**) override { return E_FAIL; }

private:
    ULONG Changed(bool taken, LONG count) const
    {
        if (m_look)
            m_look(taken, count);
        return static_cast<ULONG>(count);
    }

    const Look m_look;
    std::atomic<LONG> m_count = 0;
};
