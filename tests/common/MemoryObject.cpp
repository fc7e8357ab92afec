#include "MemoryObject.h"

#include "MemoryConfig.h"
#include "MemoryEnum.h"

#include <string_view>

MemoryObject::MemoryObject(MemoryRecord& record, std::string name)
    : m_record(record), m_life(record), m_name(std::move(name))
{
    m_record.Name(static_cast<IQP_BaseDataObject*>(this), m_name);
}

MemoryObject::~MemoryObject()
{
    m_record.parents.erase(this);
    m_record.Forget(static_cast<IQP_BaseDataObject*>(this));
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

MemoryObject* MemoryObject::Is(const wchar_t* className, HRESULT status)
{
    std::erase_if(m_classes, [&](const auto& known) { return known.first == className; });
    m_classes.emplace_back(className, status);
    return this;
}

MemoryObject* MemoryObject::Table(const wchar_t* name, HRESULT status)
{
    m_table = MemoryAnswer{status, name ? XQPComVariant(name) : XQPComVariant()};
    return this;
}

MemoryObject* MemoryObject::Children(const wchar_t* name, const ComPtr<MemoryEnum>& list, HRESULT status)
{
    return SetChildren({name, list, {}, status});
}

MemoryObject* MemoryObject::FreshChildren(const wchar_t* name, const MemoryObjects& children, HRESULT status)
{
    m_record.parents.insert(this);
    return SetChildren({name, {}, children, status});
}

MemoryObject* MemoryObject::SetChildren(ChildAnswer answer)
{
    for (ChildAnswer& old : m_children)
    {
        if (old.name == answer.name)
        {
            std::swap(old, answer);
            return this;
        }
    }
    m_children.push_back(std::move(answer));
    return this;
}

void MemoryObject::ForgetChildren()
{
    // Moved out first: releasing a child may destroy this object.
    const std::vector<ChildAnswer> forgotten = std::move(m_children);
    m_children.clear();
    m_record.parents.erase(this);
}

HRESULT MemoryObject::QueryInterface(REFIID iid, void** result)
{
    const MemoryRecord::CallScope call;
    if (iid == __uuidof(IQP_BaseDataObject))
    {
        if (m_record.recordingQueries)
            m_record.Record(m_name + ".QueryInterface(IQP_BaseDataObject)");
        if (!offersData)
            return Refuse(result);
    }
    if (iid == __uuidof(IQPObjectRights))
    {
        if (m_record.recordingQueries)
            m_record.Record(m_name + ".QueryInterface(IQPObjectRights)");
        if (!offersRights)
            return Refuse(result);
    }
    return CountedObject::QueryInterface(iid, result);
}

ULONG MemoryObject::AddRef()
{
    if (m_record.onReference)
        m_record.onReference();
    return CountedObject::AddRef();
}

HRESULT MemoryObject::HasRight(enum QPRightType asked)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".HasRight(" + std::to_string(static_cast<int>(asked)) + ")");
    return right;
}

HRESULT MemoryObject::GetAttribute(BSTR name, VARIANT* value)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".GetAttribute(" + Utf8Of(name) + ")");
    const MemoryAnswer* answer = Find(std::wstring_view(name, SysStringLen(name)));
    if (!answer)
        return S_FALSE;
    VariantCopy(value, const_cast<VARIANT*>(&answer->value.Value()));
    return answer->status;
}

HRESULT MemoryObject::Unexpected(const char* method)
{
    m_record.Record(m_name + "." + method + "()");
    return E_NOTIMPL;
}

HRESULT MemoryObject::GetTableName(BSTR* name)
{
    if (!m_table)
        return Unexpected("GetTableName");
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".GetTableName()");
    *name = m_table->value.Type() == VT_BSTR ? SysAllocString(m_table->value.Value().bstrVal) : nullptr;
    return m_table->status;
}

HRESULT MemoryObject::GetChildren(BSTR name, IEnumBaseDataObject** children)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".GetChildren(" + Utf8Of(name) + ")");
    *children = nullptr;
    const std::wstring_view asked(name, SysStringLen(name));
    for (const ChildAnswer& answer : m_children)
    {
        if (asked != answer.name)
            continue;
        ComPtr<MemoryEnum> list = answer.list;
        if (answer.children)
            list =
                ComPtr<MemoryEnum>(new MemoryEnum(m_record, *answer.children, m_name + " " + Utf8Of(name)));
        else if (list)
            list->Rewind();
        *children = list.detach();
        return answer.status;
    }
    return E_INVALIDARG;
}

HRESULT MemoryObject::IsDerivedFromClass(BSTR className)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".IsDerivedFromClass(" + Utf8Of(className) + ")");
    const std::wstring_view asked(className, SysStringLen(className));
    for (const auto& [name, status] : m_classes)
        if (asked == name)
            return status;
    return S_FALSE;
}

MemoryObject* MemoryObject::TypeName(const wchar_t* name, HRESULT status)
{
    m_typeName = MemoryAnswer{status, name ? XQPComVariant(name) : XQPComVariant()};
    return this;
}

HRESULT MemoryObject::GetTypeName(BSTR* name)
{
    if (!m_typeName)
        return Unexpected("GetTypeName");
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".GetTypeName()");
    *name = m_typeName->value.Type() == VT_BSTR ? SysAllocString(m_typeName->value.Value().bstrVal) : nullptr;
    return m_typeName->status;
}

MemoryObject* MemoryObject::Type(MemoryType* type, HRESULT status)
{
    m_type = MemoryAnswer{status, XQPComVariant(MemoryValue(type).Value())};
    m_typedBy = nullptr;
    return this;
}

MemoryObject* MemoryObject::TypedBy(MemoryFactory& factory)
{
    m_typedBy = &factory;
    return this;
}

HRESULT MemoryObject::GetType(BSTR typeName, BSTR configName, IQPType** type)
{
    if (!m_type && !m_typedBy)
        return Unexpected("GetType");
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".GetType(" + Utf8OrNull(typeName) + ", " + Utf8OrNull(configName) + ")");
    if (m_typedBy)
        return m_typedBy->TypeNamed(typeName, configName, type);
    ComPtr<IQPType> answer;
    answer.queryFrom(m_type->value.Value().punkVal);
    *type = answer.detach();
    return m_type->status;
}

HRESULT MemoryObject::GetClientId(LONG* id)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".GetClientId()");
    *id = clientId;
    return S_OK;
}
