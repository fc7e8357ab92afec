#include "MemoryHost.h"

#include "InterfaceAnswer.h"

#include <cassert>

std::string Utf8Of(BSTR text)
{
    const int length = static_cast<int>(SysStringLen(text));
    if (length == 0)
        return {};
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

/// An object that only leads to a data object.
class MemoryReference final : public IUnknown
{
public:
    MemoryReference(MemoryHost& host, std::string name, ComPtr<MemoryObject> object)
        : m_host(host), m_object(std::move(object))
    {
        ++m_host.m_liveObjects;
        m_host.m_names[this] = std::move(name);
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
    ~MemoryReference()
    {
        --m_host.m_liveObjects;
        m_host.m_names.erase(this);
    }

    MemoryHost& m_host;
    ComPtr<MemoryObject> m_object;
    ULONG m_count = 0;
};

int MemoryHost::s_depth = 0;

MemoryHost::MemoryHost() : m_ptrQuery(new MemoryQuery(*this)) {}

MemoryHost::~MemoryHost()
{
    m_ptrQuery->result.reset();
    assert(m_liveObjects == 0);
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
    return ComPtr<IUnknown>(new MemoryReference(*this, std::move(name), object));
}

ComPtr<MemoryEnum> MemoryHost::List(std::vector<ComPtr<MemoryObject>> objects)
{
    return ComPtr<MemoryEnum>(new MemoryEnum(*this, std::move(objects)));
}

void MemoryHost::Record(const std::string& call)
{
    calls.push_back(call);
    if (onCall)
        onCall(call);
}

std::string MemoryHost::NameOf(IUnknown* object) const
{
    if (!object)
        return "null";
    const auto found = m_names.find(object);
    return found == m_names.end() ? "an unknown object" : found->second;
}

std::string MemoryHost::Describe(const VARIANT& value) const
{
    switch (value.vt)
    {
    case VT_EMPTY:
        return "EMPTY";
    case VT_BSTR:
        return value.bstrVal ? "BSTR '" + Utf8Of(value.bstrVal) + "'" : "BSTR null";
    case VT_UNKNOWN:
        return "UNKNOWN " + NameOf(value.punkVal);
    case VT_I4:
        return "I4 " + std::to_string(value.lVal);
    case VT_BOOL:
        return value.boolVal == VARIANT_TRUE ? "BOOL true" : "BOOL " + std::to_string(value.boolVal);
    default:
        return "type " + std::to_string(value.vt);
    }
}
