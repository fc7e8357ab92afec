// The component that lets a user choose an item and that looks up the context of any data object.
#pragma once

#include "ComObject.h"

#include "qptools.h"

namespace qptools
{
/// The dialog and the look-ups are not there yet: every method nulls its results and returns E_NOTIMPL.
class XQPSelectOrvoItem final : public ComObject<XQPSelectOrvoItem, IQPSelectOrvoItem>
{
public:
    HRESULT STDMETHODCALLTYPE Initialize(VARIANT* pInitValues) override;
    HRESULT STDMETHODCALLTYPE ShowDialog(IQP_BaseDataObject* pProject, BSTR bstrItemTypeName,
                                         IQP_BaseDataObject** ppSelectedItem) override;
    HRESULT STDMETHODCALLTYPE GetProject(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppProject) override;
    HRESULT STDMETHODCALLTYPE GetPlanType(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppPlanType) override;
    HRESULT STDMETHODCALLTYPE GetTypeName(IQP_BaseDataObject* pDO, BSTR* bstrTypename) override;
    HRESULT STDMETHODCALLTYPE GetProjectAndPlanType(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppProject,
                                                    IQP_BaseDataObject** ppPlanType) override;
    HRESULT STDMETHODCALLTYPE GetTypeNameAndPlanType(IQP_BaseDataObject* pDO, BSTR* bstrTypename,
                                                     IQP_BaseDataObject** ppPlanType) override;
    HRESULT STDMETHODCALLTYPE GetOrvoCompBase(IQP_BaseDataObject* pDO, BSTR bstrTypename,
                                              IQP_BaseDataObject** pDOBase) override;
};
} // namespace qptools
