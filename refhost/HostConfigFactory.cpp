#include "HostConfigFactory.h"

#include "HostCall.h"
#include "HostConfigType.h"
#include "RowEnumerator.h"

namespace refhost
{
ComPtr<IQPConfigFactory> HostConfigFactory::Make(const Core& core)
{
    return ComPtr<IQPConfigFactory>(new HostConfigFactory(core));
}

template <class Outputs, class Body, class... Arguments>
HRESULT HostConfigFactory::Call(const char* method, const Outputs& outputs, Body&& body,
                                const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

HRESULT HostConfigFactory::GetTypeEnum(BSTR configName, IQPTypeEnum** types)
{
    using Types = RowEnumerator<IQPTypeEnum, IQPType, &HostConfigType::Make>;
    return Call(
        "IQPConfigFactory::GetTypeEnum", std::tuple(Out{types}),
        [&] {
            Statement rows(m_core->database,
                           R"(SELECT "id" FROM "configtype" WHERE ?1 IN ('', "name") ORDER BY "id")");
            rows.Bind(1, Utf8FromWide(TextOf(configName)));
            *types = Types::Make(m_core, *FindKind("configtype"), rows).detach();
            return S_OK;
        },
        configName);
}

HRESULT HostConfigFactory::GetType(BSTR typeName, BSTR configName, IQPType** type)
{
    return Call(
        "IQPConfigFactory::GetType", std::tuple(Out{type}),
        [&] {
            *type = HostConfigType::Find(m_core, TextOf(typeName), TextOf(configName)).detach();
            return S_OK;
        },
        typeName, configName);
}
} // namespace refhost
