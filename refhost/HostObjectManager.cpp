#include "HostObjectManager.h"

#include "HostCall.h"
#include "IpdClient.h"
#include "SessionDataManager.h"

namespace refhost
{
HostObjectManager::HostObjectManager(Core core) : m_core(std::move(core)) {}

ComPtr<IQPFObjectManager> HostObjectManager::Make(const Core& core)
{
    return ComPtr<IQPFObjectManager>(new HostObjectManager(core));
}

template <class Outputs, class Body, class... Arguments>
HRESULT HostObjectManager::Call(const char* method, const Outputs& outputs, Body&& body,
                                const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

HRESULT HostObjectManager::GetRunningObjects(CLSID clsid, IEnumQPFObject** objects)
{
    return Call(
        "IQPFObjectManager::GetRunningObjects", std::tuple(Out{objects}), [] { return E_NOTIMPL; }, clsid);
}

HRESULT HostObjectManager::GetObject(CLSID clsid, LONG autoCreate, IQPFObject** object)
{
    return Call(
        "IQPFObjectManager::GetObject", std::tuple(Out{object}),
        [&]() -> HRESULT {
            const bool wantsData = clsid == kSessionDataManagerClass;
            if (!wantsData && clsid != kIpdClientClass)
                return CLASS_E_CLASSNOTAVAILABLE;
            ComPtr<IQPFObject>& service = wantsData ? m_ptrDataManager : m_ptrIpdClient;
            if (!service && autoCreate && wantsData)
                Check(service.queryFrom(SessionDataManager::Make(m_core).get()));
            else if (!service && autoCreate)
                Check(service.queryFrom(IpdClient::Make(m_core).get()));
            Check(service.copyTo(object));
            return service ? S_OK : S_FALSE;
        },
        clsid, autoCreate);
}
} // namespace refhost
