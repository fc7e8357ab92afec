// The entry to the host's configuration.
#pragma once

#include "HostObject.h"
#include "PlantCore.h"

#include "ComPtr.h"

#include "qpconfig.h"

namespace refhost
{
class HostConfigFactory final : public HostObject<HostConfigFactory, IQPConfigFactory>
{
public:
    static ComPtr<IQPConfigFactory> Make(const Core& core);

    /// The type named `configName`, or all types if that is null or empty. The list may be empty; it is never
    /// null.
    HRESULT STDMETHODCALLTYPE GetTypeEnum(BSTR configName, IQPTypeEnum** types) override;

    /// The type named `configName` or, if that is null or empty, `typeName`. E_INVALIDARG if there is none.
    HRESULT STDMETHODCALLTYPE GetType(BSTR typeName, BSTR configName, IQPType** type) override;

private:
    friend class HostObject<HostConfigFactory, IQPConfigFactory>;
    explicit HostConfigFactory(Core core) : m_core(std::move(core)) {}
    ~HostConfigFactory() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;

    const Core m_core;
};
} // namespace refhost
