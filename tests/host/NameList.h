// Names of attributes as the calls take them.
#pragma once

#include "Bstr.h"

#include <windows.h>

#include <vector>

/// Owns the texts.
class NameList
{
public:
    explicit NameList(const std::vector<const wchar_t*>& names)
    {
        for (const wchar_t* name : names)
            m_owned.emplace_back(name);
        for (const Bstr& name : m_owned)
            m_names.push_back(name.get());
    }
    const std::vector<BSTR>& Get() const { return m_names; }

private:
    std::vector<Bstr> m_owned;
    std::vector<BSTR> m_names;
};
