#include "HostObjectManager.h"

#include "HostCall.h"
#include "IpdClient.h"
#include "SessionDataManager.h"
#include "VbaLoader.h"

#include <algorithm>

namespace refhost
{
namespace
{
template <class Made>
ComPtr<IQPFObject> MakeService(const Core& core)
{
    ComPtr<IQPFObject> service;
    Check(service.queryFrom(Made::Make(core).get()));
    return service;
}
} // namespace

HostObjectManager::HostObjectManager(Core core)
    : m_core(std::move(core)), m_services{{{kSessionDataManagerClass, &MakeService<SessionDataManager>, {}},
                                           {kIpdClientClass, &MakeService<IpdClient>, {}},
                                           {kVbaLoaderClass, &MakeService<VbaLoader>, {}}}}
{
}

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
            const auto known = std::find_if(m_services.begin(), m_services.end(),
                                            [&](const Service& entry) { return entry.clsid == clsid; });
            if (known == m_services.end())
                return CLASS_E_CLASSNOTAVAILABLE;
            if (!known->object && autoCreate)
                known->object = known->make(m_core);
            Check(known->object.copyTo(object));
            return known->object ? S_OK : S_FALSE;
        },
        clsid, autoCreate);
}
} // namespace refhost
