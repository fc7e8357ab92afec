#include "HostConfigAttribute.h"

#include "RowEnumerator.h"

namespace refhost
{
ComPtr<IQPAttribute> HostConfigAttribute::Make(const Core& core, const Kind& kind, long long id)
{
    return ComPtr<IQPAttribute>(new HostConfigAttribute({core, kind, id}));
}

HRESULT HostConfigAttribute::GetAttributeTypeEnum(IQPAttributeTypeEnum** types)
{
    using Values = RowEnumerator<IQPAttributeTypeEnum, IQPAttributeType, &HostConfigValue::Make>;
    return Call("IQPAttribute::GetAttributeTypeEnum", std::tuple(Out{types}), [&] {
        Statement rows(m_row.core->database,
                       R"(SELECT "id" FROM "configvalue" WHERE "configattribute" = ?1 ORDER BY "id")");
        rows.Bind(1, m_row.id);
        *types = Values::Make(m_row.core, *FindKind("configvalue"), rows).detach();
        return S_OK;
    });
}
} // namespace refhost
