#include "MemorySettings.h"

#include <objbase.h>

#include <cstdio>
#include <cstdlib>

namespace
{
constexpr CLSID kSettingsClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};

/// Gives the one service to everybody.
class SettingsFactory final : public CountedObject<IClassFactory>
{
public:
    explicit SettingsFactory(MemorySettings& settings) : m_ptrSettings(&settings) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return m_ptrSettings->createStatus < 0 ? m_ptrSettings->createStatus
                                               : m_ptrSettings->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    ~SettingsFactory() override = default;

    const ComPtr<MemorySettings> m_ptrSettings;
};
} // namespace

MemorySettings::Offered::Offered(MemorySettings& settings)
{
    HRESULT status = CoInitialize(nullptr);
    const ComPtr<IClassFactory> factory(new SettingsFactory(settings));
    if (status >= 0)
    {
        status = CoRegisterClassObject(kSettingsClass, factory.get(), CLSCTX_INPROC_SERVER,
                                       REGCLS_MULTIPLEUSE, &m_registration);
    }
    if (status < 0)
    {
        std::fprintf(stderr, "MemorySettings: the class cannot be offered, 0x%08X\n",
                     static_cast<unsigned>(status));
        std::abort();
    }
}

MemorySettings::Offered::~Offered()
{
    CoRevokeClassObject(m_registration);
    CoUninitialize();
}

MemorySettings* MemorySettings::Set(const wchar_t* section, const wchar_t* name, const MemoryValue& value,
                                    HRESULT status)
{
    m_values[{section, name}] = {status, XQPComVariant(value.Value())};
    return this;
}

HRESULT MemorySettings::GetValue(BSTR section, BSTR name, unsigned short type, VARIANT* value, LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
    {
        m_record.Record("settings.GetValue(" + Utf8OrNull(section) + ", " + Utf8OrNull(name) + ", " +
                        std::to_string(type) + ", " + std::to_string(scope) + ")");
    }
    const auto found = m_values.find({{section, SysStringLen(section)}, {name, SysStringLen(name)}});
    if (found == m_values.end())
        return S_FALSE;
    VariantCopy(value, const_cast<VARIANT*>(&found->second.value.Value()));
    return found->second.status;
}

HRESULT MemorySettings::Unexpected(const char* method)
{
    m_record.Record(std::string("settings.") + method + "()");
    return E_NOTIMPL;
}

HRESULT MemorySettings::GetSubKeys(BSTR, LONG, ULONG*, BSTR**, LONG)
{
    return Unexpected("GetSubKeys");
}

HRESULT MemorySettings::SetValue(BSTR, BSTR, VARIANT*, LONG)
{
    return Unexpected("SetValue");
}

HRESULT MemorySettings::GetStringList(BSTR, ULONG*, struct tagSTRINGPAIR**, LONG)
{
    return Unexpected("GetStringList");
}

HRESULT MemorySettings::WriteStringList(BSTR, ULONG, struct tagSTRINGPAIR*, LONG)
{
    return Unexpected("WriteStringList");
}

HRESULT MemorySettings::DeleteKey(BSTR, LONG)
{
    return Unexpected("DeleteKey");
}

HRESULT MemorySettings::PrepareScope(LONG)
{
    return Unexpected("PrepareScope");
}
