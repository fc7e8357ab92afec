// The component that lets a user choose an item and that looks up the context of any data object.
#pragma once

#include "ComObject.h"
#include "ComPtr.h"

#include "qptools.h"

namespace qptools
{
/// A look-up writes its results, objects with a reference and texts for the caller to free, only where it
/// returns S_OK: null then means that there is none. Result addresses may be null. See XSelectOrvoitemDlg for
/// what each finds and returns; every method may return E_OUTOFMEMORY besides.
class XQPSelectOrvoItem final : public ComObject<XQPSelectOrvoItem, IQPSelectOrvoItem>
{
public:
    /// Takes the query with which scripts are searched: a reference (VT_UNKNOWN, VT_DISPATCH, also by
    /// address) to it. Anything else and a null pointer leave the query as it is; an object that is no query
    /// takes it away. Returns S_OK.
    HRESULT STDMETHODCALLTYPE Initialize(VARIANT* pInitValues) override;

    /// Shows the scripts of the project of `pProject` if `bstrItemTypeName` is "script", for any other name a
    /// message. Returns S_OK with the choice; S_FALSE, with nothing written, if there was none; E_POINTER for
    /// a choice with nowhere to write it.
    HRESULT STDMETHODCALLTYPE ShowDialog(IQP_BaseDataObject* pProject, BSTR bstrItemTypeName,
                                         IQP_BaseDataObject** ppSelectedItem) override;

    HRESULT STDMETHODCALLTYPE GetProject(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppProject) override;
    HRESULT STDMETHODCALLTYPE GetPlanType(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppPlanType) override;

    /// The name of the object's table.
    HRESULT STDMETHODCALLTYPE GetTypeName(IQP_BaseDataObject* pDO, BSTR* bstrTypename) override;

    /// Returns the status of the first look-up that is not S_OK. The project is written before the plan type
    /// is looked up.
    HRESULT STDMETHODCALLTYPE GetProjectAndPlanType(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppProject,
                                                    IQP_BaseDataObject** ppPlanType) override;

    /// The same with the name of the table.
    HRESULT STDMETHODCALLTYPE GetTypeNameAndPlanType(IQP_BaseDataObject* pDO, BSTR* bstrTypename,
                                                     IQP_BaseDataObject** ppPlanType) override;

    HRESULT STDMETHODCALLTYPE GetOrvoCompBase(IQP_BaseDataObject* pDO, BSTR bstrTypename,
                                              IQP_BaseDataObject** pDOBase) override;

private:
    template <class Body>
    HRESULT Ask(IQP_BaseDataObject* object, Body&& body) const noexcept;

    ComPtr<IQP_Query> m_ptrQuery;
};
} // namespace qptools
