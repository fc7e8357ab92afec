// The component that expands the navigator's tree.
#pragma once

#include "HostObject.h"
#include "PlantCore.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

namespace refhost
{
/// The class identifier for the object manager. Callers know the class by its ProgID alone, which the host's
/// program registers.
inline constexpr CLSID kTreeExpanderClass = {
    0x1F86C03B, 0xE94D, 0x47A1, {0xB2, 0x7E, 0x60, 0x58, 0xAD, 0x13, 0xC9, 0xF4}};
inline constexpr const wchar_t* kTreeExpanderProgId =
    L"QPBrowserTreeExpanderStarter.QPBrowserTreeExpanderStarterManager";

class TreeExpander final
    : public HostObject<TreeExpander, IQPFObject, IQPBrowserTreeExpander, IQPExplorerView>
{
public:
    static ComPtr<IQPFObject> Make(const Core& core);

    /// Not part of the reference host: E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE Reserved1() override;
    HRESULT STDMETHODCALLTYPE Reserved2() override;

    /// Notes the call for Plant::Expanded. E_INVALIDARG if the tree string names no object of the plant.
    HRESULT STDMETHODCALLTYPE ExpandTree(BSTR treeString, BSTR projectId) override;

    /// S_OK for the identifier of a project that a view shows, else S_FALSE.
    HRESULT STDMETHODCALLTYPE IsProjectShown(BSTR projectId) override;

private:
    friend class HostObject<TreeExpander, IQPFObject, IQPBrowserTreeExpander, IQPExplorerView>;
    explicit TreeExpander(Core core) : m_core(std::move(core)) {}
    ~TreeExpander() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;

    const Core m_core;
};
} // namespace refhost
