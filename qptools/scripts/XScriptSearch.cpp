#include "XScriptSearch.h"

#include "HostConstants.h"

#include "XQPComBSTR.h"

#include "ComPtr.h"

namespace qptools
{
namespace
{
constexpr wchar_t kAttributePlanTypeSet[] = L"orvoplantypeset";

/// A variant that borrows what it refers to: never cleared.
VARIANT Borrowed(VARTYPE type)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    return value;
}

/// A null text stays a null one, which the platform's copy does not promise.
HRESULT CopyResolved(const VARIANT& value, XHostValue& copy)
{
    if (value.vt != VT_BSTR || value.bstrVal)
        return VariantCopyInd(copy.put(), const_cast<VARIANT*>(&value));
    *copy.put() = value;
    return S_OK;
}
} // namespace

HRESULT XScriptSearch::SetCatenation(LONG catenation)
{
    return m_ptrQuery ? m_ptrQuery->SetSearchCatenation(catenation) : E_POINTER;
}

HRESULT XScriptSearch::SetCriterion(const wchar_t* attribute, LONG comparison, const VARIANT& value)
{
    if (!m_ptrQuery)
        return E_POINTER;
    // The host gets copies of its own of both. The name, because a BSTR has to be made of the literal in any
    // case. The value, because a reference is to arrive resolved, and because it may be an answer of the host
    // that is passed back more than once: whatever the host does with its copy, the answer stays as it was.
    // No memory for the name ends the search like any other want of memory; a value that cannot be copied is
    // the status of this one criterion.
    const XQPComBSTR name(attribute);
    XHostValue copy;
    const HRESULT status = CopyResolved(value, copy);
    if (status < 0)
        return status;
    return m_ptrQuery->SetSearchAttribute(name, comparison, copy.Value(), kCatenationNone);
}

void XScriptSearch::Equals(const wchar_t* attribute, const VARIANT& value)
{
    SetCriterion(attribute, kSearchEquals, value);
}

void XScriptSearch::EqualsText(const wchar_t* attribute, std::wstring_view text)
{
    EqualsBstr(attribute, XQPComBSTR(text.data(), static_cast<int>(text.size())));
}

void XScriptSearch::EqualsBstr(const wchar_t* attribute, BSTR text)
{
    VARIANT value = Borrowed(VT_BSTR);
    value.bstrVal = text;
    Equals(attribute, value);
}

void XScriptSearch::EqualsObject(const wchar_t* attribute, IUnknown* object)
{
    VARIANT value = Borrowed(VT_UNKNOWN);
    value.punkVal = object;
    Equals(attribute, value);
}

void XScriptSearch::EqualsNumber(const wchar_t* attribute, LONG number)
{
    VARIANT value = Borrowed(VT_I4);
    value.lVal = number;
    Equals(attribute, value);
}

void XScriptSearch::EqualsTrue(const wchar_t* attribute)
{
    VARIANT value = Borrowed(VT_BOOL);
    value.boolVal = VARIANT_TRUE;
    Equals(attribute, value);
}

HRESULT XScriptSearch::Begin(const wchar_t* table)
{
    const HRESULT status = m_ptrQuery->ResetSearch(kResetAll);
    return status < 0 ? status : m_ptrQuery->SetSearchTable(XQPComBSTR(table));
}

void XScriptSearch::NarrowByType(BSTR typeName)
{
    EqualsBstr(kAttributeType, typeName);
    SetCatenation(kCatenationAnd);
}

void XScriptSearch::NarrowByPlanType(IQP_BaseDataObject* planType, BSTR typeName,
                                     const XScriptMasters& masters,
                                     std::initializer_list<std::wstring_view> typesWithMaster)
{
    SetCatenation(kCatenationOpen);
    if (!masters.HasPlanType())
    {
        EqualsObject(kAttributePlanType, planType);
    }
    else
    {
        SetCatenation(kCatenationOpen);
        for (const std::wstring_view type : typesWithMaster)
        {
            EqualsText(kAttributeType, type);
            SetCatenation(kCatenationOr);
        }
        EqualsObject(kAttributePlanType, planType);
        SetCatenation(kCatenationOr);
        Equals(kAttributePlanType, masters.PlanType());
        SetCatenation(kCatenationClose);
    }
    SetCatenation(kCatenationOr);
    EqualsBstr(kAttributeType, typeName);
    SetCatenation(kCatenationCloseAnd);
}

void XScriptSearch::NarrowByPlanTypeSet(IQP_BaseDataObject* planTypeSet, const XScriptMasters& masters)
{
    if (!masters.HasPlanTypeSet())
    {
        EqualsObject(kAttributePlanTypeSet, planTypeSet);
        SetCatenation(kCatenationAnd);
        return;
    }
    SetCatenation(kCatenationOpen);
    EqualsObject(kAttributePlanTypeSet, planTypeSet);
    SetCatenation(kCatenationOr);
    Equals(kAttributePlanTypeSet, masters.PlanTypeSet());
    SetCatenation(kCatenationCloseAnd);
}

HRESULT XScriptSearch::Finish(IEnumBaseDataObject** found)
{
    ComPtr<IEnumBaseDataObject> result;
    const HRESULT status = m_ptrQuery->GetSearchResult(result.put());
    if (status == S_OK && result && found)
        *found = result.detach();
    return status;
}
} // namespace qptools
