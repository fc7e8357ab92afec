// The common controls: list view, header, date picker.
#pragma once

#include "wingdi.h"
#include "winuser.h"

#define WINCOMMCTRLAPI extern "C"

#define WC_BUTTONW L"Button"
#define WC_STATICW L"Static"
#define WC_EDITW L"Edit"
#define WC_COMBOBOXW L"ComboBox"
#define WC_LISTVIEWW L"SysListView32"
#define WC_HEADERW L"SysHeader32"
#define DATETIMEPICK_CLASSW L"SysDateTimePick32"

struct INITCOMMONCONTROLSEX
{
    DWORD dwSize;
    DWORD dwICC;
};
#define ICC_LISTVIEW_CLASSES 0x00000001u
#define ICC_DATE_CLASSES 0x00000100u
#define ICC_STANDARD_CLASSES 0x00004000u
WINCOMMCTRLAPI BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes);

#define NM_FIRST (0U - 0U)
#define NM_CLICK (NM_FIRST - 2)
#define NM_DBLCLK (NM_FIRST - 3)
#define NM_RETURN (NM_FIRST - 4)
#define NM_SETFOCUS (NM_FIRST - 7)
#define NM_KILLFOCUS (NM_FIRST - 8)

// List view.
#define LVS_ICON 0x0000u
#define LVS_REPORT 0x0001u
#define LVS_TYPEMASK 0x0003u
#define LVS_SINGLESEL 0x0004u
#define LVS_SHOWSELALWAYS 0x0008u
#define LVS_SORTASCENDING 0x0010u
#define LVS_EDITLABELS 0x0200u
#define LVS_NOCOLUMNHEADER 0x4000u
#define LVS_EX_GRIDLINES 0x00000001u
#define LVS_EX_FULLROWSELECT 0x00000020u
#define LVS_EX_REGIONAL 0x00000200u
#define LVS_EX_LABELTIP 0x00004000u

#define LVM_FIRST 0x1000u
#define LVM_GETITEMCOUNT (LVM_FIRST + 4)
#define LVM_DELETEITEM (LVM_FIRST + 8)
#define LVM_DELETEALLITEMS (LVM_FIRST + 9)
#define LVM_GETNEXTITEM (LVM_FIRST + 12)
#define LVM_GETITEMRECT (LVM_FIRST + 14)
#define LVM_HITTEST (LVM_FIRST + 18)
#define LVM_ENSUREVISIBLE (LVM_FIRST + 19)
#define LVM_SCROLL (LVM_FIRST + 20)
#define LVM_GETEDITCONTROL (LVM_FIRST + 24)
#define LVM_GETCOLUMNWIDTH (LVM_FIRST + 29)
#define LVM_SETCOLUMNWIDTH (LVM_FIRST + 30)
#define LVM_GETHEADER (LVM_FIRST + 31)
#define LVM_GETTOPINDEX (LVM_FIRST + 39)
#define LVM_GETCOUNTPERPAGE (LVM_FIRST + 40)
#define LVM_SETITEMSTATE (LVM_FIRST + 43)
#define LVM_GETITEMSTATE (LVM_FIRST + 44)
#define LVM_SORTITEMS (LVM_FIRST + 48)
#define LVM_GETSELECTEDCOUNT (LVM_FIRST + 50)
#define LVM_SETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 54)
#define LVM_GETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 55)
#define LVM_GETSUBITEMRECT (LVM_FIRST + 56)
#define LVM_GETITEMW (LVM_FIRST + 75)
#define LVM_SETITEMW (LVM_FIRST + 76)
#define LVM_INSERTITEMW (LVM_FIRST + 77)
#define LVM_GETCOLUMNW (LVM_FIRST + 95)
#define LVM_INSERTCOLUMNW (LVM_FIRST + 97)
#define LVM_GETITEMTEXTW (LVM_FIRST + 115)
#define LVM_SETITEMTEXTW (LVM_FIRST + 116)
#define LVM_EDITLABELW (LVM_FIRST + 118)

#define LVIF_TEXT 0x0001u
#define LVIF_PARAM 0x0004u
#define LVIF_STATE 0x0008u
#define LVIS_FOCUSED 0x0001u
#define LVIS_SELECTED 0x0002u
#define LVCF_FMT 0x0001u
#define LVCF_WIDTH 0x0002u
#define LVCF_TEXT 0x0004u
#define LVCF_SUBITEM 0x0008u
#define LVCFMT_LEFT 0x0000
#define LVCFMT_RIGHT 0x0001
#define LVCFMT_CENTER 0x0002
#define LVCFMT_JUSTIFYMASK 0x0003
#define LVNI_ALL 0x0000u
#define LVNI_FOCUSED 0x0001u
#define LVNI_SELECTED 0x0002u
#define LVIR_BOUNDS 0
#define LVIR_LABEL 2
#define LVHT_NOWHERE 0x0001u
#define LVHT_ONITEMLABEL 0x0004u
#define LVHT_ONITEM 0x000Eu
#define LPSTR_TEXTCALLBACKW (reinterpret_cast<LPWSTR>(static_cast<LONG_PTR>(-1)))

#define LVN_FIRST (0U - 100U)
#define LVN_ITEMCHANGING (LVN_FIRST - 0)
#define LVN_ITEMCHANGED (LVN_FIRST - 1)
#define LVN_INSERTITEM (LVN_FIRST - 2)
#define LVN_DELETEITEM (LVN_FIRST - 3)
#define LVN_DELETEALLITEMS (LVN_FIRST - 4)
#define LVN_COLUMNCLICK (LVN_FIRST - 8)
#define LVN_KEYDOWN (LVN_FIRST - 55)
#define LVN_BEGINLABELEDITW (LVN_FIRST - 75)
#define LVN_ENDLABELEDITW (LVN_FIRST - 76)

struct LVITEMW
{
    UINT mask;
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
    int iIndent;
    int iGroupId;
    UINT cColumns;
    PUINT puColumns;
    LPINT piColFmt;
    int iGroup;
};

struct LVCOLUMNW
{
    UINT mask;
    int fmt;
    int cx;
    LPWSTR pszText;
    int cchTextMax;
    int iSubItem;
    int iImage;
    int iOrder;
    int cxMin;
    int cxDefault;
    int cxIdeal;
};

struct LVHITTESTINFO
{
    POINT pt;
    UINT flags;
    int iItem;
    int iSubItem;
    int iGroup;
};

struct NMLISTVIEW
{
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
};

struct NMITEMACTIVATE
{
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
    UINT uKeyFlags;
};

struct NMLVDISPINFOW
{
    NMHDR hdr;
    LVITEMW item;
};

#pragma pack(push, 1)
struct NMLVKEYDOWN
{
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
#pragma pack(pop)

using PFNLVCOMPARE = int(CALLBACK*)(LPARAM, LPARAM, LPARAM);

// Header.
#define HDS_HORZ 0x0000u
#define HDS_BUTTONS 0x0002u
#define HDS_FULLDRAG 0x0080u
#define HDM_FIRST 0x1200u
#define HDM_GETITEMCOUNT (HDM_FIRST + 0)
#define HDM_INSERTITEMW (HDM_FIRST + 10)
#define HDM_GETITEMRECT (HDM_FIRST + 7)
#define HDM_GETITEMW (HDM_FIRST + 11)
#define HDM_SETITEMW (HDM_FIRST + 12)
#define HDI_WIDTH 0x0001u
#define HDI_TEXT 0x0002u
#define HDI_FORMAT 0x0004u
#define HDI_LPARAM 0x0008u
#define HDF_LEFT 0x0000
#define HDF_RIGHT 0x0001
#define HDF_CENTER 0x0002
#define HDF_SORTDOWN 0x0200
#define HDF_SORTUP 0x0400
#define HDF_STRING 0x4000
#define HDN_FIRST (0U - 300U)
#define HDN_ITEMCHANGINGA HDN_FIRST
#define HDN_ITEMCHANGINGW (HDN_FIRST - 20)
#define HDN_ITEMCHANGEDW (HDN_FIRST - 21)
#define HDN_ITEMCLICKW (HDN_FIRST - 22)

struct HDITEMW
{
    UINT mask;
    int cxy;
    LPWSTR pszText;
    HANDLE hbm;
    int cchTextMax;
    int fmt;
    LPARAM lParam;
    int iImage;
    int iOrder;
    UINT type;
    void* pvFilter;
    UINT state;
};

struct NMHEADERW
{
    NMHDR hdr;
    int iItem;
    int iButton;
    HDITEMW* pitem;
};

// Date picker.
#define DTS_UPDOWN 0x0001u
#define DTS_SHOWNONE 0x0002u
#define DTS_RIGHTALIGN 0x0020u
#define DTS_SHORTDATEFORMAT 0x0000u
#define DTM_FIRST 0x1000u
#define DTM_GETSYSTEMTIME (DTM_FIRST + 1)
#define DTM_SETSYSTEMTIME (DTM_FIRST + 2)
#define GDT_VALID 0
#define GDT_NONE 1
#define DTN_FIRST2 (0U - 753U)
#define DTN_DATETIMECHANGE (DTN_FIRST2 - 6)
#define DTN_DROPDOWN (DTN_FIRST2 - 1)
#define DTN_CLOSEUP (DTN_FIRST2)

struct NMDATETIMECHANGE
{
    NMHDR nmhdr;
    DWORD dwFlags;
    SYSTEMTIME st;
};
