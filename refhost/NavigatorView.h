// A view of the plant's navigator.
#pragma once

#include "HostObject.h"
#include "PlantCore.h"
#include "RowEnumerator.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

namespace refhost
{
/// The class identifier for the object manager. Callers know the class by its ProgID alone, which the host's
/// program registers.
inline constexpr CLSID kNavigatorViewClass = {
    0x94D1E7A6, 0x3B58, 0x4E2C, {0x8F, 0x60, 0x1A, 0xC7, 0x42, 0xD9, 0x05, 0xBE}};
inline constexpr const wchar_t* kNavigatorViewProgId = L"ORVOEXPLORER.ORVOEXPLORERView";

class NavigatorView final : public HostObject<NavigatorView, IQPFObject, IQPExplorerView>
{
public:
    /// A view that shows the project of that number. `kind` is ignored: it makes this fit RowEnumerator.
    static ComPtr<IQPFObject> Make(const Core& core, const Kind& kind, long long project);

    /// Not part of the reference host: E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE Reserved1() override;

    /// S_OK for the identifier of the project that the view shows, else S_FALSE.
    HRESULT STDMETHODCALLTYPE IsProjectShown(BSTR projectId) override;

private:
    friend class HostObject<NavigatorView, IQPFObject, IQPExplorerView>;
    NavigatorView(Core core, long long project) : m_core(std::move(core)), m_project(project) {}
    ~NavigatorView() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;

    const Core m_core;
    const long long m_project;
};

using ViewEnumerator = RowEnumerator<IEnumQPFObject, IQPFObject, &NavigatorView::Make>;
} // namespace refhost
