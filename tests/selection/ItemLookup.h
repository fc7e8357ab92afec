// Look-ups of one object in memory, and what it may refer to.
#pragma once

#include "LookupFixture.h"

inline const std::string kPlanTypeFailed =
    "XSelectOrvoitemDlg::GetPlantypeFromDO    pDO->GetAttribute(orvoplantype)";
inline const std::string kTypeNameFailed = "XSelectOrvoitemDlg::GetTypeNameFromDO    pDO->GetTableName";
inline const std::string kCompBaseFailed =
    "XSelectOrvoitemDlg::GetOrvoCompBase    pDO->GetAttribute(orvocompbase)";

class ItemLookup : public LookupFixture
{
protected:
    Answer PlanTypeOf(Data* asked)
    {
        return Ask([&](Data** result) { return item->GetPlanType(asked, result); });
    }
    Answer PlanTypeWith(HRESULT status, const VARIANT& value)
    {
        object->Answer(L"orvoplantype", status, value);
        return PlanTypeOf(object.get());
    }

    Answer TypeNameOf(Data* asked)
    {
        host.calls.clear();
        BSTR result = reinterpret_cast<BSTR>(Untouched<int>());
        const HRESULT status = item->GetTypeName(asked, &result);
        return {status, TakeOver(result)};
    }

    Answer CompBaseOf(Data* asked, const wchar_t* typeName)
    {
        const XQPComBSTR type(typeName);
        return Ask([&](Data** result) {
            return item->GetOrvoCompBase(asked, typeName ? static_cast<BSTR>(type) : nullptr, result);
        });
    }
    Answer CompBaseWith(HRESULT status, const VARIANT& value)
    {
        object->Answer(L"orvocompbase", status, value);
        return CompBaseOf(object.get(), L"subcompitem");
    }

    static VARIANT To(const ComPtr<MemoryObject>& target, VARTYPE type = VT_UNKNOWN)
    {
        return Reference(type, static_cast<Data*>(target.get()));
    }

    const ComPtr<MemoryObject> object = host.Object("object");
    const ComPtr<MemoryObject> planType = host.Object("plantype");
    const ComPtr<MemoryObject> base = host.Object("base");
    const ComPtr<MemoryObject> project = host.Object("project");
};
