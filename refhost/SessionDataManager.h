// The key store and settings service.
#pragma once

#include "HostObject.h"
#include "HostText.h"
#include "KeyStore.h"
#include "PlantCore.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <memory>
#include <vector>

namespace refhost
{
/// The class identifier for both routes: the object manager, and creation by class identifier.
inline constexpr CLSID kSessionDataManagerClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};

/// Owns the lists that it returns; they live as long as it does. A caller may exchange the string pointers in
/// them; strings put in remain owned by the caller.
class SessionDataManager final : public HostObject<SessionDataManager, IQPSessionDataManager, IQPFObject>
{
public:
    static ComPtr<IQPSessionDataManager> Make(const Core& core);

    /// Not part of the reference host: E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE Reserved1() override;
    HRESULT STDMETHODCALLTYPE Reserved2() override;
    HRESULT STDMETHODCALLTYPE Reserved3() override;
    HRESULT STDMETHODCALLTYPE Reserved4() override;
    HRESULT STDMETHODCALLTYPE Reserved5() override;

    /// The names of the direct sub keys. S_FALSE, 0 and null if there is no such key.
    HRESULT STDMETHODCALLTYPE GetSubKeys(BSTR key, LONG number, ULONG* count, BSTR** keys,
                                         LONG scope) override;

    /// S_OK with the value converted to the wanted type (VT_EMPTY: as it was written); S_FALSE and VT_EMPTY
    /// if there is no such value; else the status of the failed conversion.
    HRESULT STDMETHODCALLTYPE GetValue(BSTR key, BSTR valueName, unsigned short vt, VARIANT* value,
                                       LONG scope) override;

    /// Strings, flags and whole numbers keep their type; anything else is stored as text.
    HRESULT STDMETHODCALLTYPE SetValue(BSTR key, BSTR valueName, VARIANT* value, LONG scope) override;

    /// All values of a key as text. S_FALSE, 0 and null if there is no such key.
    HRESULT STDMETHODCALLTYPE GetStringList(BSTR key, ULONG* count, struct tagSTRINGPAIR** list,
                                            LONG scope) override;

    /// Replaces all values of the key.
    HRESULT STDMETHODCALLTYPE WriteStringList(BSTR key, ULONG count, struct tagSTRINGPAIR* list,
                                              LONG scope) override;

    /// S_FALSE if there is no such key.
    HRESULT STDMETHODCALLTYPE DeleteKey(BSTR key, LONG scope) override;

    /// Does nothing and returns S_OK.
    HRESULT STDMETHODCALLTYPE PrepareScope(LONG scope) override;

private:
    friend class HostObject<SessionDataManager, IQPSessionDataManager, IQPFObject>;
    class StringList;
    explicit SessionDataManager(Core core);
    ~SessionDataManager();

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;
    HRESULT Reserved(const char* method) noexcept;
    BSTR* Keep(const std::vector<std::string>& texts);
    HRESULT ReadValue(const std::string& key, const std::string& name, VARTYPE type, LONG scope,
                      VARIANT& value);

    const Core m_core;
    KeyStore m_store;
    std::vector<std::unique_ptr<StringList>> m_lists;
};
} // namespace refhost
