#include "HostDataObject.h"

#include "AttributeArrays.h"
#include "HostCall.h"
#include "HostEnumerator.h"
#include "HostText.h"
#include "HostVariant.h"
#include "HostWork.h"
#include "SqlVariant.h"

#include <new>
#include <vector>

namespace refhost
{
namespace
{
/// GetAttributes: some of the attributes asked for could not be read.
constexpr HRESULT kSomeUnreadable = static_cast<HRESULT>(0x8004035E);

/// All objects of one plant live at one client.
constexpr LONG kClientId = 1;
} // namespace

HostDataObject::HostDataObject(Core core, const Kind& kind, long long id)
    : m_core(std::move(core)), m_kind(kind), m_id(id)
{
}

ComPtr<IQP_BaseDataObject> HostDataObject::Make(const Core& core, const Kind& kind, long long id)
{
    return ComPtr<IQP_BaseDataObject>(new HostDataObject(core, kind, id));
}

ComPtr<HostDataObject> HostDataObject::From(IUnknown* object)
{
    ComPtr<HostDataObject> own;
    void* found = nullptr;
    if (object && object->QueryInterface(kOwnIdentity, &found) == S_OK)
        own.attach(static_cast<HostDataObject*>(found));
    return own;
}

std::string HostDataObject::Label() const
{
    return std::string("<") + m_kind.table + " " + m_core->KeyOf(m_id) + ">";
}

void* HostDataObject::Interface(REFIID iid) noexcept
{
    if (iid == kOwnIdentity)
        return this;
    if (iid == __uuidof(IQPObjectRights) && !OffersRights())
        return nullptr;
    return HostObject::Interface(iid);
}

bool HostDataObject::OffersRights() noexcept
{
    const HostWork atWork;
    try
    {
        Statement statement(m_core->database, R"(SELECT 1 FROM "objectright" WHERE "object" = ?1)");
        return statement.Bind(1, m_id).Step();
    }
    catch (const std::exception& error)
    {
        m_core->NoteError(error.what());
        return false;
    }
}

template <class Outputs, class Body, class... Arguments>
HRESULT HostDataObject::Call(const char* method, const Outputs& outputs, Body&& body,
                             const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, Label(), arguments...); }, outputs, body);
}

HRESULT HostDataObject::GetTableName(BSTR* tableName)
{
    return Call("IQP_BaseDataObject::GetTableName", std::tuple(Out{tableName}), [&] {
        *tableName = MakeBstr(FromUtf8(m_kind.table));
        return S_OK;
    });
}

HRESULT HostDataObject::GetTypeName(BSTR* typeName)
{
    return Call("IQP_BaseDataObject::GetTypeName", std::tuple(Out{typeName}), [&] {
        *typeName = MakeBstr(FromUtf8(m_kind.typeName));
        return S_OK;
    });
}

HRESULT HostDataObject::GetAttribute(BSTR name, VARIANT* value)
{
    return Call(
        "IQP_BaseDataObject::GetAttribute", std::tuple(Out{value}), [&] { return Read(Known(name), *value); },
        name);
}

HRESULT HostDataObject::GetAttributes(SAFEARRAY** names, SAFEARRAY** values)
{
    return Call(
        "IQP_BaseDataObject::GetAttributes", std::tuple(Out{values}),
        [&] {
            Require(names && *names);
            return ReadAll(*names, values);
        },
        names);
}

HRESULT HostDataObject::SetAttribute(BSTR name, VARIANT value)
{
    return Call(
        "IQP_BaseDataObject::SetAttribute", std::tuple(), [&] { return WriteNamed(name, value); }, name,
        value);
}

HRESULT HostDataObject::SetAttributes(SAFEARRAY** pairs, SAFEARRAY** results)
{
    return Call(
        "IQP_BaseDataObject::SetAttributes", std::tuple(Out{results}),
        [&] {
            Require(pairs && *pairs);
            return WriteAll(*pairs, results);
        },
        pairs);
}

HRESULT HostDataObject::SetAttributeMultiLingual(BSTR name, LONG language, VARIANT value)
{
    return Call(
        "IQP_BaseDataObject::SetAttributeMultiLingual", std::tuple(), [&] { return WriteNamed(name, value); },
        name, language, value);
}

HRESULT HostDataObject::SetAttributesMultiLingual(SAFEARRAY** pairs, LONG language, SAFEARRAY** results)
{
    return Call(
        "IQP_BaseDataObject::SetAttributesMultiLingual", std::tuple(Out{results}),
        [&] {
            Require(pairs && *pairs);
            return WriteAll(*pairs, results);
        },
        pairs, language);
}

HRESULT HostDataObject::GetChildren(BSTR list, IEnumBaseDataObject** children)
{
    return Call(
        "IQP_BaseDataObject::GetChildren", std::tuple(Out{children}),
        [&] {
            const ChildList* known = m_kind.FindChildren(ToUtf8(TextOf(list)));
            Require(known != nullptr);
            const std::string table = Quoted(known->table);
            const std::string id = Quoted("id");
            Statement statement(m_core->database, "SELECT " + id + " FROM " + table + " WHERE " +
                                                      known->condition + " ORDER BY " + id);
            statement.Bind(1, m_id);
            *children = HostEnumerator::Make(m_core, *FindKind(known->table), statement).detach();
            return S_OK;
        },
        list);
}

HRESULT HostDataObject::GetType(BSTR typeName, BSTR configName, IQPType** type)
{
    return Call(
        "IQP_BaseDataObject::GetType", std::tuple(Out{type}), [] { return E_NOTIMPL; }, typeName, configName);
}

HRESULT HostDataObject::GetClientId(LONG* clientId)
{
    return Call("IQP_BaseDataObject::GetClientId", std::tuple(Out{clientId}), [&] {
        *clientId = kClientId;
        return S_OK;
    });
}

HRESULT HostDataObject::IsDerivedFromClass(BSTR className)
{
    return Call(
        "IQP_BaseDataObject::IsDerivedFromClass", std::tuple(),
        [&] { return m_kind.IsOf(ToUtf8(TextOf(className))) ? S_OK : S_FALSE; }, className);
}

HRESULT HostDataObject::HasRight(enum QPRightType right)
{
    return Call(
        "IQPObjectRights::HasRight", std::tuple(),
        [&] {
            Statement statement(m_core->database, R"(SELECT "bits" FROM "objectright" WHERE "object" = ?1)");
            const long long held = statement.Bind(1, m_id).Step() ? statement.Integer(0) : 0;
            return (held & right) == static_cast<long long>(right) ? S_OK : S_FALSE;
        },
        static_cast<int>(right));
}

const Attribute& HostDataObject::Known(BSTR name) const
{
    const Attribute* attribute = m_kind.FindAttribute(ToUtf8(TextOf(name)));
    Require(attribute != nullptr);
    return *attribute;
}

/// The row must be there: an object that is gone fails to answer.
HRESULT HostDataObject::Read(const Attribute& attribute, VARIANT& value) const
{
    Statement statement(m_core->database, "SELECT " + Quoted(attribute.column) + " FROM " +
                                              Quoted(m_kind.table) + " WHERE \"id\" = ?1");
    if (!statement.Bind(1, m_id).Step())
        throw PlantError(Label() + " is gone");
    return ReadColumn(m_core, attribute, statement, value);
}

void HostDataObject::Write(const Attribute& attribute, const VARIANT& value) const
{
    const SqlValue stored = ToColumn(*m_core, attribute, value);
    Statement statement(m_core->database, "UPDATE " + Quoted(m_kind.table) + " SET " +
                                              Quoted(attribute.column) +
                                              " = ?1 WHERE \"id\" = ?2 RETURNING \"id\"");
    if (!statement.Bind(1, stored).Bind(2, m_id).Step())
        throw PlantError(Label() + " is gone");
}

HRESULT HostDataObject::WriteNamed(BSTR name, const VARIANT& value) const noexcept
try
{
    Write(Known(name), value);
    return S_OK;
}
catch (const StatusError& error)
{
    return error.status;
}
catch (const PlantError& error)
{
    m_core->NoteError(error.what());
    return E_FAIL;
}
catch (const std::bad_alloc&)
{
    return E_OUTOFMEMORY;
}
catch (...)
{
    return E_FAIL;
}

HRESULT HostDataObject::ReadAll(SAFEARRAY* names, SAFEARRAY** values) const
{
    std::vector<Pair> pairs;
    bool all = true;
    for (const std::wstring& name : ReadNames(names))
    {
        const Attribute* attribute = m_kind.FindAttribute(ToUtf8(name));
        all = all && attribute;
        if (!attribute)
            continue;
        Pair& pair = pairs.emplace_back();
        pair.name = name;
        Read(*attribute, pair.value->get());
    }
    *values = MakePairArray(pairs);
    return all ? S_OK : kSomeUnreadable;
}

HRESULT HostDataObject::WriteAll(SAFEARRAY* pairs, SAFEARRAY** results) const
{
    std::vector<Pair> rows = ReadPairs(pairs);
    for (Pair& row : rows)
    {
        const OwnedBstr name(row.name);
        const HRESULT status = WriteNamed(name.get(), row.value->get());
        row.value = std::make_unique<HostVariant>();
        row.value->get().vt = VT_I4;
        row.value->get().lVal = status;
    }
    *results = MakePairArray(rows);
    return S_OK;
}
} // namespace refhost
