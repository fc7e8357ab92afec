// What the objects of the host's configuration have in common: a row that is read by key and by member
// number.
#pragma once

#include "HostCall.h"
#include "HostObject.h"
#include "HostText.h"
#include "ObjectPlaces.h"
#include "ObjectRow.h"

#include "ComPtr.h"

#include "qpconfig.h"

#include <utility>

namespace refhost
{
/// Base of the final class `Derived`, which implements `Config`, an interface derived from IQPConfigObject.
/// Keys are both names of an attribute of the row's kind; members are the kind's own numbers.
template <class Derived, class Config>
class ConfigObject : public HostObject<Derived, Config>
{
public:
    /// S_FALSE and VT_EMPTY for a key without a value, E_INVALIDARG for an unknown one.
    HRESULT STDMETHODCALLTYPE Get(BSTR key, VARIANT* value) override
    {
        return Call(
            "IQPConfigObject::Get", std::tuple(Out{value}),
            [&] { return Read(m_row.kind.FindAttribute(Utf8FromWide(TextOf(key))), *value); }, key);
    }

    /// S_FALSE and VT_EMPTY for a member without a value, E_INVALIDARG for an unknown one.
    HRESULT STDMETHODCALLTYPE GetProperty(int member, VARIANT* value) override
    {
        return Call(
            "IQPConfigObject::GetProperty", std::tuple(Out{value}),
            [&] { return Read(m_row.kind.FindMember(member), *value); }, member);
    }

protected:
    explicit ConfigObject(ObjectRow row) : m_row(std::move(row)) {}
    ~ConfigObject() = default;

    void* Interface(REFIID iid) noexcept
    {
        if (iid == __uuidof(IQPConfigObject))
            return static_cast<IQPConfigObject*>(this);
        return HostObject<Derived, Config>::Interface(iid);
    }

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept
    {
        return HostCall(
            *m_row.core, method, [&] { return CallText(method, m_row.Label(), arguments...); }, outputs,
            body);
    }

    static void* operator new(std::size_t size) { return ObjectPlaces::Take(size); }
    static void operator delete(void* place) noexcept { ObjectPlaces::Give(place); }

    const ObjectRow m_row;

private:
    HRESULT Read(const Attribute* attribute, VARIANT& value) const
    {
        Require(attribute != nullptr);
        return m_row.Read(*attribute, value);
    }
};

/// A configuration object with no methods of its own.
template <class Config>
class ConfigLeaf final : public ConfigObject<ConfigLeaf<Config>, Config>
{
public:
    static ComPtr<Config> Make(const Core& core, const Kind& kind, long long id)
    {
        return ComPtr<Config>(new ConfigLeaf({core, kind, id}));
    }

private:
    friend class HostObject<ConfigLeaf, Config>;
    explicit ConfigLeaf(ObjectRow row) : ConfigObject<ConfigLeaf, Config>(std::move(row)) {}
    ~ConfigLeaf() = default;
};

using HostConfigPage = ConfigLeaf<IQPPage>;
using HostConfigGroup = ConfigLeaf<IQPGroup>;
using HostConfigValue = ConfigLeaf<IQPAttributeType>;
} // namespace refhost
