// A data object whose answers contain rows that were not requested.
#pragma once

#include "BareObject.h"
#include "MemoryValue.h"

#include "ComPtr.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

/// GetAttributes, SetAttributes and SetAttributesMultiLingual return S_OK and these rows; nothing else is
/// implemented.
class OddAnswer final : public BareMethods<CountedObject<IQP_BaseDataObject>>
{
public:
    using Rows = std::vector<std::pair<std::wstring, MemoryValue>>;

    static ComPtr<OddAnswer> Of(Rows rows) { return ComPtr<OddAnswer>(new OddAnswer(std::move(rows))); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override { return Refuse(result); }
    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY**, SAFEARRAY** rows) override { return Answer(rows); }
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY**, SAFEARRAY** rows) override { return Answer(rows); }
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY** rows) override
    {
        return Answer(rows);
    }

private:
    explicit OddAnswer(Rows rows) : m_rows(std::move(rows)) {}
    ~OddAnswer() override = default;

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
};
