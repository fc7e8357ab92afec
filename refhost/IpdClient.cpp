#include "IpdClient.h"

#include "HostCall.h"
#include "HostQuery.h"
#include "HostText.h"

#include <algorithm>

namespace refhost
{
IpdClient::IpdClient(Core core) : m_core(std::move(core)) {}

ComPtr<IQPIPDClient> IpdClient::Make(const Core& core)
{
    return ComPtr<IQPIPDClient>(new IpdClient(core));
}

template <class Outputs, class Body, class... Arguments>
HRESULT IpdClient::Call(const char* method, const Outputs& outputs, Body&& body,
                        const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

HRESULT IpdClient::GetServerCOMObject(LONG clientId, REFCLSID clsid, REFIID iid, void** object)
{
    return Call(
        "IQPIPDClient::GetServerCOMObject", std::tuple(Out{object}),
        [&]() -> HRESULT {
            Require(clientId >= 1 && static_cast<std::size_t>(clientId) <= m_clients.size());
            if (clsid != kQueryClass)
                return CLASS_E_CLASSNOTAVAILABLE;
            return HostQuery::Make(m_core)->QueryInterface(iid, object);
        },
        clientId, clsid, iid);
}

HRESULT IpdClient::Reserved1()
{
    return Call("IQPIPDClient::Reserved1", std::tuple(), [] { return E_NOTIMPL; });
}

HRESULT IpdClient::GetClientIdByName(BSTR name, LONG* clientId)
{
    return Call(
        "IQPIPDClient::GetClientIdByName", std::tuple(Out{clientId}),
        [&] {
            const std::wstring_view wanted = TextOf(name);
            Require(!wanted.empty());
            auto found = std::find(m_clients.begin(), m_clients.end(), wanted);
            if (found == m_clients.end())
                found = m_clients.emplace(found, wanted);
            *clientId = static_cast<LONG>(found - m_clients.begin()) + 1;
            return S_OK;
        },
        name);
}
} // namespace refhost
