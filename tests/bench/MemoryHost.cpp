#include "MemoryHost.h"

#include <algorithm>
#include <cassert>
#include <string_view>

namespace
{

template <class Interface>
HRESULT Give(Interface* object, void** result)
{
    object->AddRef();
    *result = object;
    return S_OK;
}

HRESULT Refuse(void** result)
{
    *result = nullptr;
    return E_NOINTERFACE;
}

std::string TextOf(LONG number)
{
    return std::to_string(number);
}

} // namespace

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
        return "I4 " + TextOf(value.lVal);
    case VT_BOOL:
        return value.boolVal == VARIANT_TRUE ? "BOOL true" : "BOOL " + TextOf(value.boolVal);
    default:
        return "type " + std::to_string(value.vt);
    }
}

MemoryObject::MemoryObject(MemoryHost& host, std::string name) : m_host(host), m_name(std::move(name))
{
    ++m_host.m_liveObjects;
    if (m_host.recording)
        m_host.m_names[static_cast<IQP_BaseDataObject*>(this)] = m_name;
}

MemoryObject::~MemoryObject()
{
    --m_host.m_liveObjects;
    if (!m_host.m_names.empty())
        m_host.m_names.erase(static_cast<IQP_BaseDataObject*>(this));
}

MemoryObject* MemoryObject::Set(const wchar_t* attribute, const wchar_t* text)
{
    const XQPComVariant value(text);
    return Answer(attribute, S_OK, value);
}

MemoryObject* MemoryObject::Set(const wchar_t* attribute, LONG number)
{
    VARIANT value;
    value.vt = VT_I4;
    value.lVal = number;
    return Answer(attribute, S_OK, value);
}

MemoryObject* MemoryObject::Set(const wchar_t* attribute, const ComPtr<MemoryObject>& object)
{
    return Set(attribute, static_cast<IQP_BaseDataObject*>(object.get()));
}

MemoryObject* MemoryObject::Set(const wchar_t* attribute, IUnknown* object)
{
    VARIANT value;
    value.vt = VT_UNKNOWN;
    value.punkVal = object;
    return Answer(attribute, S_OK, value);
}

MemoryObject* MemoryObject::Answer(const wchar_t* attribute, HRESULT status, const VARIANT& value)
{
    MemoryAnswer answer{status, XQPComVariant(value)};
    for (auto& [name, old] : m_answers)
    {
        if (name == attribute)
        {
            old = std::move(answer);
            return this;
        }
    }
    m_answers.emplace_back(attribute, std::move(answer));
    return this;
}

MemoryObject* MemoryObject::Fail(const wchar_t* attribute, HRESULT status)
{
    const XQPComVariant empty;
    return Answer(attribute, status, empty);
}

HRESULT MemoryObject::QueryInterface(REFIID iid, void** result)
{
    const MemoryHost::CallScope call;
    if (iid == __uuidof(IQP_BaseDataObject))
    {
        if (m_host.recordingQueries)
            m_host.Record(m_name + ".QueryInterface(IQP_BaseDataObject)");
        return Give(static_cast<IQP_BaseDataObject*>(this), result);
    }
    if (iid == __uuidof(IQPObjectRights))
    {
        if (m_host.recordingQueries)
            m_host.Record(m_name + ".QueryInterface(IQPObjectRights)");
        return offersRights ? Give(static_cast<IQPObjectRights*>(this), result) : Refuse(result);
    }
    if (iid == __uuidof(IUnknown))
        return Give(static_cast<IQP_BaseDataObject*>(this), result);
    return Refuse(result);
}

ULONG MemoryObject::AddRef()
{
    return ++m_count;
}

ULONG MemoryObject::Release()
{
    const ULONG left = --m_count;
    if (left == 0)
        delete this;
    return left;
}

HRESULT MemoryObject::HasRight(enum QPRightType asked)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record(m_name + ".HasRight(" + std::to_string(static_cast<int>(asked)) + ")");
    return right;
}

HRESULT MemoryObject::GetAttribute(BSTR name, VARIANT* value)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record(m_name + ".GetAttribute(" + Utf8Of(name) + ")");
    const std::wstring_view asked(name, SysStringLen(name));
    for (const auto& [attribute, answer] : m_answers)
    {
        if (asked != attribute)
            continue;
        VariantCopy(value, const_cast<VARIANT*>(&answer.value.Value()));
        return answer.status;
    }
    return S_FALSE;
}

HRESULT MemoryObject::Unexpected(const char* method)
{
    m_host.Record(m_name + "." + method + "()");
    return E_NOTIMPL;
}

HRESULT MemoryObject::GetTableName(BSTR*)
{
    return Unexpected("GetTableName");
}

HRESULT MemoryObject::GetTypeName(BSTR*)
{
    return Unexpected("GetTypeName");
}

HRESULT MemoryObject::GetAttributes(SAFEARRAY**, SAFEARRAY**)
{
    return Unexpected("GetAttributes");
}

HRESULT MemoryObject::SetAttribute(BSTR, VARIANT)
{
    return Unexpected("SetAttribute");
}

HRESULT MemoryObject::SetAttributes(SAFEARRAY**, SAFEARRAY**)
{
    return Unexpected("SetAttributes");
}

HRESULT MemoryObject::GetChildren(BSTR, IEnumBaseDataObject**)
{
    return Unexpected("GetChildren");
}

HRESULT MemoryObject::GetType(BSTR, BSTR, IQPType**)
{
    return Unexpected("GetType");
}

HRESULT MemoryObject::GetClientId(LONG*)
{
    return Unexpected("GetClientId");
}

HRESULT MemoryObject::IsDerivedFromClass(BSTR)
{
    return Unexpected("IsDerivedFromClass");
}

HRESULT MemoryObject::SetAttributeMultiLingual(BSTR, LONG, VARIANT)
{
    return Unexpected("SetAttributeMultiLingual");
}

HRESULT MemoryObject::SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY**)
{
    return Unexpected("SetAttributesMultiLingual");
}

MemoryEnum::MemoryEnum(MemoryHost& host, std::vector<ComPtr<MemoryObject>> objects)
    : m_host(host), m_objects(std::move(objects))
{
    ++m_host.m_liveObjects;
}

MemoryEnum::~MemoryEnum()
{
    --m_host.m_liveObjects;
}

HRESULT MemoryEnum::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IEnumBaseDataObject) || iid == __uuidof(IUnknown))
        return Give(static_cast<IEnumBaseDataObject*>(this), result);
    return Refuse(result);
}

ULONG MemoryEnum::AddRef()
{
    return ++m_count;
}

ULONG MemoryEnum::Release()
{
    const ULONG left = --m_count;
    if (left == 0)
        delete this;
    return left;
}

HRESULT MemoryEnum::RemNext(ULONG count, IQP_BaseDataObject** objects, ULONG* fetched)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record("RemNext(" + std::to_string(count) + ")");
    ULONG given = 0;
    while (given < count && m_next < m_objects.size())
    {
        MemoryObject* object = m_objects[m_next++].get();
        if (object)
            object->AddRef();
        objects[given++] = object;
    }
    *fetched = given;
    const auto scripted = statuses.find(m_calls++);
    if (scripted != statuses.end())
        return scripted->second;
    return given == count ? S_OK : S_FALSE;
}

HRESULT MemoryEnum::Reset()
{
    m_next = 0;
    m_calls = 0;
    return S_OK;
}

HRESULT MemoryEnum::Skip(ULONG)
{
    m_host.Record("Skip()");
    return E_NOTIMPL;
}

HRESULT MemoryEnum::Clone(IEnumBaseDataObject**)
{
    m_host.Record("Clone()");
    return E_NOTIMPL;
}

HRESULT MemoryEnum::GetSingleNext(IQP_BaseDataObject**)
{
    m_host.Record("GetSingleNext()");
    return E_NOTIMPL;
}

HRESULT MemoryQuery::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IQP_Query) || iid == __uuidof(IUnknown))
        return Give(static_cast<IQP_Query*>(this), result);
    return Refuse(result);
}

ULONG MemoryQuery::Release()
{
    const ULONG left = --m_count;
    if (left == 0)
        delete this;
    return left;
}

HRESULT MemoryQuery::ResetSearch(LONG onlyWhereClause)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record("ResetSearch(" + TextOf(onlyWhereClause) + ")");
    return resetStatus;
}

HRESULT MemoryQuery::SetSearchTable(BSTR table)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record("SetSearchTable(" + Utf8Of(table) + ")");
    return tableStatus;
}

HRESULT MemoryQuery::SetSearchCatenation(LONG catenation)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record("SetSearchCatenation(" + TextOf(catenation) + ")");
    return catenationStatus;
}

HRESULT MemoryQuery::SetSearchAttribute(BSTR attribute, LONG comparison, VARIANT value, LONG catenation)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
    {
        m_host.Record("SetSearchAttribute(" + Utf8Of(attribute) + ", " + TextOf(comparison) + ", " +
                      m_host.Describe(value) + ", " + TextOf(catenation) + ")");
    }
    return criterionStatus;
}

HRESULT MemoryQuery::SetOrderAttribute(BSTR attribute, LONG ascending)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record("SetOrderAttribute(" + Utf8Of(attribute) + ", " + TextOf(ascending) + ")");
    return orderStatus;
}

HRESULT MemoryQuery::GetSearchResult(IEnumBaseDataObject** found)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record("GetSearchResult()");
    if (result)
    {
        result->Reset();
        result->AddRef();
    }
    *found = result.get();
    return resultStatus;
}

HRESULT MemoryQuery::GetObjectById(BSTR, IUnknown**)
{
    m_host.Record("GetObjectById()");
    return E_NOTIMPL;
}
