// The gateway to server-side objects: hands out the plant's query object.
#pragma once

#include "HostObject.h"
#include "PlantCore.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <string>
#include <vector>

namespace refhost
{
inline constexpr CLSID kIpdClientClass = {
    0xD7C07373, 0x29C3, 0x43A4, {0x87, 0xCF, 0xF6, 0xD5, 0xE9, 0x47, 0xD6, 0xE6}};
inline constexpr CLSID kQueryClass = {
    0xABF23E6F, 0x1714, 0x4A08, {0x85, 0xA3, 0x8E, 0x8A, 0x8D, 0xB5, 0x16, 0x6F}};

class IpdClient final : public HostObject<IpdClient, IQPIPDClient, IQPFObject>
{
public:
    static ComPtr<IQPIPDClient> Make(const Core& core);

    /// A new query object for kQueryClass, CLASS_E_CLASSNOTAVAILABLE for any other class, E_INVALIDARG for a
    /// client identifier that GetClientIdByName did not return.
    HRESULT STDMETHODCALLTYPE GetServerCOMObject(LONG clientId, REFCLSID clsid, REFIID iid,
                                                 void** object) override;

    /// Not part of the reference host: E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE Reserved1() override;

    /// The client's identifier, from 1; equal names have equal identifiers. E_INVALIDARG for an empty name.
    HRESULT STDMETHODCALLTYPE GetClientIdByName(BSTR name, LONG* clientId) override;

private:
    friend class HostObject<IpdClient, IQPIPDClient, IQPFObject>;
    explicit IpdClient(Core core);
    ~IpdClient() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;

    const Core m_core;
    std::vector<std::wstring> m_clients;
};
} // namespace refhost
