// A data object whose answers contain rows that were not requested.
#pragma once

#include "InterfaceAnswer.h"
#include "MemoryValue.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

/// GetAttributes, SetAttributes and SetAttributesMultiLingual return S_OK and these rows; nothing else is
/// implemented.
class OddAnswer final : public IQP_BaseDataObject
{
public:
    using Rows = std::vector<std::pair<std::wstring, MemoryValue>>;

    static ComPtr<OddAnswer> Of(Rows rows) { return ComPtr<OddAnswer>(new OddAnswer(std::move(rows))); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override { return Refuse(result); }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_count;
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY**, SAFEARRAY** rows) override { return Answer(rows); }
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY**, SAFEARRAY** rows) override { return Answer(rows); }
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY** rows) override
    {
        return Answer(rows);
    }

    HRESULT STDMETHODCALLTYPE GetTableName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttribute(BSTR, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetChildren(BSTR, IEnumBaseDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClientId(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributeMultiLingual(BSTR, LONG, VARIANT) override { return E_NOTIMPL; }

private:
    explicit OddAnswer(Rows rows) : m_rows(std::move(rows)) {}
    ~OddAnswer() = default;

    HRESULT Answer(SAFEARRAY** rows) const
    {
        std::array<SAFEARRAYBOUND, 2> bounds{{{static_cast<ULONG>(m_rows.size()), 0}, {2, 0}}};
        *rows = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
        std::array<LONG, 2> cell = {0, 0};
        for (const auto& [name, value] : m_rows)
        {
            cell[1] = 0;
            SafeArrayPutElement(*rows, cell.data(), const_cast<VARIANT*>(&MemoryValue(name.c_str()).Value()));
            cell[1] = 1;
            SafeArrayPutElement(*rows, cell.data(), const_cast<VARIANT*>(&value.Value()));
            ++cell[0];
        }
        return S_OK;
    }

    const Rows m_rows;
    ULONG m_count = 0;
};
