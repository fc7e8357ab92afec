#include "Dialog.h"

#include "Resources.h"
#include "UiState.h"

#include <utility>

namespace
{
constinit thread_local CDialog* t_current = nullptr;

/// RT_DIALOG.
const LPCWSTR kDialogResource = MAKEINTRESOURCEW(5);

/// The owner of a dialog without a parent, so that the host cannot be used behind it.
HWND OwnerFor(HWND parent)
{
    const HWND window = parent ? parent : GetActiveWindow();
    return window ? GetAncestor(window, GA_ROOT) : nullptr;
}

/// Disables the owner for a scope.
class CDisabledOwner
{
public:
    explicit CDisabledOwner(HWND owner) noexcept
        : m_owner(owner && IsWindowEnabled(owner) ? owner : nullptr), m_focus(GetFocus())
    {
        if (m_owner)
            EnableWindow(m_owner, FALSE);
    }
    ~CDisabledOwner() { Enable(); }
    CDisabledOwner(const CDisabledOwner&) = delete;
    CDisabledOwner& operator=(const CDisabledOwner&) = delete;

    void Enable() noexcept
    {
        const HWND owner = std::exchange(m_owner, nullptr);
        if (!owner)
            return;
        EnableWindow(owner, TRUE);
        // A disabled window loses the focus, and a dialog that is never shown takes none.
        if (!GetFocus() && GetActiveWindow() == owner)
            SetFocus(m_focus);
    }

private:
    HWND m_owner;
    HWND m_focus;
};
} // namespace

CDialog::CDialog(UINT templateId, HWND parent) noexcept : m_template(templateId), m_parent(parent) {}

CDialog::~CDialog() = default;

INT_PTR CDialog::DoModal()
{
    const std::string_view resource = ResourceBytes(CurrentModule(), m_template, kDialogResource);
    if (m_hWnd || resource.empty())
        return -1;
    const HWND owner = OwnerFor(m_parent);
    m_code = -1;
    m_failure = nullptr;
    m_running = true;
    m_endedBySystem = false;
    m_outer = std::exchange(t_current, this);
    {
        CDisabledOwner disabled(owner);
        CreateDialogIndirectParamW(CurrentModule(), reinterpret_cast<LPCDLGTEMPLATEW>(resource.data()), owner,
                                   &CDialog::Procedure, reinterpret_cast<LPARAM>(this));
        RunModalLoop();
        // Before the dialog is destroyed, so that no window of another program is activated.
        disabled.Enable();
        Close(owner);
    }
    t_current = m_outer;
    m_running = false;
    if (m_failure)
        std::rethrow_exception(std::exchange(m_failure, nullptr));
    return m_code;
}

/// The system's EndDialog sends no message of its own: it sets a flag that only the system's modal loop
/// reads, and hides the window. It hides it without WM_SHOWWINDOW, which ShowWindow and a minimised owner
/// send before. So does DestroyWindow, but then the window does not exist when IsRunning checks it.
void CDialog::NoticeSystemEnd(UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_SHOWWINDOW)
        m_showWindowHides = !wParam;
    if (message != WM_WINDOWPOSCHANGING || !(reinterpret_cast<WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW))
        return;
    if (std::exchange(m_showWindowHides, false) || !m_running)
        return;
    m_endedBySystem = true;
    // The loop may be waiting when this comes from outside of it.
    ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

bool CDialog::IsRunning() noexcept
{
    if (m_hWnd && m_running && m_endedBySystem)
        EndDialog(IDCANCEL);
    return m_hWnd && m_running;
}

void CDialog::RunModalLoop()
{
    if (IsRunning())
        ShowWindow(SW_SHOWNORMAL);
    MSG message;
    while (IsRunning())
    {
        // It fails (-1) only for an invalid window or address.
        if (GetMessageW(&message, nullptr, 0, 0) == 0)
        {
            // The program is quitting: its own loop needs the message, too.
            PostQuitMessage(static_cast<int>(message.wParam));
            EndDialog(-1);
        }
        else if (!WalkPreTranslateTree(m_hWnd, message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void CDialog::Close(HWND owner) noexcept
{
    if (!m_hWnd)
        return;
    SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                 SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    // After the system's EndDialog no window may be active, because the owner was still disabled.
    const HWND active = GetActiveWindow();
    if (owner && (active == m_hWnd || (m_endedBySystem && !active)))
        SetActiveWindow(owner);
    DestroyWindow();
}

void CDialog::EndDialog(INT_PTR code) noexcept
{
    m_code = code;
    m_running = false;
    // The loop may be waiting when this comes from outside of it.
    if (m_hWnd)
        ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

bool CDialog::UpdateData(bool save)
{
    CDataExchange exchange(m_hWnd, save);
    DoDataExchange(&exchange);
    return !exchange.Failed();
}

bool CDialog::PreTranslateMessage(MSG& message)
{
    const bool input = (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ||
                       (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST);
    return input && IsDialogMessageW(m_hWnd, &message);
}

void CDialog::FailCurrent(std::exception_ptr failure) noexcept
{
    if (!t_current)
        return;
    t_current->m_failure = std::move(failure);
    t_current->EndDialog(-1);
}

const CMessageMap& CDialog::ClassMessageMap()
{
    static const CMessageMapEntry entries[] = {
        OnCommand<&CDialog::OnOK>(IDOK),
        OnCommand<&CDialog::OnCancel>(IDCANCEL),
    };
    static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
    return map;
}

const CMessageMap& CDialog::GetMessageMap() const
{
    return ClassMessageMap();
}

bool CDialog::OnInitDialog()
{
    UpdateData(false);
    return true;
}

void CDialog::DoDataExchange(CDataExchange*) {}

void CDialog::OnOK()
{
    if (UpdateData(true))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

void CDialog::ShowItem(int id, bool show) const noexcept
{
    if (const HWND item = GetDlgItem(id))
        ::ShowWindow(item, show ? SW_SHOW : SW_HIDE);
}

void CDialog::EnableItem(int id, bool enable) const noexcept
{
    if (const HWND item = GetDlgItem(id))
        ::EnableWindow(item, enable);
}

bool CDialog::IsItemChecked(int id) const noexcept
{
    return SendDlgItemMessageW(m_hWnd, id, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void CDialog::SetDefaultButton(int id) const noexcept
{
    SendMessage(DM_SETDEFID, static_cast<WPARAM>(id));
    for (HWND item = GetWindow(m_hWnd, GW_CHILD); item; item = GetWindow(item, GW_HWNDNEXT))
    {
        const LRESULT code = ::SendMessageW(item, WM_GETDLGCODE, 0, 0);
        const bool isChosen = GetDlgCtrlID(item) == id;
        if (code & (isChosen ? DLGC_UNDEFPUSHBUTTON : DLGC_DEFPUSHBUTTON))
            ::SendMessageW(item, BM_SETSTYLE, isChosen ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
    }
}

CRect CDialog::ItemRect(int id) const noexcept
{
    const HWND item = GetDlgItem(id);
    if (!item)
        return {};
    CRect rect;
    ::GetWindowRect(item, &rect);
    return ScreenToClient(rect);
}

// The system's dialog procedure runs after this one for messages that were not handled.
LRESULT CDialog::DefaultWindowProc(UINT, WPARAM, LPARAM)
{
    return 0;
}

INT_PTR CALLBACK CDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
    {
        auto* dialog = reinterpret_cast<CDialog*>(lParam);
        dialog->Attach(window);
        // A dialog that has ended already must not be shown by setting the focus.
        return Guarded([dialog] { return dialog->OnInitDialog() && dialog->IsRunning() ? TRUE : FALSE; },
                       FALSE);
    }
    auto* dialog = static_cast<CDialog*>(FromHandlePermanent(window));
    if (!dialog)
        return FALSE;
    const INT_PTR handled = Guarded([=] { return dialog->OnDialogMessage(message, wParam, lParam); });
    if (message == WM_NCDESTROY)
    {
        dialog->Detach();
        dialog->PostNcDestroy();
    }
    return handled;
}

INT_PTR CDialog::OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    NoticeSystemEnd(message, wParam, lParam);
    const HWND window = m_hWnd;
    const std::optional<LRESULT> result = Dispatch(message, wParam, lParam);
    if (!result)
        return FALSE;
    SetWindowLongPtrW(window, DWLP_MSGRESULT, *result);
    return TRUE;
}
