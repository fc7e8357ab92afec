// The parameters of the generic selection dialog.
#pragma once

#include "Bstr.h"

#include "qptools.h"

#include <string>
#include <vector>

/// Named values in the order in which they were added. Owns the texts; borrows the objects.
class CSelectParameters
{
public:
    void Add(const std::wstring& name, const wchar_t* text);
    void Add(const std::wstring& name, IUnknown* object);

    /// Adds an object to the list, with the text that the user sees.
    void AddEntry(const wchar_t* prompt, IUnknown* object);

    ULONG Count() const { return static_cast<ULONG>(m_records.size()); }
    tagINITVALUE* Records() { return m_records.data(); }

private:
    BSTR Keep(const wchar_t* text);

    std::vector<Bstr> m_texts;
    std::vector<tagINITVALUE> m_records;
    int m_entries = 0;
};
