// Message maps: the handlers of a window class as a table.
//
//     const CMessageMap& XProjectChoiceDlg::GetMessageMap() const
//     {
//         static const CMessageMapEntry entries[] = {
//             OnCommand<&XProjectChoiceDlg::OnCreateNew>(kCreateNewButton),
//             OnControl<&XProjectChoiceDlg::OnProjects>(CBN_DROPDOWN, kProjects),
//             OnNotify<&XProjectChoiceDlg::OnRowClick>(NM_CLICK, kList),
//             OnMessage<&XProjectChoiceDlg::OnSize>(WM_SIZE),
//         };
//         static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
//         return map;
//     }
#pragma once

#include <windows.h>

#include <span>

class CWnd;

struct CMessageMapEntry
{
    enum class Kind
    {
        Message,  ///< `code` is the message
        Control,  ///< WM_COMMAND with the notification `code` of the control `id`
        Notify,   ///< WM_NOTIFY with the notification `code` of the control `id`
        Reflected ///< WM_NOTIFY with the notification `code` that the window itself sends to its parent
    };

    Kind kind;
    UINT code;
    UINT id;

    /// Calls the handler. Returns the message's result.
    LRESULT (*handle)(CWnd& window, WPARAM wParam, LPARAM lParam);
};

/// The entries of a class and, by `base`, those of its base class.
struct CMessageMap
{
    const CMessageMap* base;
    std::span<const CMessageMapEntry> entries;

    /// The first entry that matches, own entries before those of the base; null if there is none. `id` is
    /// ignored for messages and reflected notifications.
    const CMessageMapEntry* Find(CMessageMapEntry::Kind kind, UINT code, UINT id) const noexcept
    {
        const bool hasId = kind == CMessageMapEntry::Kind::Control || kind == CMessageMapEntry::Kind::Notify;
        for (const CMessageMap* map = this; map; map = map->base)
            for (const CMessageMapEntry& entry : map->entries)
                if (entry.kind == kind && entry.code == code && (!hasId || entry.id == id))
                    return &entry;
        return nullptr;
    }
};

namespace message_map
{
template <class>
struct ClassOf;
template <class Class, class Function>
struct ClassOf<Function Class::*>
{
    using Type = Class;
};

template <auto Handler>
auto& As(CWnd& window)
{
    return static_cast<typename ClassOf<decltype(Handler)>::Type&>(window);
}

template <auto Handler>
LRESULT CallMessage(CWnd& window, WPARAM wParam, LPARAM lParam)
{
    return (As<Handler>(window).*Handler)(wParam, lParam);
}

template <auto Handler>
LRESULT CallCommand(CWnd& window, WPARAM, LPARAM)
{
    (As<Handler>(window).*Handler)();
    return 0;
}

template <auto Handler>
LRESULT CallNotify(CWnd& window, WPARAM, LPARAM lParam)
{
    LRESULT result = 0;
    (As<Handler>(window).*Handler)(reinterpret_cast<NMHDR*>(lParam), &result);
    return result;
}
} // namespace message_map

/// A message; the handler is `LRESULT Handler(WPARAM, LPARAM)`.
template <auto Handler>
constexpr CMessageMapEntry OnMessage(UINT message)
{
    return {CMessageMapEntry::Kind::Message, message, 0, &message_map::CallMessage<Handler>};
}

/// A notification of a standard control; the handler is `void Handler()`.
template <auto Handler>
constexpr CMessageMapEntry OnControl(UINT code, UINT id)
{
    return {CMessageMapEntry::Kind::Control, code, id, &message_map::CallCommand<Handler>};
}

/// A click on a button; the handler is `void Handler()`.
template <auto Handler>
constexpr CMessageMapEntry OnCommand(UINT id)
{
    return OnControl<Handler>(BN_CLICKED, id);
}

/// A notification of a common control; the handler is `void Handler(NMHDR*, LRESULT*)`.
template <auto Handler>
constexpr CMessageMapEntry OnNotify(UINT code, UINT id)
{
    return {CMessageMapEntry::Kind::Notify, code, id, &message_map::CallNotify<Handler>};
}

/// A notification that the window itself sends to its parent, handled before the parent receives it; the
/// handler is `void Handler(NMHDR*, LRESULT*)`.
template <auto Handler>
constexpr CMessageMapEntry OnReflected(UINT code)
{
    return {CMessageMapEntry::Kind::Reflected, code, 0, &message_map::CallNotify<Handler>};
}
