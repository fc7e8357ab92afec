#include "AttributeMap.h"

#include "ValueWord.h"

#include "SafeArray.h"

#include <utility>

namespace qptools
{
namespace
{
/// What GetAttributes returns if it delivers some of the attributes only.
constexpr HRESULT kSomeUnknown = static_cast<HRESULT>(0x8004035E);
constexpr HRESULT kSomeUnreadable = static_cast<HRESULT>(0x80040344);

std::wstring_view TextOf(BSTR text) noexcept
{
    return {text, SysStringLen(text)};
}

VARIANT BorrowedText(BSTR text) noexcept
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    value.bstrVal = text;
    return value;
}

/// The rows of a two-dimensional array of variants that the host made.
struct Rows
{
    SAFEARRAY* array;
    LONG first = 0;
    LONG count = 0;
    LONG firstColumn = 0;

    HRESULT Open()
    {
        VARTYPE type = VT_EMPTY;
        HRESULT status = SafeArrayGetVartype(array, &type);
        if (status < 0)
            return status;
        if (type != VT_VARIANT || SafeArrayGetDim(array) != 2)
            return DISP_E_TYPEMISMATCH;
        LONG last = 0;
        status = SafeArrayGetLBound(array, 1, &first);
        if (status >= 0)
            status = SafeArrayGetUBound(array, 1, &last);
        if (status < 0)
            return status;
        count = last - first + 1;
        return SafeArrayGetLBound(array, 2, &firstColumn);
    }

    /// A copy of the cell in row `index`, counted from 0, with VT_BYREF resolved.
    HRESULT Read(LONG index, LONG column, Variant& value) const
    {
        LONG cell[] = {first + index, column};
        const HRESULT status = SafeArrayGetElement(array, cell, value.put());
        if (status >= 0)
            ResolveReference(value);
        return status;
    }
};

HRESULT ReadOne(IQP_BaseDataObject* object, BSTR name, AttributeMap& map)
{
    Variant value;
    HRESULT status = object->GetAttribute(name, value.put());
    ResolveReference(value);
    if (status == S_FALSE && value.Type() == VT_EMPTY)
    {
        value = Variant::OfText(L"");
        status = S_OK;
    }
    map.Store(Variant::OfText(TextOf(name)), std::move(value));
    return status;
}

HRESULT PutNames(SAFEARRAY* array, std::span<const BSTR> names)
{
    LONG index = 0;
    for (const BSTR name : names)
    {
        const HRESULT status = SafeArrayPutElement(array, &index, name);
        if (status < 0)
            return status;
        ++index;
    }
    return S_OK;
}

HRESULT StoreRows(SAFEARRAY* answer, AttributeMap& map)
{
    Rows rows{answer};
    HRESULT status = rows.Open();
    for (LONG row = 0; status >= 0 && row < rows.count; ++row)
    {
        Variant name;
        Variant value;
        // On purpose columns 0 and 1, whatever the lower bound: only the results of a write begin there.
        status = rows.Read(row, 0, name);
        if (status >= 0)
            status = rows.Read(row, 1, value);
        if (status >= 0)
            map.Store(std::move(name), std::move(value));
    }
    return status;
}

HRESULT ReadSeveral(IQP_BaseDataObject* object, std::span<const BSTR> names, AttributeMap& map)
{
    SafeArray asked(SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(names.size())));
    if (!asked)
        return E_FAIL;
    HRESULT status = PutNames(asked.get(), names);
    if (status < 0)
        return status;
    SafeArray answer;
    status = object->GetAttributes(asked.Address(), answer.put());
    if (status != S_OK && status != kSomeUnknown && status != kSomeUnreadable)
        return status;
    const HRESULT stored = StoreRows(answer.get(), map);
    return stored < 0 ? stored : status;
}

HRESULT WriteOne(IQP_BaseDataObject* object, const AttributePair& pair, std::wstring* errorText,
                 LONG languageId)
{
    const HRESULT status = languageId == 0 ? object->SetAttributeMultiLingual(pair.name, 0, pair.value.get())
                                           : object->SetAttribute(pair.name, pair.value.get());
    if (status < 0 && errorText)
        *errorText = TextOf(pair.name);
    return status;
}

HRESULT PutPairs(SAFEARRAY* array, std::span<const AttributePair> pairs)
{
    LONG row = 0;
    for (const AttributePair& pair : pairs)
    {
        VARIANT name = BorrowedText(pair.name);
        LONG cell[] = {row, 0};
        HRESULT status = SafeArrayPutElement(array, cell, &name);
        cell[1] = 1;
        if (status >= 0)
            status = SafeArrayPutElement(array, cell, const_cast<VARIANT*>(&pair.value.get()));
        if (status < 0)
            return status;
        ++row;
    }
    return S_OK;
}

/// Appends the names of the refused attributes to `refused`. They are those that were sent: the names of the
/// answer are not read.
HRESULT CollectRefused(SAFEARRAY* answer, std::span<const AttributePair> pairs, std::wstring& refused)
{
    Rows rows{answer};
    HRESULT status = rows.Open();
    for (LONG row = 0; status >= 0 && row < rows.count; ++row)
    {
        Variant result;
        status = rows.Read(row, rows.firstColumn + 1, result);
        if (status < 0 || ValueWord(result.get()) == 0)
            continue;
        refused += L'\n';
        if (static_cast<std::size_t>(row) < pairs.size())
            refused += TextOf(pairs[static_cast<std::size_t>(row)].name);
    }
    return status;
}

HRESULT WriteSeveral(IQP_BaseDataObject* object, std::span<const AttributePair> pairs,
                     std::wstring* errorText, LONG languageId)
{
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(pairs.size()), 0}, {2, 0}};
    SafeArray sent(SafeArrayCreate(VT_VARIANT, 2, bounds));
    if (!sent)
        return E_FAIL;
    HRESULT status = PutPairs(sent.get(), pairs);
    if (status < 0)
        return status;
    SafeArray answer;
    status = languageId == 0 ? object->SetAttributes(sent.Address(), answer.put())
                             : object->SetAttributesMultiLingual(sent.Address(), languageId, answer.put());
    if (status < 0)
        return status;
    std::wstring refused;
    status = CollectRefused(answer.get(), pairs, refused);
    if (status < 0 || refused.empty())
        return status < 0 ? status : S_OK;
    if (errorText)
        *errorText = std::move(refused);
    return kAttributesRefused;
}
} // namespace

bool AttributeMap::Order::Less(const VARIANT& left, const VARIANT& right) noexcept
{
    return VarCmp(const_cast<VARIANT*>(&left), const_cast<VARIANT*>(&right), LOCALE_USER_DEFAULT, 0) ==
           static_cast<HRESULT>(VARCMP_LT);
}

void AttributeMap::Store(Variant name, Variant value)
{
    // A name that does not even equal itself would replace the value of another.
    if (VarCmp(const_cast<VARIANT*>(&name.get()), const_cast<VARIANT*>(&name.get()), LOCALE_USER_DEFAULT,
               0) == static_cast<HRESULT>(VARCMP_EQ))
        m_values.insert_or_assign(std::move(name), std::move(value));
}

const VARIANT* AttributeMap::Find(BSTR name) const
{
    const auto found = m_values.find(BorrowedText(name));
    return found == m_values.end() ? nullptr : &found->second.get();
}

HRESULT ReadAttributeMap(IQP_BaseDataObject* object, std::span<const BSTR> names, AttributeMap& map)
{
    if (names.empty())
        return S_OK;
    return names.size() == 1 ? ReadOne(object, names.front(), map) : ReadSeveral(object, names, map);
}

HRESULT WriteAttributePairs(IQP_BaseDataObject* object, std::span<const AttributePair> pairs,
                            std::wstring* errorText, bool allowSingle, LONG languageId)
{
    if (pairs.empty())
        return S_OK;
    return allowSingle && pairs.size() == 1 ? WriteOne(object, pairs.front(), errorText, languageId)
                                            : WriteSeveral(object, pairs, errorText, languageId);
}
} // namespace qptools
