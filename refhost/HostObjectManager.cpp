#include "HostObjectManager.h"

#include "HostCall.h"
#include "IpdClient.h"
#include "NavigatorView.h"
#include "SessionDataManager.h"
#include "TreeExpander.h"
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
                                           {kVbaLoaderClass, &MakeService<VbaLoader>, {}},
                                           {kTreeExpanderClass, &MakeService<TreeExpander>, {}}}}
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
        "IQPFObjectManager::GetRunningObjects", std::tuple(Out{objects}),
        [&]() -> HRESULT {
            const bool areViews = clsid == kNavigatorViewClass;
            if (!areViews && !Find(clsid))
                return CLASS_E_CLASSNOTAVAILABLE;
            std::vector<long long> shown;
            if (areViews)
                shown = m_core->shownProjects;
            *objects = ViewEnumerator::Make(m_core, *FindKind("project"), std::move(shown)).detach();
            return S_OK;
        },
        clsid);
}

HostObjectManager::Service* HostObjectManager::Find(REFCLSID clsid)
{
    const auto found = std::find_if(m_services.begin(), m_services.end(),
                                    [&](const Service& entry) { return entry.clsid == clsid; });
    return found == m_services.end() ? nullptr : &*found;
}

HRESULT HostObjectManager::GetObject(CLSID clsid, LONG autoCreate, IQPFObject** object)
{
    return Call(
        "IQPFObjectManager::GetObject", std::tuple(Out{object}),
        [&]() -> HRESULT {
            Service* const known = Find(clsid);
            if (!known)
                return CLASS_E_CLASSNOTAVAILABLE;
            if (!known->object && autoCreate)
                known->object = known->make(m_core);
            Check(known->object.copyTo(object));
            return known->object ? S_OK : S_FALSE;
        },
        clsid, autoCreate);
}
} // namespace refhost
