// The navigator of a host in memory: its views, and the component that expands its tree.
#pragma once

#include "CallScript.h"
#include "CountedObject.h"
#include "MemoryRecord.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <functional>
#include <map>
#include <string>

/// A view, which shows the projects that were set. Each call is recorded: `view.IsProjectShown($7))`.
class MemoryView final : public CountedObject<IQPFObject, IQPExplorerView>
{
public:
    /// The class identifier that the ProgID leads to while a test registers it:
    /// `const RegisteredProgId view(MemoryView::kProgId, MemoryView::kClass);`
    static constexpr CLSID kClass = {
        0x6C2B9A50, 0x1D4E, 0x4F83, {0xB7, 0x05, 0x93, 0xE1, 0x5A, 0xC8, 0x26, 0x7F}};
    static constexpr const wchar_t* kProgId = L"ORVOEXPLORER.ORVOEXPLORERView";

    /// The record calls the view `name`.
    MemoryView(MemoryRecord& record, std::string name)
        : m_record(record), m_life(record), m_name(std::move(name))
    {
    }

    /// What IsProjectShown answers for that identifier; S_FALSE for one that was never set.
    MemoryView* Show(const wchar_t* project, HRESULT status = S_OK);

    /// Whether the object, asked for IQPExplorerView, has it.
    bool offersView = true;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;

    HRESULT STDMETHODCALLTYPE Reserved1() override;
    HRESULT STDMETHODCALLTYPE IsProjectShown(BSTR project) override;

private:
    ~MemoryView() override = default;

    MemoryRecord& m_record;
    const MemoryRecord::Life m_life;
    const std::string m_name;
    std::map<std::wstring, HRESULT> m_shown;
};

/// The tree expander. Each call is recorded: `expander.ExpandTree(BrowserTree:$12);, $7))`.
class MemoryExpander final : public CountedObject<IQPFObject, IQPBrowserTreeExpander, IQPExplorerView>
{
public:
    /// The class identifier that the ProgID leads to while a test registers it:
    /// `const RegisteredProgId expander(MemoryExpander::kProgId, MemoryExpander::kClass);`
    static constexpr CLSID kClass = {
        0x2E7F4D18, 0xA05B, 0x4C96, {0x83, 0xDF, 0x41, 0x7C, 0x09, 0xB6, 0xE2, 0x58}};
    static constexpr const wchar_t* kProgId =
        L"QPBrowserTreeExpanderStarter.QPBrowserTreeExpanderStarterManager";

    explicit MemoryExpander(MemoryRecord& record) : m_record(record) {}

    /// What ExpandTree returns.
    HRESULT status = S_OK;
    /// Runs during ExpandTree.
    std::function<void()> onExpand;
    /// Whether the object, asked for IQPBrowserTreeExpander or IQPExplorerView, has it.
    bool offersExpander = true;
    bool offersView = true;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;

    HRESULT STDMETHODCALLTYPE Reserved1() override { return Unexpected("Reserved1"); }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return Unexpected("Reserved2"); }
    HRESULT STDMETHODCALLTYPE ExpandTree(BSTR tree, BSTR project) override;
    HRESULT STDMETHODCALLTYPE IsProjectShown(BSTR project) override;

private:
    ~MemoryExpander() override = default;
    HRESULT Unexpected(const char* method);

    MemoryRecord& m_record;
};
