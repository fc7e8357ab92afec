// A host of one list view, with short functions for the tests of list views and a trace of its notifications.
#pragma once

#include "ControlHost.h"

#include <string>

class ListViewHost : public ControlHost
{
public:
    /// A list view of the given style with `columns` columns, "c0", "c1" ..., each 80 pixels wide.
    explicit ListViewHost(DWORD style = LVS_REPORT, int columns = 1, int width = 300, int height = 150);

    HWND Header() const;
    int InsertColumn(int index, const wchar_t* text, int width = 80, int format = LVCFMT_LEFT) const;
    int ColumnCount() const; ///< as the header counts them
    /// The columns' headings from left to right, separated by |.
    std::wstring Headings() const;

    /// What LVM_INSERTITEMW returns.
    int Insert(int index, const wchar_t* text, LPARAM param = 0, UINT state = 0) const;
    /// Inserts "r0", "r1" ... with the numbers as parameters, and clears the trace.
    void Fill(int count);
    int Count() const { return static_cast<int>(Send(LVM_GETITEMCOUNT)); }
    BOOL SetText(int item, int subItem, const wchar_t* text) const;
    std::wstring TextOf(int item, int subItem = 0) const;
    /// The texts of a column from top to bottom, separated by |.
    std::wstring Texts(int subItem = 0) const;
    LPARAM ParamOf(int item) const;

    UINT State(int item) const;
    BOOL SetState(int item, UINT state, UINT mask = LVIS_FOCUSED | LVIS_SELECTED) const;
    /// The selected items, separated by blanks.
    std::string Selected() const;
    int Focused() const { return Next(-1, LVNI_FOCUSED); }
    int Next(int start, UINT flags) const;

    RECT ItemRect(int item, int part = LVIR_BOUNDS) const;
    RECT SubItemRect(int item, int subItem, int part = LVIR_BOUNDS) const;
    LVHITTESTINFO Hit(int x, int y) const;
    RECT Client() const;
    int Top() const { return static_cast<int>(Send(LVM_GETTOPINDEX)); }
    int PerPage() const { return static_cast<int>(Send(LVM_GETCOUNTPERPAGE)); }

    /// Presses and releases the left button in the middle of a subitem's visible part, with MK_ keys held.
    void Click(int item, int subItem = 0, WPARAM keys = 0) const;
    void ClickAt(int x, int y, WPARAM keys = 0) const;
    /// The four messages of a double click.
    void DoubleClickAt(int x, int y) const;
    POINT MiddleOf(int item, int subItem = 0) const;

    /// The notifications since the last call, in words separated by blanks:
    /// insert(item) delete(item) clear changing(item:old>new) changed(item:old>new) text(item) column(c)
    /// key(code) begin(item) end(item,text) end(item,null) click(item,c) dblclk(item,c) setfocus killfocus
    /// hdrchanging(c,width) hdrchanged(c,width) hdrclick(c). Other codes are left out, and so are
    /// notifications of an unchanged state, which some systems send and some do not.
    std::string Trace();

    /// Called after a notification has been recorded; its result is the result of the host.
    std::function<LRESULT(NMHDR&)> answer;

private:
    void Write(NMHDR& header);
    void WriteItem(const NMLISTVIEW& change, const char* what);
    void WriteHeader(const NMHEADERW& header, const char* what);

    std::string m_trace;
};

/// Holds keys of the thread's keyboard down while it lives.
class HeldKeys
{
public:
    HeldKeys(bool shift, bool control);
    ~HeldKeys();
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

private:
    BYTE m_before[256];
};

/// A list with the focus, the given rows and an empty trace.
class FilledHost : public ListViewHost
{
public:
    explicit FilledHost(int count, DWORD style = LVS_REPORT, int columns = 1) : ListViewHost(style, columns)
    {
        Fill(count);
        SetFocus(Control());
        Trace();
    }

    void SelectAndFocus(int item)
    {
        SetState(-1, 0, LVIS_SELECTED);
        SetState(item, LVIS_FOCUSED | LVIS_SELECTED);
        Trace();
    }
};

/// Returns true if the system is Wine, whose lists have defects that those of Windows do not have.
bool RunsOnWine();
