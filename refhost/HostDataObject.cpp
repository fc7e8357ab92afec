#include "HostDataObject.h"

#include "AttributeArrays.h"
#include "HostCall.h"
#include "HostConfigType.h"
#include "HostEnumerator.h"
#include "HostText.h"
#include "HostVariant.h"
#include "HostWork.h"
#include "KeptObjects.h"

#include "Bstr.h"

#include <new>
#include <vector>

namespace refhost
{
namespace
{
/// GetAttributes: the object does not have all of the attributes asked for.
constexpr HRESULT kSomeUnknown = static_cast<HRESULT>(0x8004035E);

/// GetAttributes: it has them all, and some are hidden from the user.
constexpr HRESULT kSomeHidden = static_cast<HRESULT>(0x80040344);

/// All objects of a plant belong to one client.
constexpr LONG kClientId = 1;

/// The attribute that a read of this name gives. The configured name of every object, which lists show, is
/// its name.
const Attribute* ReadBy(const Kind& kind, const std::string& name)
{
    return name == "configured_name" ? kind.FindColumn("name") : kind.FindAttribute(name);
}

NameUsed UsedOf(const Attribute& attribute, const std::string& name)
{
    return name == attribute.key ? NameUsed::Key : NameUsed::Column;
}
} // namespace

HostDataObject::HostDataObject(Core core, const Kind& kind, long long id) : m_row{std::move(core), kind, id}
{
    KeptObjects::Created(static_cast<IQP_BaseDataObject*>(this), kind.table);
}

HostDataObject::~HostDataObject()
{
    KeptObjects::Destroyed(static_cast<IQP_BaseDataObject*>(this));
}

ComPtr<IQP_BaseDataObject> HostDataObject::Make(const Core& core, const Kind& kind, long long id)
{
    return ComPtr<IQP_BaseDataObject>(new HostDataObject(core, kind, id));
}

ComPtr<IQP_BaseDataObject> HostDataObject::MakeOfAnyKind(const Core& core, const Kind& /*kind*/, long long id)
{
    Statement row(core->database, R"(SELECT "kind" FROM "object" WHERE "id" = ?1)");
    if (!row.Bind(1, id).Step())
        throw PlantError("object #" + std::to_string(id) + " is gone");
    return Make(core, *FindKind(row.Text(0)), id);
}

ComPtr<HostDataObject> HostDataObject::From(IUnknown* object)
{
    ComPtr<HostDataObject> own;
    void* found = nullptr;
    if (object && object->QueryInterface(kOwnIdentity, &found) == S_OK)
        own.attach(static_cast<HostDataObject*>(found));
    return own;
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
        Statement statement(m_row.core->database, R"(SELECT 1 FROM "objectright" WHERE "object" = ?1)");
        return statement.Bind(1, m_row.id).Step();
    }
    catch (const std::exception& error)
    {
        m_row.core->NoteError(error.what());
        return false;
    }
}

template <class Outputs, class Body, class... Arguments>
HRESULT HostDataObject::Call(const char* method, const Outputs& outputs, Body&& body,
                             const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_row.core, method, [&] { return CallText(method, m_row.Label(), arguments...); }, outputs, body);
}

HRESULT HostDataObject::GetTableName(BSTR* tableName)
{
    return Call("IQP_BaseDataObject::GetTableName", std::tuple(Out{tableName}), [&] {
        *tableName = Bstr(FromUtf8(m_row.kind.table)).detach();
        return S_OK;
    });
}

HRESULT HostDataObject::GetTypeName(BSTR* typeName)
{
    return Call("IQP_BaseDataObject::GetTypeName", std::tuple(Out{typeName}), [&] {
        *typeName = Bstr(FromUtf8(m_row.kind.typeName)).detach();
        return S_OK;
    });
}

HRESULT HostDataObject::GetAttribute(BSTR name, VARIANT* value)
{
    return Call(
        "IQP_BaseDataObject::GetAttribute", std::tuple(Out{value}),
        [&] {
            const std::string asked = Utf8FromWide(TextOf(name));
            const Attribute* attribute = ReadBy(m_row.kind, asked);
            Require(attribute != nullptr);
            return m_row.Read(*attribute, *value, UsedOf(*attribute, asked));
        },
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
            const ChildList* known = m_row.kind.FindChildren(Utf8FromWide(TextOf(list)));
            Require(known != nullptr);
            Statement statement(m_row.core->database, known->Sql());
            statement.Bind(1, m_row.id);
            const Kind* kind = FindKind(known->table);
            *children = (kind ? HostEnumerator::Make(m_row.core, *kind, statement)
                              : MixedEnumerator::Make(m_row.core, m_row.kind, statement))
                            .detach();
            return S_OK;
        },
        list);
}

HRESULT HostDataObject::GetType(BSTR typeName, BSTR configName, IQPType** type)
{
    return Call(
        "IQP_BaseDataObject::GetType", std::tuple(Out{type}),
        [&] {
            *type = HostConfigType::Find(m_row.core, TextOf(typeName), TextOf(configName)).detach();
            return S_OK;
        },
        typeName, configName);
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
        [&] { return m_row.kind.IsOf(Utf8FromWide(TextOf(className))) ? S_OK : S_FALSE; }, className);
}

HRESULT HostDataObject::HasRight(enum QPRightType right)
{
    return Call(
        "IQPObjectRights::HasRight", std::tuple(),
        [&] {
            Statement statement(m_row.core->database,
                                R"(SELECT "bits" FROM "objectright" WHERE "object" = ?1)");
            const long long held = statement.Bind(1, m_row.id).Step() ? statement.Integer(0) : 0;
            return (held & right) == static_cast<long long>(right) ? S_OK : S_FALSE;
        },
        static_cast<int>(right));
}

const Attribute& HostDataObject::Known(BSTR name) const
{
    const Attribute* attribute = m_row.kind.FindAttribute(Utf8FromWide(TextOf(name)));
    Require(attribute != nullptr);
    return *attribute;
}

HRESULT HostDataObject::WriteNamed(BSTR name, const VARIANT& value) const noexcept
{
    return WithBoundary(*m_row.core, [&] {
        m_row.Write(Known(name), value);
        return S_OK;
    });
}

HRESULT HostDataObject::ReadAll(SAFEARRAY* names, SAFEARRAY** values) const
{
    std::vector<Pair> pairs;
    bool hidden = false;
    bool unknown = false;
    for (const std::wstring& name : ReadNames(names))
    {
        const std::string asked = Utf8FromWide(name);
        const Attribute* attribute = ReadBy(m_row.kind, asked);
        unknown = unknown || !attribute;
        if (!attribute)
            continue;
        Pair pair{name};
        if (m_row.Read(*attribute, *pair.value.put(), UsedOf(*attribute, asked)) == E_ACCESSDENIED)
            hidden = true;
        else
            pairs.push_back(std::move(pair));
    }
    *values = MakePairArray(pairs);
    return unknown ? kSomeUnknown : hidden ? kSomeHidden : S_OK;
}

HRESULT HostDataObject::WriteAll(SAFEARRAY* pairs, SAFEARRAY** results) const
{
    std::vector<Pair> rows = ReadPairs(pairs);
    for (Pair& row : rows)
        if (row.named)
            row.value = OfNumber(WriteNamed(Bstr(row.name).get(), row.value.get()));
    *results = MakePairArray(rows);
    return S_OK;
}
} // namespace refhost
