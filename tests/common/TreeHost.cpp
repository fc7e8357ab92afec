#include "TreeHost.h"

#include "ArrayText.h"
#include "CountedObject.h"
#include "ForwardingType.h"

#include <array>
#include <cassert>
#include <cwchar>
#include <string_view>
#include <utility>

namespace
{
std::wstring_view ViewOf(BSTR text)
{
    return {text, SysStringLen(text)};
}

void PutText(const std::wstring& text, VARIANT* value)
{
    value->vt = VT_BSTR;
    value->bstrVal = SysAllocString(text.c_str());
}

/// The result array of SetAttributes without a row.
SAFEARRAY* NoResults()
{
    std::array<SAFEARRAYBOUND, 2> bounds{};
    bounds[1].cElements = 2;
    return SafeArrayCreate(VT_VARIANT, 2, bounds.data());
}
} // namespace

/// An object of the host, which counts the references to all of them.
template <class Interface>
class TreeHost::Owned : public OwnedObject<Interface>
{
public:
    explicit Owned(TreeHost& host) : m_host(host) {}

    ULONG STDMETHODCALLTYPE AddRef() override
    {
        ++m_host.m_references;
        return OwnedObject<Interface>::AddRef();
    }
    ULONG STDMETHODCALLTYPE Release() override
    {
        --m_host.m_references;
        return OwnedObject<Interface>::Release();
    }

protected:
    TreeHost& m_host;
};

/// Pages, groups and attributes are those of a type of a MemoryHost.
class TreeHost::ConfigType final : public ForwardingType<Owned<IQPType>>
{
public:
    ConfigType(TreeHost& host, const std::wstring& caption, std::size_t attributes)
        : ForwardingType(Make(host, caption, attributes), host), name(caption)
    {
    }

    const std::wstring name; ///< and caption

    HRESULT STDMETHODCALLTYPE Get(BSTR key, VARIANT* value) override
    {
        const MemoryRecord::CallScope call;
        ++m_host.calls.getCaption;
        if (ViewOf(key) != L"captionsingular")
            return E_INVALIDARG;
        PutText(name, value);
        return S_OK;
    }

private:
    static MemoryType* Make(TreeHost& host, const std::wstring& caption, std::size_t attributes)
    {
        MemoryType* const type = host.m_config.Config().Type(caption.c_str());
        for (std::size_t i = 1; i <= attributes; ++i)
            type->Attribute((L"Attribute " + std::to_wstring(i)).c_str());
        return type;
    }
};

class TreeHost::Object final : public Owned<IQP_BaseDataObject>
{
public:
    Object(TreeHost& host, ConfigType& configType) : Owned(host), m_type(configType) {}

    std::vector<Object*> children; ///< borrowed
    Object* target = nullptr;      ///< of a relationship; borrowed

    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR* typeName) override
    {
        const MemoryRecord::CallScope call;
        ++m_host.calls.getTypeName;
        *typeName = SysAllocString(L"node");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR attribute, VARIANT* value) override
    {
        const MemoryRecord::CallScope call;
        ++m_host.calls.getAttribute;
        if (ViewOf(attribute) == L"configtypename")
            PutText(m_type.name, value);
        else if (ViewOf(attribute) == L"relationobjecttarget" && target)
        {
            value->vt = VT_UNKNOWN;
            value->punkVal = target;
            target->AddRef();
        }
        else
            return S_FALSE;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR configName, IQPType** type) override
    {
        const MemoryRecord::CallScope call;
        ++m_host.calls.getType;
        *type = nullptr;
        if (ViewOf(configName) != m_type.name)
            return E_INVALIDARG;
        m_type.AddRef();
        *type = &m_type;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override
    {
        ++m_host.calls.isDerivedFromClass;
        return target ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE GetChildren(BSTR list, IEnumBaseDataObject** result) override;
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY** pairs, SAFEARRAY** results) override
    {
        const MemoryRecord::CallScope call;
        ++m_host.calls.setAttributes;
        if (m_host.keepsWritten)
            m_host.written = ArrayLine(pairs ? *pairs : nullptr, m_host.m_config);
        *results = m_host.givesResults ? NoResults() : nullptr;
        return m_host.writeStatus;
    }

    HRESULT STDMETHODCALLTYPE GetTableName(BSTR*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY**, SAFEARRAY**) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE SetAttribute(BSTR, VARIANT) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE GetClientId(LONG*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE SetAttributeMultiLingual(BSTR, LONG, VARIANT) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY**) override
    {
        return Unexpected();
    }

private:
    HRESULT Unexpected()
    {
        ++m_host.calls.unexpected;
        return E_NOTIMPL;
    }

    ConfigType& m_type;
};

class TreeHost::Enumerator final : public CountedObject<IEnumBaseDataObject>
{
public:
    Enumerator(TreeHost& host, std::vector<Object*> objects) : m_host(host), m_objects(std::move(objects))
    {
        ++m_host.m_references;
    }

    HRESULT STDMETHODCALLTYPE RemNext(ULONG count, IQP_BaseDataObject** objects, ULONG* fetched) override
    {
        ++m_host.calls.remNext;
        *fetched = 0;
        while (*fetched < count && Next(&objects[*fetched]))
            ++*fetched;
        return *fetched == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject** object) override
    {
        ++m_host.calls.getSingleNext;
        *object = nullptr;
        return Next(object) ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override
    {
        ++m_host.calls.reset;
        m_next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject**) override { return Unexpected(); }

private:
    ~Enumerator() override { --m_host.m_references; }

    bool Next(IQP_BaseDataObject** object)
    {
        if (m_next == m_objects.size())
            return false;
        *object = m_objects[m_next++];
        (*object)->AddRef();
        return true;
    }
    HRESULT Unexpected()
    {
        ++m_host.calls.unexpected;
        return E_NOTIMPL;
    }

    TreeHost& m_host;
    const std::vector<Object*> m_objects;
    std::size_t m_next = 0;
};

HRESULT TreeHost::Object::GetChildren(BSTR list, IEnumBaseDataObject** result)
{
    const MemoryRecord::CallScope call;
    ++m_host.calls.getChildren;
    *result = nullptr;
    if (ViewOf(list) != L"nodes")
        return E_INVALIDARG;
    *result = m_host.ListOf(children).detach();
    return S_OK;
}

TreeHost::TreeHost(const Shape& shape) : m_shape(shape)
{
    m_config.recording = false;
    for (std::size_t i = 1; i <= shape.types; ++i)
    {
        m_types.push_back(
            std::make_unique<ConfigType>(*this, L"Type " + std::to_wstring(i), shape.attributes));
    }
    for (std::size_t i = 0; i < shape.objects; ++i)
        Grow(i);
}

/// Adds the object of that index.
void TreeHost::Grow(std::size_t index)
{
    m_objects.push_back(std::make_unique<Object>(*this, *m_types[index % m_shape.types]));
    if (index == 0)
        return;
    if (m_shape.fanOut != 0)
        Link((index - 1) / m_shape.fanOut, index);
    else if (index % m_shape.depth != 0)
        Link(index - 1, index);
    if (m_shape.relationshipEvery != 0 && (index + 1) % m_shape.relationshipEvery == 0)
        m_objects[index]->target = m_objects[index - 1].get();
}

TreeHost::~TreeHost()
{
    assert(m_references == 0);
}

ComPtr<IEnumBaseDataObject> TreeHost::ListOf(std::vector<Object*> objects)
{
    return ComPtr<IEnumBaseDataObject>(new Enumerator(*this, std::move(objects)));
}

ComPtr<IEnumBaseDataObject> TreeHost::Tops()
{
    std::vector<Object*> tops;
    const std::size_t step = m_shape.fanOut != 0 ? m_shape.objects : m_shape.depth;
    for (std::size_t i = 0; i < m_objects.size(); i += step)
        tops.push_back(m_objects[i].get());
    return ListOf(std::move(tops));
}

ComPtr<IEnumBaseDataObject> TreeHost::All()
{
    std::vector<Object*> all;
    for (const auto& object : m_objects)
        all.push_back(object.get());
    return ListOf(std::move(all));
}

IQP_BaseDataObject* TreeHost::At(std::size_t index)
{
    return m_objects[index].get();
}

IQPType* TreeHost::Type(std::size_t index)
{
    return m_types[index].get();
}

void TreeHost::Link(std::size_t parent, std::size_t child)
{
    m_objects[parent]->children.push_back(m_objects[child].get());
}
