#include "BareProperties.h"

#include "BareDialog.h"

#include "HostConstants.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qpservices.h"

#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace
{
// Controls of the two templates.

constexpr int kName = 250;
constexpr int kSequence = 251;
constexpr int kActionTypes = 254;
constexpr int kScripts = 256;
constexpr int kAfter = 262;
constexpr int kBefore = 263;
constexpr int kEnabled = 264;
constexpr int kPlanTypes = 266;
constexpr int kConfigTypes = 268;
constexpr int kCommandName = 300;
constexpr int kMacros = 308;

template <class Config>
XQPComVariant Get(Config* object, const wchar_t* key)
{
    XQPComVariant value;
    object->Get(XQPComBSTR(key), &value);
    return value;
}

/// Calls `visit` with each object of an enumerator.
template <class Element, class Enum, class Visit>
void ForEach(const ComPtr<Enum>& list, Visit&& visit)
{
    Element* batch[25];
    ULONG fetched = 0;
    HRESULT status = S_OK;
    while (status == S_OK)
    {
        status = list->RemNext(25, batch, &fetched);
        for (ULONG index = 0; index < fetched; ++index)
        {
            ComPtr<Element> object;
            object.attach(batch[index]);
            visit(std::move(object));
        }
    }
}

/// By name, as a choice is found again.
template <class Element>
using ByName = std::map<std::wstring, ComPtr<Element>>;

template <class Element>
void Show(const BareDialog& dialog, int combo, const ByName<Element>& objects)
{
    for (const auto& [name, object] : objects)
        dialog.Add(combo, name.c_str());
}

ComPtr<IEnumBaseDataObject> Search(PropertyBenchHost& host, const wchar_t* table)
{
    const XQPComBSTR column(L"dodefaultimpl");
    VARIANT value{};
    value.vt = VT_UNKNOWN;
    value.punkVal = host.Project();
    host.Query()->ResetSearch(0);
    host.Query()->SetSearchTable(XQPComBSTR(table));
    host.Query()->SetSearchAttribute(column, 1, value, 1);
    host.Query()->SetSearchAttribute(column, 1, VARIANT{}, 2);
    ComPtr<IEnumBaseDataObject> found;
    host.Query()->GetSearchResult(found.put());
    return found;
}

void ShowObjects(const BareDialog& dialog, int combo, const ComPtr<IEnumBaseDataObject>& found)
{
    const XQPComBSTR attribute(L"name");
    ByName<IQP_BaseDataObject> objects;
    ForEach<IQP_BaseDataObject>(found, [&](ComPtr<IQP_BaseDataObject> object) {
        XQPComVariant name;
        object->GetAttribute(attribute, &name);
        objects[name.GetString()] = std::move(object);
    });
    Show(dialog, combo, objects);
}

void ShowTypes(const BareDialog& dialog, PropertyBenchHost& host)
{
    ComPtr<IQPTypeEnum> found;
    host.Factory()->GetTypeEnum(nullptr, found.put());
    ByName<IQPType> types;
    ForEach<IQPType>(found, [&](ComPtr<IQPType> type) {
        if (Get(type.get(), L"isplantype").Value().boolVal == VARIANT_FALSE)
        {
            XQPComVariant name = Get(type.get(), L"typename");
            types[name.GetString()] = std::move(type);
        }
    });
    Show(dialog, kConfigTypes, types);
}

void ShowActionTypes(const BareDialog& dialog, IQPType* scriptAction)
{
    ComPtr<IQPAttribute> attribute;
    scriptAction->GetAttribute(XQPComBSTR(L"actiontype"), attribute.put());
    ComPtr<IQPAttributeTypeEnum> values;
    attribute->GetAttributeTypeEnum(values.put());
    std::map<LONG, std::wstring> names;
    ForEach<IQPAttributeType>(values, [&](const ComPtr<IQPAttributeType>& value) {
        XQPComVariant name = Get(value.get(), L"name");
        names[Get(value.get(), L"value").GetInt()] = name.GetString();
    });
    for (const auto& [number, name] : names)
        dialog.Add(kActionTypes, name.c_str());
}

/// All attributes by one call: names and values.
std::map<std::wstring, XQPComVariant> ReadRecord(IQP_BaseDataObject* object,
                                                 std::initializer_list<const wchar_t*> attributes)
{
    SAFEARRAY* names = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(attributes.size()));
    LONG index = 0;
    for (const wchar_t* attribute : attributes)
    {
        SafeArrayPutElement(names, &index, static_cast<BSTR>(XQPComBSTR(attribute)));
        ++index;
    }
    SAFEARRAY* rows = nullptr;
    object->GetAttributes(&names, &rows);
    std::map<std::wstring, XQPComVariant> record;
    for (LONG row = 0; row < index; ++row)
    {
        XQPComVariant name;
        XQPComVariant value;
        LONG cell[] = {row, 0};
        SafeArrayGetElement(rows, cell, &name);
        cell[1] = 1;
        SafeArrayGetElement(rows, cell, &value);
        record.emplace(name.GetString(), std::move(value));
    }
    SafeArrayDestroy(names);
    SafeArrayDestroy(rows);
    return record;
}

void AskSetting()
{
    ComPtr<IQPHostSettings> settings;
    CoInitialize(nullptr);
    CoCreateInstance(qptools::kClassSessionDataManager, nullptr, CLSCTX_ALL, __uuidof(IQPHostSettings),
                     settings.putVoid());
    XQPComVariant value;
    settings->GetValue(XQPComBSTR(L"properties"), XQPComBSTR(L"enablemcmscriptactions"), VT_BOOL, &value, 1);
}

bool HasRight(IQP_BaseDataObject* object)
{
    ComPtr<IQPObjectRights> rights;
    rights.queryFrom(object);
    return rights->HasRight(QPRT_change) == S_OK;
}

/// What the controls show of a script action.
void ShowRecord(const BareDialog& dialog, const std::map<std::wstring, XQPComVariant>& record, bool mayChange)
{
    dialog.Set(kName, record.at(L"m_name"));
    dialog.Set(kSequence, record.at(L"m_iSequence"));
    dialog.Check(kAfter, record.at(L"m_beforeAfter").GetInt() == 0);
    dialog.Check(kBefore, record.at(L"m_beforeAfter").GetInt() == 1);
    dialog.Check(kEnabled, record.at(L"m_bEnabled").GetInt() != 0);
    for (const int control : {kActionTypes, kPlanTypes, kConfigTypes, kScripts, kName, kSequence, kBefore,
                              kAfter, kEnabled, IDOK})
        dialog.Enable(control, mayChange);
}

/// The request for the macros of `projects`.
std::vector<tagINITVALUE> Request(PropertyBenchHost& host, SAFEARRAY* projects,
                                  std::vector<XQPComBSTR>& texts)
{
    const auto text = [&](const wchar_t* of) -> BSTR {
        return texts.emplace_back(of);
    };
    const auto value = [](VARTYPE type, void* content) {
        VARIANT made{};
        made.vt = type;
        made.byref = content;
        return made;
    };
    texts.reserve(16);
    return {{text(L"pProject"), value(VT_UNKNOWN, host.Project())},
            {text(L"pQuery"), value(VT_UNKNOWN, host.Query())},
            {text(L"pConfigFactory"), value(VT_UNKNOWN, host.Factory())},
            {text(L"bstrConfigName"), value(VT_BSTR, text(L"Default Configuration"))},
            {text(L"bLogEnabled"), value(VT_I4, nullptr)},
            {text(L"pVBAProjectsArray"), value(VT_ARRAY | VT_VARIANT, projects)},
            {text(L"Menupath"), value(VT_BSTR, text(L"GetListOfMacros"))},
            {text(L"pSelectedObject"), value(VT_UNKNOWN, host.Command())}};
}
} // namespace

PropertyBenchHost::PropertyBenchHost(std::size_t entries)
{
    host.recording = false;
    m_project = host.Object("project");
    m_set = host.Object("set");
    MemoryAttribute* actionTypes = host.Config().Type(L"scriptaction")->Attribute(L"actiontype");
    for (int number = 100; number < 100 + kActionTypes; ++number)
        actionTypes->Value((L"Action " + std::to_wstring(number)).c_str(), LONG{number});
    host.Config().Type(L"scriptcommand");
    for (std::size_t number = 0; number < entries; ++number)
    {
        const std::wstring name = L"Entry " + std::to_wstring(number * 7919 % entries);
        m_found.push_back(host.Object("entry"));
        m_found.back()->Set(L"name", name.c_str());
        host.Config().Type(name.c_str());
        host.Loader().Entry((L"Macro" + std::to_wstring(number + 1)).c_str(), name.c_str());
    }
    host.Query().result = host.List(m_found);
    m_set->Children(L"orvoplantype", host.List(m_found));
    m_action = host.Object("action");
    m_action->Set(L"m_name", L"Action")->Set(L"m_actionType", LONG{110});
    m_command = host.Object("command");
    m_command->Set(L"m_name", L"Command")->Set(L"customizationobjecttype", LONG{-1});
}

void PropertyBenchHost::ReleaseKept(std::size_t lists)
{
    for (const ComPtr<MemoryObject>& project : m_found)
    {
        for (std::size_t list = 0; list < lists; ++list)
            project->Release();
    }
}

std::size_t ActionFloor(PropertyBenchHost& host, std::string_view dialog, DroppedList list)
{
    ComPtr<IQPType> type;
    host.Factory()->GetType(XQPComBSTR(L"scriptaction"), nullptr, type.put());
    const BareDialog shown(dialog);
    AskSetting();
    ShowActionTypes(shown, type.get());
    const auto record = ReadRecord(host.Action(), {L"m_name", L"m_prompt", L"m_pScript", L"orvoplantype",
                                                   L"m_pType", L"m_pPlanType", L"m_actionType",
                                                   L"m_beforeAfter", L"m_iSequence", L"m_bEnabled"});
    const bool mayChange = HasRight(host.Action());
    ShowRecord(shown, record, mayChange);
    shown.Show();
    switch (list)
    {
    case DroppedList::Scripts:
        ShowObjects(shown, kScripts, Search(host, L"script"));
        return shown.Drop(kScripts);
    case DroppedList::PlanTypes:
    {
        ComPtr<IEnumBaseDataObject> found;
        host.PlanTypes()->GetChildren(XQPComBSTR(L"orvoplantype"), found.put());
        ShowObjects(shown, kPlanTypes, found);
        return shown.Drop(kPlanTypes);
    }
    case DroppedList::ConfigTypes:
        ShowTypes(shown, host);
        return shown.Drop(kConfigTypes);
    default:
        return shown.Items(kActionTypes);
    }
}

std::size_t MacrosFloor(PropertyBenchHost& host, std::string_view dialog)
{
    ComPtr<IQPType> type;
    host.Factory()->GetType(XQPComBSTR(L"scriptcommand"), nullptr, type.put());
    const BareDialog shown(dialog);
    const auto record = ReadRecord(
        host.Command(), {L"m_name", L"m_strPrompt", L"m_pScript", L"m_strVBAMacroName", L"orvoplantype",
                         L"m_strType", L"m_pPlanType", L"m_bVisible", L"m_lUserInterfaceType", L"m_nameShort",
                         L"customizationobjectid", L"customizationobjecttype"});
    HasRight(host.Command());
    shown.Set(kCommandName, record.at(L"m_name"));
    shown.Show();
    std::vector<ComPtr<IQP_BaseDataObject>> projects;
    ForEach<IQP_BaseDataObject>(Search(host, L"vbaproject"), [&](ComPtr<IQP_BaseDataObject> project) {
        projects.push_back(std::move(project));
    });
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(projects.size()));
    LONG index = 0;
    for (const ComPtr<IQP_BaseDataObject>& project : projects)
    {
        VARIANT element{};
        element.vt = VT_UNKNOWN;
        element.punkVal = project.get();
        SafeArrayPutElement(array, &index, &element);
        ++index;
    }
    std::vector<XQPComBSTR> texts;
    std::vector<tagINITVALUE> request = Request(host, array, texts);
    ComPtr<IQPFObject> object;
    host.Manager()->GetObject(CLSID{}, 1, object.put());
    ComPtr<IVBALoaderManager> loader;
    loader.queryFrom(object.get());
    ULONG count = 0;
    tagINITVALUE* reply = nullptr;
    loader->Invoke(static_cast<ULONG>(request.size()), request.data(), &count, &reply);
    // Found by their names, as the contract has it.
    std::unordered_map<std::wstring_view, const VARIANT*> values;
    for (ULONG number = 0; number < count; ++number)
        values.emplace(reply[number].bstrParamName, &reply[number].varValue);
    std::set<std::wstring> macros;
    for (ULONG number = 1; number <= count; ++number)
    {
        const auto found = values.find(L"Macro" + std::to_wstring(number));
        if (found != values.end())
            macros.emplace(XQPComVariant(*found->second).GetString());
    }
    for (ULONG number = 0; number < count; ++number)
    {
        SysFreeString(reply[number].bstrParamName);
        VariantClear(&reply[number].varValue);
    }
    CoTaskMemFree(reply);
    SafeArrayDestroy(array);
    for (const std::wstring& macro : macros)
        shown.Add(kMacros, macro.c_str());
    return shown.Drop(kMacros);
}
