#include "XQPSelectOrvoItem.h"

#include "OutArguments.h"
#include "UiState.h"

namespace qptools
{
HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::Initialize(VARIANT*)
{
    const CUiState state;
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::ShowDialog(IQP_BaseDataObject*, BSTR,
                                                        IQP_BaseDataObject** ppSelectedItem)
{
    const CUiState state;
    ClearOut(ppSelectedItem);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetProject(IQP_BaseDataObject*, IQP_BaseDataObject** ppProject)
{
    const CUiState state;
    ClearOut(ppProject);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetPlanType(IQP_BaseDataObject*, IQP_BaseDataObject** ppPlanType)
{
    const CUiState state;
    ClearOut(ppPlanType);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetTypeName(IQP_BaseDataObject*, BSTR* bstrTypename)
{
    const CUiState state;
    ClearOut(bstrTypename);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetProjectAndPlanType(IQP_BaseDataObject*,
                                                                   IQP_BaseDataObject** ppProject,
                                                                   IQP_BaseDataObject** ppPlanType)
{
    const CUiState state;
    ClearOut(ppProject, ppPlanType);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetTypeNameAndPlanType(IQP_BaseDataObject*, BSTR* bstrTypename,
                                                                    IQP_BaseDataObject** ppPlanType)
{
    const CUiState state;
    ClearOut(bstrTypename, ppPlanType);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE XQPSelectOrvoItem::GetOrvoCompBase(IQP_BaseDataObject*, BSTR,
                                                             IQP_BaseDataObject** pDOBase)
{
    const CUiState state;
    ClearOut(pDOBase);
    return E_NOTIMPL;
}
} // namespace qptools
