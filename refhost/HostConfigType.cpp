#include "HostConfigType.h"

#include "HostConfigAttribute.h"
#include "RowEnumerator.h"

namespace refhost
{
namespace
{
using Pages = RowEnumerator<IQPPageEnum, IQPPage, &HostConfigPage::Make>;
using Groups = RowEnumerator<IQPGroupEnum, IQPGroup, &HostConfigGroup::Make>;
using Attributes = RowEnumerator<IQPAttributeEnum, IQPAttribute, &HostConfigAttribute::Make>;
} // namespace

ComPtr<IQPType> HostConfigType::Make(const Core& core, const Kind& kind, long long id)
{
    const auto known = core->liveTypes.find(id);
    if (known != core->liveTypes.end())
        return ComPtr<IQPType>(known->second);
    ComPtr<IQPType> type(new HostConfigType({core, kind, id}));
    core->liveTypes[id] = type.get();
    return type;
}

HostConfigType::~HostConfigType()
{
    m_row.core->liveTypes.erase(m_row.id);
}

ComPtr<IQPType> HostConfigType::Find(const Core& core, std::wstring_view typeName,
                                     std::wstring_view configName)
{
    Statement row(core->database, R"(SELECT "id" FROM "configtype" WHERE "name" = ?1 ORDER BY "id")");
    row.Bind(1, Utf8FromWide(configName.empty() ? typeName : configName));
    Require(row.Step());
    return Make(core, *FindKind("configtype"), row.Integer(0));
}

/// The rows of `table` that belong to this type and fulfil `condition`, in which ?2 is `argument`.
template <class Enumerator>
auto HostConfigType::List(const char* table, const char* condition, long long argument) const
{
    Statement rows(m_row.core->database, "SELECT \"id\" FROM " + Quoted(table) +
                                             " WHERE \"configtype\" = ?1 AND " + condition +
                                             " ORDER BY \"id\"");
    rows.Bind(1, m_row.id).Bind(2, argument);
    return Enumerator::Make(m_row.core, *FindKind(table), rows).detach();
}

HRESULT HostConfigType::GetPageEnum(IQPPageEnum** pages)
{
    return Call("IQPType::GetPageEnum", std::tuple(Out{pages}), [&] {
        *pages = List<Pages>("configpage", "?2 = 0");
        return S_OK;
    });
}

HRESULT HostConfigType::GetGroupEnum(IQPGroupEnum** groups)
{
    return Call("IQPType::GetGroupEnum", std::tuple(Out{groups}), [&] {
        *groups = List<Groups>("configgroup", "?2 = 0");
        return S_OK;
    });
}

HRESULT HostConfigType::GetDisplayAttributeEnum(LONG mask, IQPAttributeEnum** attributes)
{
    return Call(
        "IQPType::GetDisplayAttributeEnum", std::tuple(Out{attributes}),
        [&] {
            *attributes = List<Attributes>("configattribute", R"(("displaymask" & ?2) <> 0)", mask);
            return S_OK;
        },
        mask);
}

HRESULT HostConfigType::GetAttribute(BSTR name, IQPAttribute** attribute)
{
    return Call(
        "IQPType::GetAttribute", std::tuple(Out{attribute}),
        [&] {
            Statement row(m_row.core->database,
                          R"(SELECT "id" FROM "configattribute")"
                          R"( WHERE "configtype" = ?1 AND ?2 IN ("attributename", "name"))"
                          R"( ORDER BY "id")");
            row.Bind(1, m_row.id).Bind(2, Utf8FromWide(TextOf(name)));
            Require(row.Step());
            *attribute =
                HostConfigAttribute::Make(m_row.core, *FindKind("configattribute"), row.Integer(0)).detach();
            return S_OK;
        },
        name);
}
} // namespace refhost
