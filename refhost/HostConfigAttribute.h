// An attribute of a configured type.
#pragma once

#include "ConfigObject.h"

namespace refhost
{
class HostConfigAttribute final : public ConfigObject<HostConfigAttribute, IQPAttribute>
{
public:
    static ComPtr<IQPAttribute> Make(const Core& core, const Kind& kind, long long id);

    /// The values that the attribute may have, in the order of their numbers; an empty list if there are
    /// none.
    HRESULT STDMETHODCALLTYPE GetAttributeTypeEnum(IQPAttributeTypeEnum** types) override;

private:
    friend class HostObject<HostConfigAttribute, IQPAttribute>;
    explicit HostConfigAttribute(ObjectRow row) : ConfigObject(std::move(row)) {}
    ~HostConfigAttribute() = default;
};
} // namespace refhost
