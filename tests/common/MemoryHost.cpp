#include "MemoryHost.h"

#include <cassert>

namespace
{
constexpr CLSID kStoreClass = {0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};
constexpr CLSID kGatewayClass = {
    0xD7C07373, 0x29C3, 0x43A4, {0x87, 0xCF, 0xF6, 0xD5, 0xE9, 0x47, 0xD6, 0xE6}};
} // namespace

/// An object that only leads to a data object.
class MemoryReference final : public CountedObject<IUnknown>
{
public:
    MemoryReference(MemoryRecord& record, const std::string& name, ComPtr<MemoryObject> object)
        : m_record(record), m_life(record), m_object(std::move(object))
    {
        m_record.Name(this, name);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        return iid == __uuidof(IUnknown) ? CountedObject::QueryInterface(iid, result)
                                         : m_object->QueryInterface(iid, result);
    }

private:
    ~MemoryReference() override { m_record.Forget(this); }

    MemoryRecord& m_record;
    const MemoryRecord::Life m_life;
    ComPtr<MemoryObject> m_object;
};

MemoryHost::MemoryHost()
    : m_ptrQuery(new MemoryQuery(*this)), m_ptrFactory(new MemoryFactory(*this)),
      m_ptrLoader(new MemoryLoader(*this)), m_ptrManager(new MemoryManager(*this)),
      m_ptrSettings(new MemorySettings(*this)), m_ptrStore(new MemoryStore(*this)),
      m_ptrGateway(new MemoryGateway(*this, m_ptrQuery.get())), m_ptrExpander(new MemoryExpander(*this))
{
    m_ptrManager->object.queryFrom(static_cast<IQPFObject*>(m_ptrLoader.get()));
    m_ptrManager->Service(kStoreClass, m_ptrStore.get());
    m_ptrManager->Service(kGatewayClass, m_ptrGateway.get());
    m_ptrManager->Service(MemoryExpander::kClass, m_ptrExpander.get());
    Name(m_ptrQuery.get(), "query");
    Name(m_ptrFactory.get(), "config");
}

MemoryHost::~MemoryHost()
{
    m_ptrQuery->Clear();
    m_ptrFactory->types.objects.clear();
    m_ptrManager->Clear();
    m_ptrLoader->Clear();
    CutTrees();
    assert(LiveObjects() == 0);
}

ComPtr<MemoryObject> MemoryHost::Object(std::string name)
{
    return ComPtr<MemoryObject>(new MemoryObject(*this, std::move(name)));
}

ComPtr<MemoryObject> MemoryHost::Named(const wchar_t* name)
{
    const XQPComBSTR text(name);
    ComPtr<MemoryObject> object = Object(Utf8Of(text));
    object->Set(L"name", name);
    return object;
}

ComPtr<IUnknown> MemoryHost::ReferenceTo(std::string name, const ComPtr<MemoryObject>& object)
{
    return ComPtr<IUnknown>(new MemoryReference(*this, name, object));
}

ComPtr<MemoryEnum> MemoryHost::List(const MemoryObjects& objects)
{
    return ComPtr<MemoryEnum>(new MemoryEnum(*this, objects));
}

ComPtr<MemoryEnum> MemoryHost::List(const MemoryObjects& objects, const std::string& name)
{
    return ComPtr<MemoryEnum>(new MemoryEnum(*this, objects, name));
}

ComPtr<MemoryObject> MemoryHost::Known(const std::wstring& id, const wchar_t* name)
{
    ComPtr<MemoryObject> object = Named(name);
    object->Set(L"configured_name", name);
    m_ptrQuery->Set(id, object);
    return object;
}

std::wstring MemoryHost::TreeString(const std::wstring& id)
{
    return L"BrowserTree:" + id + L";";
}

ComPtr<MemoryView> MemoryHost::View(const std::string& name)
{
    return ComPtr<MemoryView>(new MemoryView(*this, name));
}

ComPtr<MemoryRunning> MemoryHost::Views(const std::vector<ComPtr<MemoryView>>& views)
{
    ComPtr<MemoryRunning> list(new MemoryRunning(*this, views, "views"));
    m_ptrManager->Running(MemoryView::kClass, list);
    return list;
}

ComPtr<MemoryObject> MemoryHost::Node(const wchar_t* name, const wchar_t* type, const MemoryObjects& children)
{
    if (!m_ptrFactory->Find(type))
        m_ptrFactory->Type(type);
    ComPtr<MemoryObject> node = Named(name);
    node->TypeName(L"node")->Set(L"configtypename", type)->TypedBy(*m_ptrFactory);
    node->FreshChildren(L"nodes", children);
    return node;
}

ComPtr<MemoryObject> MemoryHost::Relationship(const wchar_t* name, const wchar_t* type,
                                              const ComPtr<MemoryObject>& target,
                                              const MemoryObjects& children)
{
    ComPtr<MemoryObject> made = Node(name, type, children);
    made->Is(L"XDORelationship")->Set(L"relationobjecttarget", target);
    return made;
}

void MemoryHost::CutTrees()
{
    const MemoryObjects all(parents.begin(), parents.end());
    for (const ComPtr<MemoryObject>& object : all)
        object->ForgetChildren();
}
