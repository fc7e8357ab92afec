#include "XQPSelectOrvoItem.h"

#include "XSelectOrvoitemDlg.h"

#include "ObjectValue.h"

#include "InModule.h"
#include "WaitCursor.h"

#include <utility>

namespace qptools
{
namespace
{
using Object = IQP_BaseDataObject;

// Each runs one look-up into a local result and writes that, null included, if the look-up returns S_OK.

HRESULT AskProject(const XSelectOrvoitemDlg& lookups, Object* object, Object** result)
{
    ComPtr<Object> project;
    const HRESULT status = lookups.GetProjectFromDO(object, project.put());
    if (status == S_OK)
        project.copyTo(result);
    return status;
}

HRESULT AskPlanType(const XSelectOrvoitemDlg& lookups, Object* object, Object** result)
{
    ComPtr<Object> planType;
    const HRESULT status = lookups.GetPlantypeFromDO(object, planType.put());
    if (status == S_OK)
        planType.copyTo(result);
    return status;
}

HRESULT AskTypeName(const XSelectOrvoitemDlg& lookups, Object* object, BSTR* result)
{
    XQPComBSTR name;
    const HRESULT status = lookups.GetTypeNameFromDO(object, name.put());
    if (status == S_OK && result)
        *result = name.Detach();
    return status;
}

HRESULT AskCompBase(const XSelectOrvoitemDlg& lookups, Object* object, BSTR typeName, Object** result)
{
    ComPtr<Object> base;
    const HRESULT status = lookups.GetOrvoCompBase(object, typeName, base.put());
    if (status == S_OK)
        base.copyTo(result);
    return status;
}
} // namespace

/// Runs `body` on a dialog that is never shown.
template <class Body>
HRESULT XQPSelectOrvoItem::Ask(IQP_BaseDataObject* object, Body&& body) noexcept
{
    return InModule(*this, [&] {
        const XSelectOrvoitemDlg lookups(nullptr, nullptr, object, m_ptrQuery.get());
        return body(lookups);
    });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::Initialize(VARIANT* pInitValues)
{
    return InModule(*this, [&] {
        IUnknown* const given = pInitValues ? ObjectOf(*pInitValues) : nullptr;
        if (given && given != m_ptrQuery.get())
        {
            ComPtr<IQP_Query> query;
            query.queryFrom(given);
            m_ptrQuery = std::move(query);
        }
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::ShowDialog(IQP_BaseDataObject* pProject, BSTR bstrItemTypeName,
                                                        IQP_BaseDataObject** ppSelectedItem)
{
    return InModule(*this, [&] {
        XSelectOrvoitemDlg dialog(nullptr, bstrItemTypeName, pProject, m_ptrQuery.get());
        if (dialog.DoModal() != IDOK)
            return S_FALSE;
        const CWaitCursor wait;
        return dialog.GetSelectedObject(ppSelectedItem);
    });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetProject(IQP_BaseDataObject* pDO,
                                                        IQP_BaseDataObject** ppProject)
{
    return Ask(pDO, [&](const XSelectOrvoitemDlg& lookups) { return AskProject(lookups, pDO, ppProject); });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetPlanType(IQP_BaseDataObject* pDO,
                                                         IQP_BaseDataObject** ppPlanType)
{
    return Ask(pDO, [&](const XSelectOrvoitemDlg& lookups) { return AskPlanType(lookups, pDO, ppPlanType); });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetTypeName(IQP_BaseDataObject* pDO, BSTR* bstrTypename)
{
    return Ask(pDO,
               [&](const XSelectOrvoitemDlg& lookups) { return AskTypeName(lookups, pDO, bstrTypename); });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetProjectAndPlanType(IQP_BaseDataObject* pDO,
                                                                   IQP_BaseDataObject** ppProject,
                                                                   IQP_BaseDataObject** ppPlanType)
{
    return Ask(pDO, [&](const XSelectOrvoitemDlg& lookups) {
        const HRESULT status = AskProject(lookups, pDO, ppProject);
        return status == S_OK ? AskPlanType(lookups, pDO, ppPlanType) : status;
    });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetTypeNameAndPlanType(IQP_BaseDataObject* pDO,
                                                                    BSTR* bstrTypename,
                                                                    IQP_BaseDataObject** ppPlanType)
{
    return Ask(pDO, [&](const XSelectOrvoitemDlg& lookups) {
        const HRESULT status = AskTypeName(lookups, pDO, bstrTypename);
        return status == S_OK ? AskPlanType(lookups, pDO, ppPlanType) : status;
    });
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetOrvoCompBase(IQP_BaseDataObject* pDO, BSTR bstrTypename,
                                                             IQP_BaseDataObject** pDOBase)
{
    return Ask(pDO, [&](const XSelectOrvoitemDlg& lookups) {
        return AskCompBase(lookups, pDO, bstrTypename, pDOBase);
    });
}
} // namespace qptools
