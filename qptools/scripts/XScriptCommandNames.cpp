#include "XScriptCommandNames.h"

#include <string>
#include <tuple>
#include <utility>

namespace qptools
{
namespace
{
Bstr WithSuffix(const Bstr& name, int number)
{
    std::wstring text(name.View());
    text += L'(';
    text += std::to_wstring(number);
    text += L')';
    return Bstr(text);
}
} // namespace

bool XScriptCommandNames::Before::operator()(const Bstr& first, const Bstr& second) const noexcept
{
    return VarBstrCmp(first.get(), second.get(), LOCALE_USER_DEFAULT, 0) == static_cast<HRESULT>(VARCMP_LT);
}

void XScriptCommandNames::AddScript(Bstr name, Variant script, ScriptMode mode)
{
    auto [row, isNew] = m_rows.try_emplace(std::move(name));
    if (!isNew)
    {
        // try_emplace moves only what it inserts: `name` still has its text. A suffix once in use stays in
        // use, so that a thousand repeats of one name do not try the same suffixes again and again.
        int& suffix = row->second.nextSuffix;
        while (!isNew)
            std::tie(row, isNew) = m_rows.try_emplace(WithSuffix(name, suffix++));
    }
    row->second.target = std::move(script);
    row->second.mode = mode;
}

void XScriptCommandNames::AddMacro(Bstr name, Variant macro)
{
    ScriptCommandRow& row = m_rows.try_emplace(std::move(name)).first->second;
    row.target = std::move(macro);
    row.mode = ScriptMode::EachObject;
}
} // namespace qptools
