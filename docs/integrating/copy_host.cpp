// A host that uses the enhanced copy dialog and its grid as C++ classes, without COM. It needs the SDK alone
// and the compiler that built the module. A timer does what a user would do in the dialog.

#include <windows.h>

#include <commctrl.h>

#include "qptools/CEnhanceCopyListCtrl.h"
#include "qptools/CEnhancedCopyDialog.h"

#include <cstdio>

using qptools::CEnhanceCopyListCtrl;
using qptools::CEnhancedCopyDialog;

// How many references the module holds to objects of this program.
static long references = 0;

// Objects of this program are variables, so the counts delete nothing.
template <class Interface>
class HostObject : public Interface
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        const bool known = IsEqualIID(riid, __uuidof(IUnknown)) || IsEqualIID(riid, __uuidof(Interface));
        *object = known ? static_cast<Interface*>(this) : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
};

static HRESULT GiveText(const wchar_t* text, VARIANT* value)
{
    value->vt = VT_BSTR;
    value->bstrVal = SysAllocString(text);
    return S_OK;
}

// A list of `Count` elements that are variables.
template <class Enum, class Element, unsigned Count>
class HostList : public HostObject<Enum>
{
public:
    explicit HostList(Element* const (&elements)[Count]) : m_elements(elements) {}

    HRESULT STDMETHODCALLTYPE RemNext(ULONG, Element** elements, ULONG* fetched) override
    {
        const HRESULT status = GetSingleNext(elements);
        *fetched = status == S_OK;
        return status;
    }
    HRESULT STDMETHODCALLTYPE GetSingleNext(Element** element) override
    {
        *element = m_next < Count ? m_elements[m_next++] : nullptr;
        if (*element)
            (*element)->AddRef();
        return *element ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override
    {
        m_next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(Enum**) override { return E_NOTIMPL; }

private:
    Element* const (&m_elements)[Count];
    unsigned m_next = 0;
};

// The attribute "colour": a text, offered for an enhanced copy.
class Colour : public HostObject<IQPAttribute>
{
public:
    HRESULT STDMETHODCALLTYPE GetProperty(int member, VARIANT* value) override
    {
        constexpr int name = 0;
        constexpr int typeCode = 3;
        constexpr int enhancedCopy = 54;
        if (member == name)
            return GiveText(L"colour", value);
        value->vt = VT_I4;
        value->lVal = member == enhancedCopy ? 4 : member == typeCode ? 1 : 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Get(BSTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttributeTypeEnum(IQPAttributeTypeEnum**) override { return E_NOTIMPL; }
};
static Colour colour;
static IQPAttribute* const attributes[] = {&colour};
static HostList<IQPAttributeEnum, IQPAttribute, 1> attributeList(attributes);

// The configured type of all objects.
class DoorType : public HostObject<IQPType>
{
public:
    HRESULT STDMETHODCALLTYPE Get(BSTR, VARIANT* value) override { return GiveText(L"Door", value); }
    HRESULT STDMETHODCALLTYPE GetDisplayAttributeEnum(LONG, IQPAttributeEnum** list) override
    {
        attributeList.Reset();
        attributeList.AddRef();
        *list = &attributeList;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetProperty(int, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPageEnum(IQPPageEnum**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetGroupEnum(IQPGroupEnum**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR, IQPAttribute**) override { return E_NOTIMPL; }
};
static DoorType doorType;

// An object without children. It prints what is set on it.
class Door : public HostObject<IQP_BaseDataObject>
{
public:
    explicit Door(const char* name) : m_name(name) {}

    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR, VARIANT* value) override { return GiveText(L"door", value); }
    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR* name) override
    {
        *name = SysAllocString(L"door");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType** type) override
    {
        doorType.AddRef();
        *type = &doorType;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE GetChildren(BSTR, IEnumBaseDataObject**) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY** pairs, SAFEARRAY** refused) override
    {
        *refused = nullptr;
        LONG last = -1;
        SafeArrayGetUBound(*pairs, 1, &last);
        for (LONG row = 0; row <= last; ++row)
        {
            VARIANT pair[2] = {};
            for (LONG column = 0; column < 2; ++column)
            {
                LONG cell[] = {row, column};
                SafeArrayGetElement(*pairs, cell, &pair[column]);
            }
            if (pair[0].vt == VT_BSTR)
                std::printf("set           %s: %ls = %ls\n", m_name, pair[0].bstrVal, pair[1].bstrVal);
            VariantClear(&pair[0]);
            VariantClear(&pair[1]);
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTableName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY**, SAFEARRAY**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttribute(BSTR, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClientId(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributeMultiLingual(BSTR, LONG, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY**) override
    {
        return E_NOTIMPL;
    }

private:
    const char* m_name;
};

// The grid.

static void SetCell(HWND grid, int row, int column, const wchar_t* text)
{
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text);
    SendMessageW(grid, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

static void PrintCell(const char* label, HWND grid, int row, int column)
{
    wchar_t text[100] = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 100;
    SendMessageW(grid, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    std::printf("%-13s %ls\n", label, text);
}

static CEnhanceCopyListCtrl* shownGrid = nullptr;

// The window around the grid passes the end of an edit on to it.
static LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* notification = reinterpret_cast<NMHDR*>(lParam);
    if (message != WM_NOTIFY || !shownGrid || notification->hwndFrom != shownGrid->m_hWnd ||
        notification->code != LVN_ENDLABELEDITW)
        return DefWindowProcW(window, message, wParam, lParam);
    LRESULT result = 0;
    shownGrid->OnLvnEndlabeledit(notification, &result);
    return result;
}

static void AddColumn(HWND grid, const wchar_t* caption, int index)
{
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 120;
    column.pszText = const_cast<wchar_t*>(caption);
    SendMessageW(grid, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

static void UseGrid(CEnhanceCopyListCtrl& grid)
{
    AddColumn(grid.m_hWnd, L"Attribute", 0);
    AddColumn(grid.m_hWnd, L"Value", 1);
    grid.InsertAttribute(L"colour", &colour);
    std::printf("attribute     %s\n", grid.AttributeOf(0) == &colour ? "colour" : "another");

    // The middle of the cell.
    CRect cell;
    cell.top = 1;
    SendMessageW(grid.m_hWnd, LVM_GETSUBITEMRECT, 0, reinterpret_cast<LPARAM>(static_cast<RECT*>(&cell)));
    int column = -1;
    const int row =
        grid.HitTestEx(CPoint((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2), &column);
    std::printf("hit           row %d, column %d\n", row, column);
    std::printf("outside       row %d\n", grid.HitTestEx(CPoint(-1, -1), nullptr));

    grid.ApplyRadioButtonLogic(0, 1);
    PrintCell("marked", grid.m_hWnd, 0, 1);

    // The editor is a child with the identifier 1000. Return ends it.
    SetCell(grid.m_hWnd, 0, 1, L"red");
    grid.ShowInPlaceControls(0, 1);
    const HWND editor = GetDlgItem(grid.m_hWnd, 1000);
    wchar_t text[100] = {};
    GetWindowTextW(editor, text, 100);
    std::printf("editor        %ls\n", text);
    SetWindowTextW(editor, L"green");
    SendMessageW(editor, WM_CHAR, VK_RETURN, 0);
    PrintCell("edited", grid.m_hWnd, 0, 1);
}

static void ShowGrid()
{
    WNDCLASSW frameClass = {};
    frameClass.lpszClassName = L"copy_host";
    frameClass.lpfnWndProc = FrameProcedure;
    RegisterClassW(&frameClass);
    const HWND frame = CreateWindowExW(0, L"copy_host", L"Grid", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400,
                                       200, nullptr, nullptr, nullptr, nullptr);
    {
        CEnhanceCopyListCtrl grid;
        shownGrid = &grid;
        if (grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 150), frame, 1))
            UseGrid(grid);
        shownGrid = nullptr;
    }
    DestroyWindow(frame);
}

// The dialog.

static CEnhancedCopyDialog* shownDialog = nullptr;

// What a user does: "Advanced", a plan type, a value, OK. The value is set by the program, and so it tells
// the dialog.
static void CALLBACK User(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    constexpr WPARAM advanced = 371;
    constexpr WPARAM advancedOk = 377;
    const HWND dialog = shownDialog->m_hWnd;
    const HWND planTypes = GetDlgItem(dialog, 374);
    const HWND grid = GetDlgItem(dialog, 373);
    SendMessageW(dialog, WM_COMMAND, advanced, 0);
    SendMessageW(planTypes, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(planTypes, WM_KEYDOWN, VK_DOWN, 0);
    SendMessageW(planTypes, CB_SHOWDROPDOWN, FALSE, 0);
    PrintCell("offered", grid, 0, 0);
    SetCell(grid, 0, 1, L"blue");
    shownDialog->UpdateDataContainer(0, 1);
    SendMessageW(dialog, WM_COMMAND, advancedOk, 0);
}

static void ShowDialog()
{
    Door left("left door");
    Door right("right door");
    IQP_BaseDataObject* const doors[] = {&left, &right};
    HostList<IEnumBaseDataObject, IQP_BaseDataObject, 2> selected(doors);
    CEnhancedCopyDialog dialog(&selected, nullptr);
    shownDialog = &dialog;
    SetTimer(nullptr, 0, 10, &User);
    const bool shown = dialog.DoModal() != -1;
    std::printf("dialog        %s, button %d\n", shown ? "shown" : "not shown", dialog.GetButtonClicked());

    // Here the host copies the two objects. A host may choose the kind of copy itself, too: 367 is Normal,
    // 368 Deep.
    Door leftCopy("copy of left door");
    Door rightCopy("copy of right door");
    IQP_BaseDataObject* const copies[] = {&leftCopy, &rightCopy};
    HostList<IEnumBaseDataObject, IQP_BaseDataObject, 2> copied(copies);
    dialog.SetButtonClicked(CEnhancedCopyDialog::kDeepButton);
    std::printf("button        %d\n", dialog.GetButtonClicked());
    dialog.ApplyEnhanceCopy(&copied);
    shownDialog = nullptr;
}

int main()
{
    ShowGrid();
    ShowDialog();
    std::printf("references    %ld\n", references);
    return references == 0 ? 0 : 1;
}
