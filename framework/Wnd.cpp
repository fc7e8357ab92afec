#include "Wnd.h"

#include "Dialog.h"

#include <wingdi.h>

#include <utility>

namespace
{
// A linked list of the objects with a window: a dialog has about a dozen, and it allocates nothing.
constinit thread_local CWnd* t_first = nullptr;
} // namespace

std::wstring WindowText(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

CWnd::~CWnd()
{
    const HWND window = m_hWnd;
    if (!window)
        return;
    // The derived parts are destroyed already, so no message may come here any more.
    if (m_previous)
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_previous));
    Detach();
    ::DestroyWindow(window);
}

CWnd* CWnd::FromHandlePermanent(HWND window) noexcept
{
    CWnd* object = t_first; // a null handle matches none: an object in the list has a window
    while (object && object->m_hWnd != window)
        object = object->m_next;
    return object;
}

bool CWnd::Create(LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect, HWND parent, UINT id)
{
    if (m_hWnd)
        return false;
    const CRect place(rect);
    const HWND window =
        CreateWindowExW(0, className, text, style, place.left, place.top, place.Width(), place.Height(),
                        parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
    return window && SubclassWindow(window);
}

bool CWnd::SubclassWindow(HWND window) noexcept
{
    if (m_hWnd || !IsWindow(window) || FromHandlePermanent(window))
        return false;
    Attach(window);
    m_previous = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWnd::Procedure)));
    return true;
}

void CWnd::Attach(HWND window) noexcept
{
    m_hWnd = window;
    m_live.emplace();
    m_next = t_first;
    t_first = this;
}

void CWnd::Detach() noexcept
{
    CWnd** link = &t_first;
    while (*link && *link != this)
        link = &(*link)->m_next;
    if (*link)
        *link = m_next;
    m_next = nullptr;
    m_hWnd = nullptr;
    m_previous = nullptr;
    m_live.reset();
}

bool CWnd::DestroyWindow() noexcept
{
    return ::DestroyWindow(m_hWnd) != FALSE;
}

CRect CWnd::GetWindowRect() const noexcept
{
    CRect rect;
    ::GetWindowRect(m_hWnd, &rect);
    return rect;
}

CRect CWnd::GetClientRect() const noexcept
{
    CRect rect;
    ::GetClientRect(m_hWnd, &rect);
    return rect;
}

CRect CWnd::ScreenToClient(CRect rect) const noexcept
{
    POINT corners[] = {{rect.left, rect.top}, {rect.right, rect.bottom}};
    MapWindowPoints(nullptr, m_hWnd, corners, 2);
    return {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CWnd::MoveWindow(const CRect& rect, bool repaint) const noexcept
{
    ::MoveWindow(m_hWnd, rect.left, rect.top, rect.Width(), rect.Height(), repaint);
}

SIZE CWnd::TextExtent(const std::wstring& text) const noexcept
{
    SIZE size{};
    const HDC context = GetDC(m_hWnd);
    const HFONT font = GetFont();
    const HGDIOBJ before = font ? SelectObject(context, font) : nullptr;
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
    if (before)
        SelectObject(context, before);
    ReleaseDC(m_hWnd, context);
    return size;
}

bool CWnd::PreTranslateMessage(MSG&)
{
    return false;
}

bool CWnd::WalkPreTranslateTree(HWND top, MSG& message)
{
    for (HWND window = message.hwnd; window; window = GetParent(window))
    {
        CWnd* object = FromHandlePermanent(window);
        if (object && object->PreTranslateMessage(message))
            return true;
        if (window == top)
            break;
    }
    return false;
}

const CMessageMap& CWnd::ClassMessageMap()
{
    static const CMessageMap map{nullptr, {}};
    return map;
}

const CMessageMap& CWnd::GetMessageMap() const
{
    return ClassMessageMap();
}

LRESULT CALLBACK CWnd::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* object = FromHandlePermanent(window);
    if (!object)
        return DefWindowProcW(window, message, wParam, lParam);
    const LRESULT result = Guarded([&] { return object->WindowProc(message, wParam, lParam); });
    if (message == WM_NCDESTROY)
    {
        object->Detach();
        object->PostNcDestroy();
    }
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::optional<LRESULT> result = Dispatch(message, wParam, lParam);
    return result ? *result : DefaultWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefaultWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_previous ? CallWindowProcW(m_previous, m_hWnd, message, wParam, lParam)
                      : DefWindowProcW(m_hWnd, message, wParam, lParam);
}

std::optional<LRESULT> CWnd::Dispatch(UINT message, WPARAM wParam, LPARAM lParam)
{
    using Kind = CMessageMapEntry::Kind;
    if (message == WM_NOTIFY)
        return DispatchNotify(wParam, lParam);
    const CMessageMapEntry* entry = message == WM_COMMAND
                                        ? GetMessageMap().Find(Kind::Control, HIWORD(wParam), LOWORD(wParam))
                                        : GetMessageMap().Find(Kind::Message, message, 0);
    return entry ? std::optional(Handle(*entry, {message, wParam, lParam})) : std::nullopt;
}

LRESULT CWnd::Handle(const CMessageMapEntry& entry, const Message& message)
{
    // A handler may send messages that this window handles, or delete the object: the previous message is
    // restored only if the window still exists.
    const HWND window = m_hWnd;
    const Message outer = std::exchange(m_current, message);
    const LRESULT result = entry.handle(*this, message.wParam, message.lParam);
    if (FromHandlePermanent(window) == this)
        m_current = outer;
    return result;
}

std::optional<LRESULT> CWnd::DispatchNotify(WPARAM wParam, LPARAM lParam)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    CWnd* sender = FromHandlePermanent(header.hwndFrom);
    if (sender && sender != this)
        if (const CMessageMapEntry* entry =
                sender->GetMessageMap().Find(CMessageMapEntry::Kind::Reflected, header.code, 0))
            return entry->handle(*sender, 0, lParam);
    const CMessageMapEntry* entry =
        GetMessageMap().Find(CMessageMapEntry::Kind::Notify, header.code, static_cast<UINT>(header.idFrom));
    return entry ? std::optional(Handle(*entry, {WM_NOTIFY, wParam, lParam})) : std::nullopt;
}

void CWnd::Failed() noexcept
{
    CDialog::FailCurrent(std::current_exception());
}
