// The macro loader: lists the macros of VBA projects.
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
/// The class identifier for the object manager. Callers know the class by its ProgID alone, which the host's
/// program registers.
inline constexpr CLSID kVbaLoaderClass = {
    0x7B1C94E2, 0x60D8, 0x4F57, {0xA3, 0x29, 0xC5, 0x18, 0x4E, 0x93, 0x0D, 0x6F}};
inline constexpr const wchar_t* kVbaLoaderProgId = L"VBALoader.VBALoaderManager";

class VbaLoader final : public HostObject<VbaLoader, IVBALoaderManager, IQPFObject>
{
public:
    static ComPtr<IVBALoaderManager> Make(const Core& core);

    /// Not part of the reference host: E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE Reserved1() override;

    /// The request names the operation in "Menupath"; the only one is "GetListOfMacros". Its reply has an
    /// entry "Macro1", "Macro2" ... for each macro of the projects in "pVBAProjectsArray", project by
    /// project. It is in task memory and owned by the caller; without macros it is 0 and null.
    ///
    /// E_INVALIDARG for another operation, for a parameter that is missing or of another type, and for an
    /// array with anything in it but VBA projects of this plant.
    HRESULT STDMETHODCALLTYPE Invoke(ULONG count, struct tagINITVALUE* values, ULONG* resultCount,
                                     struct tagINITVALUE** resultValues) override;

private:
    friend class HostObject<VbaLoader, IVBALoaderManager, IQPFObject>;
    explicit VbaLoader(Core core) : m_core(std::move(core)) {}
    ~VbaLoader() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;
    std::vector<std::string> MacrosOf(SAFEARRAY* projects) const;

    const Core m_core;
};
} // namespace refhost
