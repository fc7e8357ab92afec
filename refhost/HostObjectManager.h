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

    /// The views of the navigator. Of a service, which is no running object, an empty list;
    /// CLASS_E_CLASSNOTAVAILABLE for any other class.
    HRESULT STDMETHODCALLTYPE GetRunningObjects(CLSID clsid, IEnumQPFObject** objects) override;

    /// The key store, the gateway to server-side objects, the macro loader and the tree expander;
    /// CLASS_E_CLASSNOTAVAILABLE for any other class, S_FALSE and null if the service does not exist yet and
    /// `autoCreate` is 0.
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

    Service* Find(REFCLSID clsid);

    const Core m_core;
    std::array<Service, 4> m_services;
};
} // namespace refhost
