// The look-ups of XSelectOrvoitemDlg: from any data object to its project, plan type, table and component
// base.
#include "XSelectOrvoitemDlg.h"

#include "HostConstants.h"
#include "ObjectValue.h"

#include "WaitCursor.h"

#include <algorithm>
#include <iterator>

namespace qptools
{
namespace
{
constexpr FixedText kAttributeProject = L"orvoproject";

/// Any status but S_OK, failures included, means no.
bool IsOf(IQP_BaseDataObject* object, const FixedText& className)
{
    return object->IsDerivedFromClass(className) == S_OK;
}

/// The classes of objects that refer to their project.
bool IsItemOrKin(IQP_BaseDataObject* object)
{
    static constexpr FixedText kClasses[] = {L"XDOOrvoItem", L"XDOOrvoCompBase", L"XDOSubCompItem",
                                             L"XDOOrvoPlanType", L"XDOOrvoPlanTypeSet"};
    return std::any_of(std::begin(kClasses), std::end(kClasses),
                       [object](const FixedText& name) { return IsOf(object, name); });
}

/// Finds the data object that an attribute refers to. Returns the status of the read; E_NOINTERFACE for a
/// reference to anything else; S_OK with null for a null reference.
HRESULT ReadReference(IQP_BaseDataObject* object, const FixedText& attribute,
                      ComPtr<IQP_BaseDataObject>& referred)
{
    XQPComVariant value;
    const HRESULT status = object->GetAttribute(attribute, &value);
    IUnknown* const target = status == S_OK ? ObjectOf(value.Value()) : nullptr;
    if (!target)
        return status;
    referred.queryFrom(target);
    return referred ? S_OK : E_NOINTERFACE;
}

/// Finds the project of the object that an attribute refers to.
HRESULT ReadProjectBehind(IQP_BaseDataObject* object, const FixedText& attribute,
                          ComPtr<IQP_BaseDataObject>& project)
{
    ComPtr<IQP_BaseDataObject> referred;
    const HRESULT status = ReadReference(object, attribute, referred);
    return referred ? ReadReference(referred.get(), kAttributeProject, project) : status;
}

/// The first class that matches decides.
HRESULT FindProject(IQP_BaseDataObject* object, ComPtr<IQP_BaseDataObject>& project)
{
    if (IsOf(object, L"XDOOrvoProject"))
    {
        project = ComPtr<IQP_BaseDataObject>(object);
        return S_OK;
    }
    if (IsItemOrKin(object))
        return IsOf(object, L"XDOWorkSystemComponent") ? S_FALSE
                                                       : ReadReference(object, kAttributeProject, project);
    if (IsOf(object, kClassRelationship))
        return ReadProjectBehind(object, L"relationobject1", project);
    if (IsOf(object, kClassScriptAction))
        return ReadProjectBehind(object, L"m_pOrvoPlanTypeSet", project);
    return S_OK;
}

void Give(const ComPtr<IQP_BaseDataObject>& found, IQP_BaseDataObject** result)
{
    if (found)
        found.copyTo(result);
}
} // namespace

HRESULT XSelectOrvoitemDlg::GetProjectFromDO(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppProject) const
{
    if (!pDO)
        return E_INVALIDARG;
    const CWaitCursor wait;
    ComPtr<IQP_BaseDataObject> project;
    const HRESULT status = FindProject(pDO, project);
    if (status == S_OK)
        Give(project, ppProject);
    return status;
}

HRESULT XSelectOrvoitemDlg::GetPlantypeFromDO(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppPlanType) const
{
    if (!pDO)
        return E_INVALIDARG;
    const CWaitCursor wait;
    XQPComVariant value;
    const HRESULT status = pDO->GetAttribute(kAttributePlanType, &value);
    if (status < 0)
        return Report(status, L"XSelectOrvoitemDlg::GetPlantypeFromDO    pDO->GetAttribute(orvoplantype)",
                      645);
    if (status != S_OK)
        return status;
    ComPtr<IQP_BaseDataObject> planType;
    planType.queryFrom(ObjectOf(value.Value()));
    Give(planType, ppPlanType);
    return S_OK;
}

HRESULT XSelectOrvoitemDlg::GetTypeNameFromDO(IQP_BaseDataObject* pDO, BSTR* pbstrTypeName) const
{
    if (!pDO)
        return E_INVALIDARG;
    const CWaitCursor wait;
    XQPComBSTR name;
    // On purpose the table's name and not the type's: GetOrvoCompBase and all callers rely on it.
    const HRESULT status = pDO->GetTableName(name.put());
    if (status < 0)
        return Report(status, L"XSelectOrvoitemDlg::GetTypeNameFromDO    pDO->GetTableName", 668);
    if (pbstrTypeName)
        *pbstrTypeName = name.Detach();
    return S_OK;
}

HRESULT XSelectOrvoitemDlg::GetOrvoCompBase(IQP_BaseDataObject* pDO, const wchar_t* typeName,
                                            IQP_BaseDataObject** ppBase) const
{
    const CWaitCursor wait;
    // S_OK on purpose, unlike the other look-ups.
    if (!pDO)
        return S_OK;
    const XQPComBSTR type(typeName);
    if (!(type == L"subcompitem") && !(type == L"subcompitempro"))
    {
        Give(ComPtr<IQP_BaseDataObject>(pDO), ppBase);
        return S_OK;
    }
    XQPComVariant value;
    const HRESULT status = pDO->GetAttribute(kAttributeCompBase, &value);
    IUnknown* const target = status == S_OK ? ObjectOf(value.Value()) : nullptr;
    if (!target)
        return Report(status, L"XSelectOrvoitemDlg::GetOrvoCompBase    pDO->GetAttribute(orvocompbase)", 701);
    ComPtr<IQP_BaseDataObject> base;
    base.queryFrom(target);
    Give(base, ppBase);
    return S_OK;
}
} // namespace qptools
