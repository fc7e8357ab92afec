#include "MemoryObject.h"

#include "InterfaceAnswer.h"
#include "MemoryHost.h"

#include <string_view>

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
