#include "MemoryHost.h"

#include "InterfaceAnswer.h"

#include <cassert>

/// An object that only leads to a data object.
class MemoryReference final : public IUnknown
{
public:
    MemoryReference(MemoryRecord& record, const std::string& name, ComPtr<MemoryObject> object)
        : m_record(record), m_life(record), m_object(std::move(object))
    {
        m_record.Name(this, name);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        if (iid == __uuidof(IUnknown))
            return Give(static_cast<IUnknown*>(this), result);
        return m_object->QueryInterface(iid, result);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_count;
        if (left == 0)
            delete this;
        return left;
    }

private:
    ~MemoryReference() { m_record.Forget(this); }

    MemoryRecord& m_record;
    const MemoryRecord::Life m_life;
    ComPtr<MemoryObject> m_object;
    ULONG m_count = 0;
};

MemoryHost::MemoryHost()
    : m_ptrQuery(new MemoryQuery(*this)), m_ptrFactory(new MemoryFactory(*this)),
      m_ptrLoader(new MemoryLoader(*this)), m_ptrManager(new MemoryManager(*this)),
      m_ptrSettings(new MemorySettings(*this))
{
    m_ptrManager->object.queryFrom(static_cast<IQPFObject*>(m_ptrLoader.get()));
    Name(m_ptrQuery.get(), "query");
    Name(m_ptrFactory.get(), "config");
}

MemoryHost::~MemoryHost()
{
    m_ptrQuery->result.reset();
    m_ptrFactory->types.objects.clear();
    m_ptrManager->object.reset();
    m_ptrLoader->Clear();
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

ComPtr<MemoryEnum> MemoryHost::List(const std::vector<ComPtr<MemoryObject>>& objects)
{
    return ComPtr<MemoryEnum>(new MemoryEnum(*this, objects));
}
