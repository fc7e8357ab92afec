// A configured type: what an object may be, and how its properties are laid out.
#pragma once

#include "ConfigObject.h"

#include <string_view>

namespace refhost
{
/// While a type's object is referenced, the type has no second one, so that callers may compare types by
/// address.
class HostConfigType final : public ConfigObject<HostConfigType, IQPType>
{
public:
    static ComPtr<IQPType> Make(const Core& core, const Kind& kind, long long id);

    /// The type named `configName` or, if that is empty, `typeName`. Throws StatusError(E_INVALIDARG) if
    /// there is none.
    static ComPtr<IQPType> Find(const Core& core, std::wstring_view typeName, std::wstring_view configName);

    // Pages, groups and attributes come in the order of their numbers in the database; no list is null.

    HRESULT STDMETHODCALLTYPE GetPageEnum(IQPPageEnum** pages) override;

    /// All groups of the type, those inside other groups too.
    HRESULT STDMETHODCALLTYPE GetGroupEnum(IQPGroupEnum** groups) override;

    /// The attributes whose display mask shares a bit with `mask`.
    HRESULT STDMETHODCALLTYPE GetDisplayAttributeEnum(LONG mask, IQPAttributeEnum** attributes) override;

    /// The attribute of that key or column. E_INVALIDARG if there is none.
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, IQPAttribute** attribute) override;

private:
    friend class HostObject<HostConfigType, IQPType>;
    explicit HostConfigType(ObjectRow row) : ConfigObject(std::move(row)) {}
    ~HostConfigType();

    template <class Enumerator>
    auto List(const char* table, const char* condition, long long argument = 0) const;
};
} // namespace refhost
