// The macros that XDlgScriptCommand offers. They are inside the VBA projects, which only the host's loader
// reads.
#include "XDlgScriptCommand.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ObjectValue.h"
#include "ProjectSearch.h"

#include "XInitValueWrapper.h"

#include "ComException.h"
#include "SafeArray.h"

#include "qpservices.h"

namespace qptools
{
namespace
{
/// An array of named values in task memory.
struct NamedValues
{
    NamedValues() = default;
    NamedValues(const NamedValues&) = delete;
    NamedValues& operator=(const NamedValues&) = delete;
    ~NamedValues() { XInitValueWrapper::FreeStruct(count, values); }

    ULONG count = 0;
    tagINITVALUE* values = nullptr;
};

/// A VT_ARRAY of references; its array is null if it could not be created.
XQPComVariant ArrayOf(const std::vector<ComPtr<IQP_BaseDataObject>>& objects)
{
    XQPComVariant made;
    VARIANT& value = made.Value();
    value.parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(objects.size()));
    value.vt = VT_ARRAY | VT_VARIANT;
    LONG index = 0;
    for (const ComPtr<IQP_BaseDataObject>& object : objects)
    {
        // On purpose an element that cannot be stored stays empty.
        VARIANT element = BorrowedObject(object.get());
        if (value.parray)
            SafeArrayPutElement(value.parray, &index, &element);
        ++index;
    }
    return made;
}

/// The names of a reply: the texts of "Macro1", "Macro2" ... up to the number of its entries. What has no
/// text is skipped.
void AddMacros(const NamedValues& reply, std::set<std::wstring>& macros)
{
    const XInitValueWrapper values(reply.count, reply.values);
    for (ULONG number = 1; number <= reply.count; ++number)
    {
        Variant name;
        if (values.GetData((L"Macro" + std::to_wstring(number)).c_str(), *name.put()) && ConvertToText(name))
            macros.emplace(name.View());
    }
}
} // namespace

HRESULT XDlgScriptCommand::LoadMacros()
{
    std::vector<ComPtr<IQP_BaseDataObject>> projects;
    HRESULT status = LoadVBAProjects(projects);
    if (status < 0 || projects.empty())
        return status;
    if (!m_ptrObjectManager)
        return E_POINTER;
    // On purpose the result is not checked: if it fails, GetObject is called with the null identifier.
    CLSID loaderClass{};
    CLSIDFromProgID(L"VBALoader.VBALoaderManager", &loaderClass);
    ComPtr<IQPFObject> object;
    status = m_ptrObjectManager->GetObject(loaderClass, kAutoCreate, object.put());
    if (!object)
        return status;
    ComPtr<IVBALoaderManager> loader;
    loader.queryFrom(object.get());
    return loader ? InvokeLoader(loader.get(), projects) : E_NOINTERFACE;
}

HRESULT XDlgScriptCommand::LoadVBAProjects(std::vector<ComPtr<IQP_BaseDataObject>>& projects) const
{
    ComPtr<IEnumBaseDataObject> found;
    const HRESULT status = SearchProject(m_ptrQuery.get(), kTableVbaProject, m_ptrProject.get(), found);
    if (status < 0 || !found)
        return status;
    std::set<IQP_BaseDataObject*> known;
    WalkBatches(found.get(), [&](IQP_BaseDataObject* project) {
        // On purpose the reference that the enumerator handed over is never released.
        project->AddRef();
        if (known.insert(project).second)
            projects.emplace_back(project);
        return BatchStep::NextObject;
    });
    return S_OK;
}

HRESULT XDlgScriptCommand::InvokeLoader(IVBALoaderManager* loader,
                                        const std::vector<ComPtr<IQP_BaseDataObject>>& projects)
{
    XInitValueWrapper request(0, nullptr);
    request.SetData(L"pProject", BorrowedObject(m_ptrProject.get()));
    request.SetData(L"pQuery", BorrowedObject(m_ptrQuery.get()));
    request.SetData(L"pConfigFactory", BorrowedObject(m_ptrFactory.get()));
    request.SetData(L"bstrConfigName", XQPComVariant(L"Default Configuration"));
    request.SetData(L"bLogEnabled", Variant::OfNumber(0).get());
    request.SetData(L"pVBAProjectsArray", ArrayOf(projects));
    // The operation, which has no argument of its own.
    request.SetData(L"Menupath", XQPComVariant(L"GetListOfMacros"));
    request.SetData(L"pSelectedObject", BorrowedObject(m_ptrObject.get()));
    NamedValues sent;
    if (!request.GetStruct(sent.count, &sent.values))
        ThrowOutOfMemory();
    NamedValues reply;
    const HRESULT status = loader->Invoke(sent.count, sent.values, &reply.count, &reply.values);
    if (status == S_OK)
        AddMacros(reply, m_macros);
    return status;
}

const std::set<std::wstring>& XDlgScriptCommand::ReadMacros()
{
    LoadMacros();
    return m_macros;
}
} // namespace qptools
