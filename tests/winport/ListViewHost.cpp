#include "ListViewHost.h"

#include <utility>

namespace
{
std::string Number(int number)
{
    return std::to_string(number);
}

std::string Narrow(const wchar_t* text)
{
    std::string narrow;
    for (; text && *text; ++text)
        narrow += static_cast<char>(*text);
    return narrow;
}

LPARAM AtPoint(int x, int y)
{
    return static_cast<LPARAM>((static_cast<DWORD>(y) << 16) | (static_cast<DWORD>(x) & 0xFFFF));
}

const char* LabelWord(UINT code)
{
    return code == LVN_BEGINLABELEDITW ? "begin" : "end";
}
} // namespace

ListViewHost::ListViewHost(DWORD style, int columns, int width, int height)
    : ControlHost(WC_LISTVIEWW, style, width, height)
{
    for (int i = 0; i < columns; ++i)
        InsertColumn(i, (L"c" + std::to_wstring(i)).c_str());
    Codes();
    onNotify = [this](NMHDR& header) {
        Write(header);
        return answer ? answer(header) : 0;
    };
}

HWND ListViewHost::Header() const
{
    return reinterpret_cast<HWND>(Send(LVM_GETHEADER));
}

int ListViewHost::InsertColumn(int index, const wchar_t* text, int width, int format) const
{
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.pszText = const_cast<LPWSTR>(text);
    column.cx = width;
    column.fmt = format;
    return static_cast<int>(
        Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column)));
}

int ListViewHost::ColumnCount() const
{
    return static_cast<int>(SendMessageW(Header(), HDM_GETITEMCOUNT, 0, 0));
}

std::wstring ListViewHost::Headings() const
{
    std::wstring all;
    for (int i = 0; i < ColumnCount(); ++i)
    {
        wchar_t text[64] = L"";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT;
        column.pszText = text;
        column.cchTextMax = 64;
        Send(LVM_GETCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
        all += (i ? L"|" : L"") + std::wstring(text);
    }
    return all;
}

int ListViewHost::Insert(int index, const wchar_t* text, LPARAM param, UINT state) const
{
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
    item.iItem = index;
    item.pszText = const_cast<LPWSTR>(text);
    item.lParam = param;
    item.state = state;
    item.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
    return static_cast<int>(Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

void ListViewHost::Fill(int count)
{
    for (int i = 0; i < count; ++i)
        Insert(i, (L"r" + std::to_wstring(i)).c_str(), i);
    Codes();
    m_trace.clear();
}

BOOL ListViewHost::SetText(int item, int subItem, const wchar_t* text) const
{
    LVITEMW change{};
    change.iSubItem = subItem;
    change.pszText = const_cast<LPWSTR>(text);
    return static_cast<BOOL>(
        Send(LVM_SETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&change)));
}

std::wstring ListViewHost::TextOf(int item, int subItem) const
{
    std::wstring text(12000, L'\0');
    LVITEMW question{};
    question.iSubItem = subItem;
    question.pszText = text.data();
    question.cchTextMax = static_cast<int>(text.size());
    const auto length = static_cast<std::size_t>(
        Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&question)));
    text.resize(length);
    return text;
}

std::wstring ListViewHost::Texts(int subItem) const
{
    std::wstring all;
    for (int i = 0; i < Count(); ++i)
        all += (i ? L"|" : L"") + TextOf(i, subItem);
    return all;
}

LPARAM ListViewHost::ParamOf(int item) const
{
    LVITEMW question{};
    question.mask = LVIF_PARAM;
    question.iItem = item;
    question.lParam = -4711;
    Send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&question));
    return question.lParam;
}

UINT ListViewHost::State(int item) const
{
    return static_cast<UINT>(Send(LVM_GETITEMSTATE, static_cast<WPARAM>(item), LVIS_FOCUSED | LVIS_SELECTED));
}

BOOL ListViewHost::SetState(int item, UINT state, UINT mask) const
{
    LVITEMW change{};
    change.state = state;
    change.stateMask = mask;
    return static_cast<BOOL>(
        Send(LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&change)));
}

std::string ListViewHost::Selected() const
{
    std::string all;
    for (int i = 0; i < Count(); ++i)
        if (State(i) & LVIS_SELECTED)
            all += (all.empty() ? "" : " ") + Number(i);
    return all;
}

int ListViewHost::Next(int start, UINT flags) const
{
    return static_cast<int>(
        Send(LVM_GETNEXTITEM, static_cast<WPARAM>(start), static_cast<LPARAM>(flags & 0xFFFF)));
}

RECT ListViewHost::ItemRect(int item, int part) const
{
    RECT rect{part, 0, 0, 0};
    Send(LVM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

RECT ListViewHost::SubItemRect(int item, int subItem, int part) const
{
    RECT rect{part, subItem, 0, 0};
    Send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

LVHITTESTINFO ListViewHost::Hit(int x, int y) const
{
    LVHITTESTINFO question{};
    question.pt = {x, y};
    const auto index = static_cast<int>(Send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&question)));
    if (index != question.iItem)
        question.iItem = -4711;
    return question;
}

RECT ListViewHost::Client() const
{
    RECT rect{};
    GetClientRect(Control(), &rect);
    return rect;
}

POINT ListViewHost::MiddleOf(int item, int subItem) const
{
    const RECT rect = subItem ? SubItemRect(item, subItem) : ItemRect(item, LVIR_LABEL);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void ListViewHost::Click(int item, int subItem, WPARAM keys) const
{
    const POINT point = MiddleOf(item, subItem);
    ClickAt(point.x, point.y, keys);
}

void ListViewHost::ClickAt(int x, int y, WPARAM keys) const
{
    Send(WM_LBUTTONDOWN, keys | MK_LBUTTON, AtPoint(x, y));
    Send(WM_LBUTTONUP, keys, AtPoint(x, y));
}

void ListViewHost::DoubleClickAt(int x, int y) const
{
    ClickAt(x, y);
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, AtPoint(x, y));
    Send(WM_LBUTTONUP, 0, AtPoint(x, y));
}

std::string ListViewHost::Trace()
{
    return std::exchange(m_trace, {});
}

void ListViewHost::Write(NMHDR& header)
{
    const std::size_t length = m_trace.size();
    const auto& item = reinterpret_cast<const NMLISTVIEW&>(header);
    const auto& label = reinterpret_cast<const NMLVDISPINFOW&>(header).item;
    const auto& heading = reinterpret_cast<const NMHEADERW&>(header);
    switch (header.code)
    {
    case LVN_INSERTITEM:
        m_trace += "insert(" + Number(item.iItem) + ")";
        break;
    case LVN_DELETEITEM:
        m_trace += "delete(" + Number(item.iItem) + ")";
        break;
    case LVN_DELETEALLITEMS:
        m_trace += "clear";
        break;
    case LVN_ITEMCHANGING:
        WriteItem(item, "changing");
        break;
    case LVN_ITEMCHANGED:
        WriteItem(item, "changed");
        break;
    case LVN_COLUMNCLICK:
        m_trace += "column(" + Number(item.iSubItem) + ")";
        break;
    case LVN_KEYDOWN:
        m_trace += "key(" + Number(reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey) + ")";
        break;
    case LVN_BEGINLABELEDITW:
    case LVN_ENDLABELEDITW:
        m_trace += std::string(LabelWord(header.code)) + "(" + Number(label.iItem);
        if (header.code == LVN_ENDLABELEDITW)
            m_trace += "," + (label.pszText ? Narrow(label.pszText) : "null");
        m_trace += ")";
        break;
    case NM_CLICK:
    case NM_DBLCLK:
        m_trace += std::string(header.code == NM_CLICK ? "click" : "dblclk") + "(" + Number(item.iItem) +
                   "," + Number(item.iSubItem) + ")";
        break;
    case NM_SETFOCUS:
        m_trace += "setfocus";
        break;
    case NM_KILLFOCUS:
        m_trace += "killfocus";
        break;
    case HDN_ITEMCHANGINGW:
        WriteHeader(heading, "hdrchanging");
        break;
    case HDN_ITEMCHANGEDW:
        WriteHeader(heading, "hdrchanged");
        break;
    case HDN_ITEMCLICKW:
        m_trace += "hdrclick(" + Number(heading.iItem) + ")";
        break;
    default:
        break;
    }
    if (length && m_trace.size() > length)
        m_trace.insert(length, " ");
}

void ListViewHost::WriteItem(const NMLISTVIEW& change, const char* what)
{
    if ((change.uChanged & LVIF_STATE) && change.uOldState == change.uNewState)
        return;
    if (change.uChanged & LVIF_STATE)
        m_trace += what + ("(" + Number(change.iItem)) + ":" + Number(static_cast<int>(change.uOldState)) +
                   ">" + Number(static_cast<int>(change.uNewState)) + ")";
    else if (std::string(what) == "changed")
        m_trace += "text(" + Number(change.iItem) + ")";
}

void ListViewHost::WriteHeader(const NMHEADERW& header, const char* what)
{
    m_trace += what + ("(" + Number(header.iItem)) + ",";
    m_trace += (header.pitem && (header.pitem->mask & HDI_WIDTH) ? Number(header.pitem->cxy) : "-") + ")";
}

HeldKeys::HeldKeys(bool shift, bool control)
{
    GetKeyboardState(m_before);
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    keys[VK_CONTROL] = control ? 0x80 : 0;
    SetKeyboardState(keys);
}

HeldKeys::~HeldKeys()
{
    SetKeyboardState(m_before);
}

bool RunsOnWine()
{
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return system && GetProcAddress(system, "wine_get_version");
}
