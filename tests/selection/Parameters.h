// Parameter arrays as a host hands them over.
#pragma once

#include "BorrowedValues.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <string>
#include <vector>

/// A parameter array as a host makes it.
class Parameters
{
public:
    Parameters() = default;
    ~Parameters()
    {
        for (tagINITVALUE& value : m_values)
        {
            SysFreeString(value.bstrParamName);
            VariantClear(&value.varValue);
        }
    }
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

    Parameters& Add(const std::wstring& name, const VARIANT& value)
    {
        m_values.push_back({SysAllocString(name.c_str()), {}});
        VariantInit(&m_values.back().varValue);
        VariantCopy(&m_values.back().varValue, const_cast<VARIANT*>(&value));
        return *this;
    }
    Parameters& Text(const std::wstring& name, const std::wstring& text)
    {
        return Add(name, XQPComVariant(text.c_str()));
    }
    Parameters& Object(const std::wstring& name, IUnknown* object, VARTYPE type = VT_UNKNOWN)
    {
        return Add(name, ObjectReference(object, type));
    }
    /// The entry `number`.
    Parameters& Entry(int number, const std::wstring& prompt, IUnknown* object)
    {
        const std::wstring digits = std::to_wstring(number);
        return Text(L"Prompt" + digits, prompt).Object(L"Object" + digits, object);
    }

    ULONG Count() const { return static_cast<ULONG>(m_values.size()); }
    tagINITVALUE* Values() { return m_values.data(); }

private:
    std::vector<tagINITVALUE> m_values;
};
