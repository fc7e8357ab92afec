#include "BareCopies.h"

#include "BareDialog.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "HostConstants.h"

#include <commctrl.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace
{
constexpr FixedText kNodes = L"nodes";

// Controls of the template.

constexpr int kNormal = 367;
constexpr int kDeep = 368;
constexpr int kCancel = 369;
constexpr int kAdvanced = 371;
constexpr int kGroup = 372;
constexpr int kGrid = 373;
constexpr int kPlanTypes = 374;
constexpr int kNormalRadio = 375;
constexpr int kDeepRadio = 376;

/// The objects by type, with a reference to each object and type.
class Kept
{
public:
    Kept() = default;
    ~Kept()
    {
        for (const auto& [type, record] : m_records)
        {
            type->Release();
            SysFreeString(record.caption);
            for (IQP_BaseDataObject* object : record.objects)
                object->Release();
        }
    }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

    /// Takes over the reference to `object`.
    void Add(IQP_BaseDataObject* object)
    {
        VARIANT config{};
        VARIANT caption{};
        BSTR typeName = nullptr;
        IQPType* type = nullptr;
        object->GetAttribute(qptools::kAttributeConfigTypeName, &config);
        object->GetTypeName(&typeName);
        object->GetType(typeName, config.bstrVal, &type);
        type->Get(qptools::kKeyCaptionSingular, &caption);
        SysFreeString(typeName);
        VariantClear(&config);
        const auto [place, isNew] = m_records.try_emplace(type);
        if (isNew)
            place->second.caption = caption.bstrVal;
        else
        {
            type->Release();
            VariantClear(&caption);
        }
        place->second.objects.push_back(object);
    }

    struct Record
    {
        BSTR caption = nullptr;
        std::vector<IQP_BaseDataObject*> objects;
    };
    const std::map<IQPType*, Record>& Records() const { return m_records; }

    std::size_t Count() const
    {
        std::size_t count = 0;
        for (const auto& [type, record] : m_records)
            count += record.objects.size();
        return count;
    }

private:
    std::map<IQPType*, Record> m_records;
};

void DeepWalk(TreeHost& host, Kept& kept)
{
    const ComPtr<IEnumBaseDataObject> tops = host.Tops();
    std::vector<IEnumBaseDataObject*> levels = {tops.get()};
    while (!levels.empty())
    {
        IQP_BaseDataObject* object = nullptr;
        ULONG fetched = 0;
        if (levels.back()->RemNext(1, &object, &fetched) != S_OK)
        {
            if (levels.size() > 1)
                levels.back()->Release();
            levels.pop_back();
            continue;
        }
        object->IsDerivedFromClass(qptools::kClassRelationship);
        kept.Add(object);
        IEnumBaseDataObject* children = nullptr;
        object->GetChildren(kNodes, &children);
        levels.push_back(children);
    }
    tops->Reset();
}

void FlatWalk(TreeHost& host, Kept& kept)
{
    const ComPtr<IEnumBaseDataObject> tops = host.Tops();
    IQP_BaseDataObject* object = nullptr;
    while (tops->GetSingleNext(&object) == S_OK)
        kept.Add(object);
    tops->Reset();
}

void PutText(SAFEARRAY* array, LONG row, LONG column, const std::wstring& text)
{
    LONG cell[] = {row, column};
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text.c_str());
    SafeArrayPutElement(array, cell, &value);
    VariantClear(&value);
}

SAFEARRAY* Pairs(std::size_t attributes)
{
    std::map<std::wstring, std::wstring> values;
    for (std::size_t number = 1; number <= attributes; ++number)
        values[L"Attribute " + std::to_wstring(number)] = L"Value " + std::to_wstring(number);
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(attributes), 0}, {2, 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 2, bounds);
    LONG row = 0;
    for (const auto& [attribute, value] : values)
    {
        PutText(array, row, 0, attribute);
        PutText(array, row, 1, value);
        ++row;
    }
    return array;
}

void AddColumn(HWND grid, int index, const wchar_t* caption, int width)
{
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(caption);
    SendMessageW(grid, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

int MemberOf(IQPAttribute* attribute, int member)
{
    XQPComVariant value;
    attribute->GetProperty(member, &value);
    return value.GetInt();
}

/// The row owns the reference.
void AddRow(HWND grid, ComPtr<IQPAttribute>&& attribute)
{
    XQPComVariant name;
    attribute->GetProperty(qptools::kAttributeMemberName, &name);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.pszText = const_cast<wchar_t*>(name.GetString());
    item.lParam = reinterpret_cast<LPARAM>(attribute.detach());
    SendMessageW(grid, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void FillGrid(HWND grid, IQPType* type)
{
    ComPtr<IQPAttributeEnum> attributes;
    type->GetDisplayAttributeEnum(qptools::kDisplayEnhancedCopy, attributes.put());
    ComPtr<IQPAttribute> attribute;
    while (attributes->GetSingleNext(attribute.put()) == S_OK)
        if (MemberOf(attribute.get(), qptools::kAttributeMemberEnhancedCopy) == 4)
            AddRow(grid, std::exchange(attribute, {}));
}

void ReleaseRows(HWND grid, std::size_t rows)
{
    for (std::size_t row = 0; row < rows; ++row)
    {
        LVITEMW item{};
        item.mask = LVIF_PARAM;
        item.iItem = static_cast<int>(row);
        SendMessageW(grid, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        reinterpret_cast<IQPAttribute*>(item.lParam)->Release();
    }
}

/// One of the two forms, of that height.
void Lay(const BareDialog& dialog, bool advanced, LONG height)
{
    SetDlgItemTextW(dialog.Window(), kAdvanced, advanced ? L"Advanced <<" : L"Advanced >>");
    const auto show = [&](int control, bool shown) {
        ShowWindow(GetDlgItem(dialog.Window(), control), shown ? SW_SHOW : SW_HIDE);
        dialog.Enable(control, shown);
    };
    for (const int control : {kPlanTypes, kGrid, kNormalRadio, kDeepRadio})
        show(control, advanced);
    for (const int control : {kNormal, kDeep, kCancel})
        show(control, !advanced);
    RECT window{};
    GetWindowRect(dialog.Window(), &window);
    MoveWindow(dialog.Window(), window.left, window.top, window.right - window.left, height, TRUE);
}
/// Opens the list of the plan types and chooses the first one.
IQPType* ChooseFirst(const BareDialog& dialog, const Kept& kept)
{
    const auto send = [combo = GetDlgItem(dialog.Window(), kPlanTypes)](UINT message, WPARAM first,
                                                                        LPARAM second) {
        return SendMessageW(combo, message, first, second);
    };
    send(CB_RESETCONTENT, 0, 0);
    for (const auto& [type, record] : kept.Records())
    {
        const LRESULT item = send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(record.caption));
        send(CB_SETITEMDATA, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(type));
    }
    send(CB_SHOWDROPDOWN, TRUE, 0);
    send(CB_SETCURSEL, 0, 0);
    send(CB_SHOWDROPDOWN, FALSE, 0);
    std::wstring caption(static_cast<std::size_t>(send(CB_GETLBTEXTLEN, 0, 0)), L'\0');
    send(CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(caption.data()));
    return reinterpret_cast<IQPType*>(send(CB_GETITEMDATA, 0, 0));
}
} // namespace

std::size_t DeepWalkFloor(TreeHost& host)
{
    Kept kept;
    DeepWalk(host, kept);
    return kept.Count();
}

std::size_t ApplyFloor(TreeHost& host, std::size_t attributes)
{
    Kept kept;
    DeepWalk(host, kept);
    for (const auto& [type, record] : kept.Records())
    {
        SAFEARRAY* pairs = Pairs(attributes);
        for (IQP_BaseDataObject* object : record.objects)
        {
            SAFEARRAY* results = nullptr;
            object->SetAttributes(&pairs, &results);
            SafeArrayDestroy(results);
        }
        SafeArrayDestroy(pairs);
    }
    return kept.Count();
}

std::size_t CopyDialogFloor(TreeHost& host, std::string_view dialog)
{
    const BareDialog shown(dialog);
    const HWND grid = GetDlgItem(shown.Window(), kGrid);
    RECT window{};
    RECT group{};
    GetWindowRect(shown.Window(), &window);
    GetWindowRect(GetDlgItem(shown.Window(), kGroup), &group);
    CheckRadioButton(shown.Window(), kNormalRadio, kDeepRadio, kNormalRadio);
    SendMessageW(grid, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, 0x201);
    AddColumn(grid, 0, L"Available attributes", 120);
    AddColumn(grid, 1, L"Set to dynamic value", 200);
    Lay(shown, false, group.bottom - window.top + 12);
    shown.Enable(kGrid, false);
    shown.Show();

    Kept deep;
    Kept flat;
    Lay(shown, true, window.bottom - window.top);
    DeepWalk(host, deep);
    FlatWalk(host, flat);
    IQPType* const type = ChooseFirst(shown, flat);
    shown.Enable(kGrid, true);
    SendMessageW(grid, LVM_DELETEALLITEMS, 0, 0);
    FillGrid(grid, type);
    const auto rows = static_cast<std::size_t>(SendMessageW(grid, LVM_GETITEMCOUNT, 0, 0));
    ReleaseRows(grid, rows);
    return rows;
}
