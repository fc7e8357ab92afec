// A dialog of the tests' module with one of every kind of control, and the module behind it.
#pragma once

#include "ComboBox.h"
#include "Dialog.h"
#include "ListCtrl.h"
#include "UiState.h"

#include <functional>
#include <string>
#include <vector>

using Events = std::vector<std::string>;

/// Makes the module with the tests' dialogs the current one for its life.
class DialogModule
{
public:
    DialogModule();
    ~DialogModule();
    DialogModule(const DialogModule&) = delete;
    DialogModule& operator=(const DialogModule&) = delete;

private:
    CWinApp m_application;
    HMODULE m_module;
};

/// The controls of the dialog.
enum TestControl : int
{
    kNameEdit = 301,
    kNumberEdit = 302,
    kSwitch = 303,
    kAfter = 304,
    kBefore = 305,
    kCombo = 306,
    kApply = 307,
    kList = 308,
    kLabel = 309,
};

/// Runs the handlers of a test and records events.
class TestDialog : public CDialog
{
public:
    explicit TestDialog(UINT templateId = 300, HWND parent = nullptr) : CDialog(templateId, parent) {}

    // The dialog's own operations, for tests.
    using CDialog::EnableItem;
    using CDialog::ItemRect;
    using CDialog::SetItemText;
    using CDialog::ShowItem;

    std::function<bool()> onInit;
    std::function<void()> onApply;
    std::function<void()> onOk;
    std::function<void()> onCancel;
    std::function<void(CDataExchange*)> exchange;
    Events events;

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    void OnCancel() override;
    const CMessageMap& GetMessageMap() const override;

private:
    void OnApply();
    void OnDropDown();
    void OnListClick(NMHDR* header, LRESULT* result);
    LRESULT OnAsked(WPARAM wParam, LPARAM lParam);
};

/// A message of the tests' own; answered with the sum of its arguments.
constexpr UINT kAskMessage = WM_APP + 7;
