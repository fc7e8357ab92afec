#include "SettingsClass.h"

#include "HostObject.h"
#include "Plant.h"
#include "PlantError.h"
#include "SessionDataManager.h"

#include "ComPtr.h"

#include <objbase.h>
#include <windows.h>

#include <cstdio>

namespace refhost
{
namespace
{
/// Returns the plant's one settings service to every caller.
class SettingsFactory final : public HostObject<SettingsFactory, IClassFactory>
{
public:
    explicit SettingsFactory(const Core& core) : m_ptrService(SessionDataManager::Make(core)) {}
    ~SettingsFactory() = default;

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        return outer ? CLASS_E_NOAGGREGATION : m_ptrService->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    const ComPtr<IQPSessionDataManager> m_ptrService;
};
} // namespace

SettingsClass::SettingsClass(Plant& plant)
{
    const ComPtr<IClassFactory> factory(new SettingsFactory(plant.Shared()));
    const HRESULT status = CoRegisterClassObject(kSessionDataManagerClass, factory.get(),
                                                 CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_registration);
    if (status < 0)
    {
        char text[64];
        std::snprintf(text, sizeof text, "the settings service cannot be registered: 0x%08X",
                      static_cast<unsigned>(status));
        throw PlantError(text);
    }
}

SettingsClass::~SettingsClass()
{
    CoRevokeClassObject(m_registration);
}
} // namespace refhost
