// The host's object manager: hands out the host's services.
#pragma once

#include "HostObject.h"
#include "PlantCore.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <array>

namespace refhost
{
/// Each service is created on first use and remains the same object for the manager's lifetime.
class HostObjectManager final : public HostObject<HostObjectManager, IQPFObjectManager>
{
public:
    static ComPtr<IQPFObjectManager> Make(const Core& core);

    /// Not implemented: E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE GetRunningObjects(CLSID clsid, IEnumQPFObject** objects) override;

    /// The key store, the gateway to server-side objects and the macro loader; CLASS_E_CLASSNOTAVAILABLE for
    /// any other class, S_FALSE and null if the service does not exist yet and `autoCreate` is 0.
    HRESULT STDMETHODCALLTYPE GetObject(CLSID clsid, LONG autoCreate, IQPFObject** object) override;

private:
    friend class HostObject<HostObjectManager, IQPFObjectManager>;
    explicit HostObjectManager(Core core);
    ~HostObjectManager() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;

    struct Service
    {
        CLSID clsid;
        ComPtr<IQPFObject> (*make)(const Core& core);
        ComPtr<IQPFObject> object; ///< null until its first use
    };

    const Core m_core;
    std::array<Service, 3> m_services;
};
} // namespace refhost
