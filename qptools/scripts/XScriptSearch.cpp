#include "XScriptSearch.h"

#include "HostConstants.h"
#include "ObjectValue.h"

#include "ComPtr.h"

namespace qptools
{
namespace
{
constexpr FixedText kAttributePlanTypeSet = L"orvoplantypeset";

/// A value that borrows its content: never cleared.
VARIANT Borrowed(VARTYPE type)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    return value;
}

/// A null text stays a null one, which the system's copy does not promise.
HRESULT CopyOf(const VARIANT& value, Variant& copy)
{
    if (value.vt != VT_BSTR || value.bstrVal)
        return CopyResolved(value, copy);
    *copy.put() = value;
    return S_OK;
}
} // namespace

HRESULT XScriptSearch::SetCatenation(LONG catenation)
{
    return m_query ? m_query->SetSearchCatenation(catenation) : E_POINTER;
}

HRESULT XScriptSearch::SetCriterion(const FixedText& attribute, LONG comparison, const VARIANT& value)
{
    if (!m_query)
        return E_POINTER;
    // A copy, because a reference has to arrive resolved, and because the value may be an answer of the host
    // that is passed back more than once: whatever the host does with the copy, the answer stays unchanged.
    Variant copy;
    const HRESULT status = CopyOf(value, copy);
    if (status < 0)
        return status;
    return m_query->SetSearchAttribute(attribute, comparison, copy.get(), kCatenationNone);
}

void XScriptSearch::Equals(const FixedText& attribute, const VARIANT& value)
{
    SetCriterion(attribute, kSearchEquals, value);
}

void XScriptSearch::EqualsText(const FixedText& attribute, BSTR text)
{
    VARIANT value = Borrowed(VT_BSTR);
    value.bstrVal = text;
    Equals(attribute, value);
}

void XScriptSearch::EqualsObject(const FixedText& attribute, IUnknown* object)
{
    Equals(attribute, BorrowedObject(object));
}

void XScriptSearch::EqualsNumber(const FixedText& attribute, LONG number)
{
    VARIANT value = Borrowed(VT_I4);
    value.lVal = number;
    Equals(attribute, value);
}

void XScriptSearch::EqualsTrue(const FixedText& attribute)
{
    VARIANT value = Borrowed(VT_BOOL);
    value.boolVal = VARIANT_TRUE;
    Equals(attribute, value);
}

HRESULT XScriptSearch::Begin(const FixedText& table)
{
    const HRESULT status = m_query->ResetSearch(kResetAll);
    return status < 0 ? status : m_query->SetSearchTable(table);
}

void XScriptSearch::NarrowByType(BSTR typeName)
{
    EqualsText(kAttributeType, typeName);
    SetCatenation(kCatenationAnd);
}

void XScriptSearch::NarrowByPlanType(IQP_BaseDataObject* planType, BSTR typeName,
                                     const XScriptMasters& masters,
                                     std::initializer_list<FixedText> typesWithMaster)
{
    SetCatenation(kCatenationOpen);
    if (!masters.HasPlanType())
    {
        EqualsObject(kAttributePlanType, planType);
    }
    else
    {
        SetCatenation(kCatenationOpen);
        for (const FixedText& type : typesWithMaster)
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
    EqualsText(kAttributeType, typeName);
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
    const HRESULT status = m_query->GetSearchResult(result.put());
    if (status == S_OK && result && found)
        *found = result.detach();
    return status;
}
} // namespace qptools
