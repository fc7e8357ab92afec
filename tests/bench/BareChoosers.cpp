#include "BareChoosers.h"

#include "Translation.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qpservices.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace
{
/// A list in a window of its own, filled by the messages of the system alone.
class BareList
{
public:
    explicit BareList(int columns)
        : m_window(CreateWindowExW(0, WC_STATICW, L"", WS_POPUP, 0, 0, 600, 400, nullptr, nullptr, nullptr,
                                   nullptr)),
          m_list(CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_REPORT, 0, 0,
                                 580, 380, m_window, nullptr, nullptr, nullptr))
    {
        for (int index = 0; index < columns; ++index)
        {
            LVCOLUMNW column{};
            column.mask = LVCF_WIDTH | LVCF_TEXT;
            column.cx = 100;
            column.pszText = const_cast<LPWSTR>(L"Column");
            SendMessageW(m_list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                         reinterpret_cast<LPARAM>(&column));
        }
    }
    ~BareList() { DestroyWindow(m_window); }
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;

    void Insert(const wchar_t* text, IUnknown* object)
    {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = static_cast<int>(m_rows);
        item.pszText = const_cast<LPWSTR>(text);
        item.lParam = reinterpret_cast<LPARAM>(object);
        SendMessageW(m_list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        ++m_rows;
    }

    void Set(int column, const wchar_t* text)
    {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = const_cast<LPWSTR>(text);
        SendMessageW(m_list, LVM_SETITEMTEXTW, m_rows - 1, reinterpret_cast<LPARAM>(&item));
    }

    std::size_t Rows() const
    {
        return static_cast<std::size_t>(SendMessageW(m_list, LVM_GETITEMCOUNT, 0, 0));
    }

private:
    HWND m_window;
    HWND m_list;
    std::size_t m_rows = 0;
};

XQPComVariant Read(IQP_BaseDataObject* object, const wchar_t* attribute)
{
    XQPComVariant value;
    object->GetAttribute(XQPComBSTR(attribute), &value);
    return value;
}

bool MayRun(IQP_BaseDataObject* script)
{
    ComPtr<IQPObjectRights> rights;
    rights.queryFrom(script);
    return rights->HasRight(QPRT_execute) == S_OK;
}

/// What was read of a script: the rows follow the objects' addresses, so nothing can be shown before all are
/// there.
struct BareScript
{
    ComPtr<IQP_BaseDataObject> script;
    XQPComVariant name;
    const wchar_t* location;
    XQPComVariant language;
    XQPComVariant created;
    XQPComVariant modified;
};

BareScript ReadScript(ComPtr<IQP_BaseDataObject> script)
{
    IQP_BaseDataObject* const object = script.get();
    return {std::move(script),
            Read(object, L"name"),
            Read(object, L"m_pDODefaultImpl").Type() == VT_UNKNOWN ? L"Project Lib" : L"Library",
            Read(object, L"languagetype"),
            Read(object, L"creationdate"),
            Read(object, L"modificationdate")};
}

void Show(BareList& list, BareScript& script)
{
    list.Insert(script.name.GetString(), script.script.get());
    list.Set(1, script.location);
    list.Set(2, script.language.GetString());
    list.Set(3, script.created.GetString());
    list.Set(4, script.modified.GetString());
}

/// Both may come in any type that can be converted.
struct BareEntry
{
    XQPComVariant object;
    XQPComVariant prompt;
};

/// One record an object, in the order of the addresses.
template <class Record, class KeyOf>
void PutInOrder(std::vector<Record>& records, KeyOf keyOf)
{
    std::stable_sort(records.begin(), records.end(),
                     [&](const Record& left, const Record& right) { return keyOf(left) < keyOf(right); });
    records.erase(
        std::unique(records.begin(), records.end(),
                    [&](const Record& left, const Record& right) { return keyOf(left) == keyOf(right); }),
        records.end());
}

ComPtr<IEnumBaseDataObject> Search(IQP_Query* query, IQP_BaseDataObject* project)
{
    const XQPComBSTR column(L"dodefaultimpl");
    VARIANT value{};
    value.vt = VT_UNKNOWN;
    value.punkVal = project;
    query->ResetSearch(0);
    query->SetSearchTable(XQPComBSTR(L"script"));
    query->SetSearchAttribute(column, 1, value, 1);
    query->SetSearchAttribute(column, 1, VARIANT{}, 2);
    ComPtr<IEnumBaseDataObject> found;
    query->GetSearchResult(found.put());
    return found;
}
} // namespace

ScriptBenchHost::ScriptBenchHost(std::size_t scripts)
{
    m_host.recording = false;
    m_project = m_host.Object("project");
    m_project->Is(L"XDOOrvoProject");
    std::vector<ComPtr<MemoryObject>> all;
    for (std::size_t number = 0; number < scripts; ++number)
    {
        all.push_back(m_host.Object("script"));
        all.back()->Set(L"name", (L"Script " + std::to_wstring(number)).c_str());
        all.back()->Set(L"m_pDODefaultImpl", m_project);
        all.back()->Set(L"languagetype", L"VBScript");
        all.back()->Set(L"creationdate", L"12/03/2025");
        all.back()->Set(L"modificationdate", L"14/07/2026");
    }
    m_host.Query().result = m_host.List(std::move(all));
}

std::size_t PickerFloor(IQP_Query* query, IQP_BaseDataObject* project)
{
    project->IsDerivedFromClass(XQPComBSTR(L"XDOOrvoProject"));
    const ComPtr<IEnumBaseDataObject> found = Search(query, project);
    std::vector<BareScript> scripts;
    IQP_BaseDataObject* batch[25];
    ULONG fetched = 0;
    HRESULT status = S_OK;
    while (status == S_OK)
    {
        status = found->RemNext(25, batch, &fetched);
        for (ULONG index = 0; index < fetched; ++index)
        {
            ComPtr<IQP_BaseDataObject> script;
            script.attach(batch[index]);
            if (MayRun(script.get()))
                scripts.push_back(ReadScript(std::move(script)));
        }
    }
    PutInOrder(scripts, [](const BareScript& script) { return script.script.get(); });
    BareList list(6);
    for (BareScript& script : scripts)
        Show(list, script);
    return list.Rows();
}

std::size_t SelectFloor(ULONG count, const tagINITVALUE* records)
{
    std::unordered_map<std::wstring_view, const VARIANT*> values;
    values.reserve(count);
    for (ULONG index = 0; index < count; ++index)
        values.emplace(records[index].bstrParamName, &records[index].varValue);
    std::vector<BareEntry> entries;
    for (ULONG number = 0; number < count / 2; ++number)
    {
        const std::wstring digits = std::to_wstring(number);
        const auto object = values.find(L"Object" + digits);
        const auto prompt = values.find(L"Prompt" + digits);
        BareEntry entry;
        if (object != values.end() && entry.object.ChangeType(VT_UNKNOWN, object->second) == S_OK &&
            prompt != values.end() && entry.prompt.ChangeType(VT_BSTR, prompt->second) == S_OK)
            entries.push_back(std::move(entry));
    }
    PutInOrder(entries, [](const BareEntry& entry) { return entry.object.Value().punkVal; });
    BareList list(2);
    for (const BareEntry& entry : entries)
        list.Insert(CoTranslateText(entry.prompt.Value().bstrVal), entry.object.Value().punkVal);
    return list.Rows();
}

std::size_t ListAlone(std::size_t rows, int columns)
{
    BareList list(columns + 1);
    for (std::size_t row = 0; row < rows; ++row)
    {
        list.Insert(L"Script 1234", nullptr);
        for (int column = 1; column < columns; ++column)
            list.Set(column, L"12/03/2025");
    }
    return list.Rows();
}

ComPtr<IQP_BaseDataObject> ProjectFloor(IQP_BaseDataObject* item)
{
    for (const wchar_t* name : {L"XDOOrvoProject", L"XDOOrvoItem", L"XDOOrvoCompBase", L"XDOSubCompItem",
                                L"XDOWorkSystemComponent"})
        item->IsDerivedFromClass(XQPComBSTR(name));
    const XQPComVariant value = Read(item, L"orvoproject");
    ComPtr<IQP_BaseDataObject> project;
    project.queryFrom(value.Value().punkVal);
    return project;
}
