// The component that lets a user choose an item and looks up the context of any data object.
#pragma once

#include "ComObject.h"
#include "ComPtr.h"

#include "qptools.h"

namespace qptools
{
/// A look-up writes its results only if it returns S_OK; null then means that nothing was found. Objects come
/// with a reference, and the caller frees texts. Result pointers may be null. XSelectOrvoitemDlg says what
/// each look-up finds and returns; every method may also return E_OUTOFMEMORY.
class XQPSelectOrvoItem final : public ComObject<XQPSelectOrvoItem, IQPSelectOrvoItem>
{
public:
    /// Sets the query with which scripts are searched, from a VT_UNKNOWN or VT_DISPATCH, also with VT_BYREF.
    /// Any other value, a null reference and a null pointer leave the query unchanged; an object that is no
    /// query leaves none. Returns S_OK.
    HRESULT STDMETHODCALLTYPE Initialize(VARIANT* pInitValues) override;

    /// Shows the scripts of the project of `pProject` if `bstrItemTypeName` is "script"; for any other name
    /// shows a message only. Returns S_OK with the choice; S_FALSE, with nothing written, if there was none;
    /// E_POINTER if `ppSelectedItem` is null and there was a choice.
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
    HRESULT Ask(IQP_BaseDataObject* object, Body&& body) noexcept;

    ComPtr<IQP_Query> m_ptrQuery;
};
} // namespace qptools
