// The window system: windows, messages, the standard controls, dialogs, message boxes; case mapping of text.
// A closed set: docs/winport.md lists it.
#pragma once

#include "wpbase.h"

#include "wpwinmessages.h"
#include "wpwinstyles.h"

#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using DLGPROC = INT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using HOOKPROC = LRESULT(CALLBACK*)(int, WPARAM, LPARAM);
using WNDENUMPROC = BOOL(CALLBACK*)(HWND, LPARAM);
using TIMERPROC = void(CALLBACK*)(HWND, UINT, UINT_PTR, DWORD);

struct WNDCLASSW
{
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
};

struct CREATESTRUCTW
{
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

struct MINMAXINFO
{
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};

struct WINDOWPOS
{
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};

struct STYLESTRUCT
{
    DWORD styleOld;
    DWORD styleNew;
};

struct CBT_CREATEWNDW
{
    CREATESTRUCTW* lpcs;
    HWND hwndInsertAfter;
};

struct CBTACTIVATESTRUCT
{
    BOOL fMouse;
    HWND hWndActive;
};

struct MSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
using LPMSG = MSG*;

struct NMHDR
{
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

#pragma pack(push, 2)
struct DLGTEMPLATE
{
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    short x;
    short y;
    short cx;
    short cy;
};
#pragma pack(pop)
using LPCDLGTEMPLATEW = const DLGTEMPLATE*;

// Classes and windows.
WINUSERAPI ATOM RegisterClassW(const WNDCLASSW* description);
WINUSERAPI HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y,
                                int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                LPVOID parameter);
WINUSERAPI BOOL DestroyWindow(HWND window);
WINUSERAPI BOOL IsWindow(HWND window);
WINUSERAPI BOOL IsWindowVisible(HWND window);
WINUSERAPI BOOL IsWindowEnabled(HWND window);
WINUSERAPI BOOL IsChild(HWND parent, HWND window);
WINUSERAPI BOOL EnableWindow(HWND window, BOOL enable);
WINUSERAPI BOOL ShowWindow(HWND window, int how);
WINUSERAPI BOOL InvalidateRect(HWND window, const RECT* part, BOOL erase);
WINUSERAPI BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
WINUSERAPI BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
WINUSERAPI BOOL GetWindowRect(HWND window, LPRECT rect);
WINUSERAPI BOOL GetClientRect(HWND window, LPRECT rect);
WINUSERAPI int MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
WINUSERAPI LONG GetWindowLongW(HWND window, int index);
WINUSERAPI LONG SetWindowLongW(HWND window, int index, LONG value);
WINUSERAPI LONG_PTR GetWindowLongPtrW(HWND window, int index);
WINUSERAPI LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
WINUSERAPI int GetClassNameW(HWND window, LPWSTR buffer, int size);
WINUSERAPI BOOL SetWindowTextW(HWND window, LPCWSTR text);
WINUSERAPI int GetWindowTextW(HWND window, LPWSTR buffer, int size);
WINUSERAPI int GetWindowTextLengthW(HWND window);
WINUSERAPI HWND GetParent(HWND window);
WINUSERAPI HWND GetAncestor(HWND window, UINT which);
WINUSERAPI HWND GetWindow(HWND window, UINT which);
WINUSERAPI BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC each, LPARAM parameter);
WINUSERAPI HWND GetActiveWindow();
WINUSERAPI HWND SetActiveWindow(HWND window);
WINUSERAPI HWND GetFocus();
WINUSERAPI HWND SetFocus(HWND window);

// Messages.
WINUSERAPI LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI void PostQuitMessage(int exitCode);
WINUSERAPI BOOL GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
WINUSERAPI BOOL PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
WINUSERAPI BOOL TranslateMessage(const MSG* message);
WINUSERAPI LRESULT DispatchMessageW(const MSG* message);
WINUSERAPI LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                   LPARAM lParam);
WINUSERAPI UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
WINUSERAPI BOOL KillTimer(HWND window, UINT_PTR id);
WINUSERAPI HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE module, DWORD thread);
WINUSERAPI BOOL UnhookWindowsHookEx(HHOOK hook);
WINUSERAPI LRESULT CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);

// Keyboard and pointer.
WINUSERAPI SHORT GetKeyState(int key);
WINUSERAPI BOOL GetKeyboardState(LPBYTE keys);
WINUSERAPI BOOL SetKeyboardState(LPBYTE keys);
WINUSERAPI HWND SetCapture(HWND window);
WINUSERAPI BOOL ReleaseCapture();
WINUSERAPI HWND GetCapture();
WINUSERAPI HCURSOR SetCursor(HCURSOR cursor);
WINUSERAPI HCURSOR GetCursor();
WINUSERAPI HCURSOR LoadCursorW(HINSTANCE module, LPCWSTR name);
WINUSERAPI HICON LoadIconW(HINSTANCE module, LPCWSTR name);

// Dialogs.
WINUSERAPI HWND CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW description, HWND owner,
                                           DLGPROC procedure, LPARAM parameter);
WINUSERAPI BOOL IsDialogMessageW(HWND dialog, LPMSG message);
WINUSERAPI BOOL EndDialog(HWND dialog, INT_PTR result);
WINUSERAPI BOOL MapDialogRect(HWND dialog, LPRECT rect);
WINUSERAPI HWND GetDlgItem(HWND dialog, int id);
WINUSERAPI int GetDlgCtrlID(HWND window);
WINUSERAPI LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
WINUSERAPI BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
WINUSERAPI BOOL CheckRadioButton(HWND dialog, int first, int last, int checked);
WINUSERAPI HWND GetNextDlgTabItem(HWND dialog, HWND from, BOOL previous);
WINUSERAPI HWND GetNextDlgGroupItem(HWND dialog, HWND from, BOOL previous);
WINUSERAPI int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT type);

// Device contexts, only for measuring text: every character is 6 pixels wide and 13 high.
WINUSERAPI HDC GetDC(HWND window);
WINUSERAPI int ReleaseDC(HWND window, HDC context);

// Texts.
WINUSERAPI int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);
WINUSERAPI DWORD CharLowerBuffW(LPWSTR text, DWORD length);

// Rectangles.
WINUSERAPI BOOL PtInRect(const RECT* rect, POINT point);
