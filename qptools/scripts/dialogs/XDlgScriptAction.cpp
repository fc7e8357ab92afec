#include "XDlgScriptAction.h"

#include "HostConstants.h"

#include "WindowTranslation.h"

#include "WaitCursor.h"

namespace qptools
{
namespace
{
constexpr UINT kTemplate = 213;

constexpr int kName = 250;
constexpr int kSequence = 251;
constexpr int kActionType = 254;
constexpr int kScript = 256;
constexpr int kAfter = 262; ///< the first of the two radio buttons
constexpr int kBefore = 263;
constexpr int kEnabled = 264;
constexpr int kPlanType = 266;
constexpr int kConfigType = 268;

/// What a user without the right to change cannot use. Cancel is not among them.
constexpr int kChanging[] = {kActionType, kPlanType, kConfigType, kScript,  kName,
                             kSequence,   kBefore,   kAfter,      kEnabled, IDOK};

constexpr wchar_t kWarning[] = L"Script Action Properties Warning";
} // namespace

// The mark "orvoplantype" comes before the two types, whose load depends on it.
const ScriptRecordEntry XDlgScriptAction::kRecord[] = {
    TextEntry<&XDlgScriptAction::m_strName>(L"m_name"),
    TextEntry<&XDlgScriptAction::m_strPrompt>(L"m_prompt"),
    RecordEntry<&XDlgScriptAction::LoadScript, &XDlgScriptAction::ScriptValue>(L"m_pScript"),
    ReadOnlyEntry<&XDlgScriptAction::LoadPlanTypeMark>(L"orvoplantype"),
    RecordEntry<&XDlgScriptAction::LoadConfigType, &XDlgScriptAction::ConfigTypeValue>(L"m_pType"),
    RecordEntry<&XDlgScriptAction::LoadPlanType, &XDlgScriptAction::PlanTypeValue>(L"m_pPlanType"),
    RecordEntry<&XDlgScriptAction::LoadActionType, &XDlgScriptAction::ActionTypeValue>(L"m_actionType"),
    NumberEntry<&XDlgScriptAction::m_beforeAfterRadio>(L"m_beforeAfter"),
    NumberEntry<&XDlgScriptAction::m_sequenceEdit>(L"m_iSequence"),
    NumberEntry<&XDlgScriptAction::m_bEnabledCheck, VT_BOOL>(L"m_bEnabled"),
};

XDlgScriptAction::XDlgScriptAction(IQPConfigFactory* pCF, IQP_Query* pQuery, IQP_BaseDataObject* pProject,
                                   IQP_BaseDataObject* pPTS, IQP_BaseDataObject* pScriptAction, HWND parent)
    : ScriptPropertyDialog(kTemplate, pCF, pQuery, pProject, pPTS, pScriptAction, parent)
{
    if (IsComplete())
        m_ptrConfigType = OpenRecord(kTypeScriptAction, kRecord, L"XDlgScriptAction::XDlgScriptAction", 61);
}

const CMessageMap& XDlgScriptAction::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnControl<&XDlgScriptAction::OnConfigTypesDropDown>(CBN_DROPDOWN, kConfigType),
        OnControl<&XDlgScriptAction::OnPlanTypesDropDown>(CBN_DROPDOWN, kPlanType),
        OnControl<&XDlgScriptAction::OnScriptsDropDown>(CBN_DROPDOWN, kScript),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

void XDlgScriptAction::DoDataExchange(CDataExchange* pDX)
{
    DDX_Control(pDX, kActionType, m_actionTypeBox);
    DDX_Control(pDX, kPlanType, m_planTypeBox);
    DDX_Control(pDX, kConfigType, m_configTypeBox);
    DDX_Control(pDX, kScript, m_scriptBox);
    DDX_Text(pDX, kName, m_strName);
    // A sequence that is no number ends the exchange here: what follows is then saved as it was loaded.
    DDX_Text(pDX, kSequence, m_sequenceEdit);
    int chosen = m_beforeAfterRadio;
    DDX_Radio(pDX, kAfter, chosen);
    // A loaded number that has no radio button stays until one is pressed.
    if (chosen >= 0)
        m_beforeAfterRadio = chosen;
    DDX_Check(pDX, kEnabled, m_bEnabledCheck);
}

bool XDlgScriptAction::OnInitDialog()
{
    CDialog::OnInitDialog();
    const CWaitCursor wait;
    LoadActionTypes();
    LoadRecord();
    ApplyRights();
    CoTranslateWindow(m_hWnd);
    UpdateData(false);
    return true;
}

void XDlgScriptAction::LoadActionTypes()
{
    m_actionTypes.Load(m_ptrConfigType.get());
    for (const auto& [number, name] : m_actionTypes.Names())
        m_actionTypeBox.AddString(name.c_str());
}

void XDlgScriptAction::ApplyRights()
{
    if (!m_ptrObject)
        return;
    const bool mayChange = MayChange();
    for (const int control : kChanging)
        EnableItem(control, mayChange);
}

// The types exclude each other only because to open one list deselects the other: a record that has both
// keeps both until then.

void XDlgScriptAction::OnConfigTypesDropDown()
{
    const CWaitCursor wait;
    m_planTypeBox.Deselect();
    if (m_configTypes.empty())
        m_configTypeBox.Refill([this]() -> auto& { return ReadConfigTypes(); });
}

void XDlgScriptAction::OnPlanTypesDropDown()
{
    const CWaitCursor wait;
    m_configTypeBox.Deselect();
    if (m_planTypes.empty())
        m_planTypeBox.Refill([this]() -> auto& { return ReadPlanTypes(); });
}

void XDlgScriptAction::OnScriptsDropDown()
{
    const CWaitCursor wait;
    if (m_scripts.empty())
        m_scriptBox.Refill([this]() -> auto& { return ReadScripts(); });
}

void XDlgScriptAction::OnOK()
{
    if (!m_planTypeBox.HasSelection() && !m_configTypeBox.HasSelection())
        return Warn(kWarning, L"Neither a configuration type nor a plantype selected.");
    if (!m_scriptBox.HasSelection())
        return Warn(kWarning, L"No script selected.");
    ReadControls();
    SaveRecord();
    EndDialog(IDOK);
}

void XDlgScriptAction::ReadControls()
{
    UpdateData();
    TakeChoice(m_planTypeBox, m_planTypes, m_ptrPlanType);
    TakeChoice(m_scriptBox, m_scripts, m_ptrScript);
    const std::wstring name = m_actionTypeBox.GetWindowText();
    if (!name.empty())
        m_actionValue = m_actionTypes.NumberOf(name).value_or(m_actionValue);
}

HRESULT XDlgScriptAction::LoadActionType(const VARIANT& value)
{
    Variant number;
    if (!CopyConverted(value, VT_I4, number))
        return S_OK;
    m_actionValue = number->lVal;
    const auto found = m_actionTypes.Names().find(number->lVal);
    if (found != m_actionTypes.Names().end())
        SelectByPrefix(m_actionTypeBox, -1, found->second);
    return S_OK;
}

Variant XDlgScriptAction::ActionTypeValue() const
{
    return Variant::OfNumber(m_actionValue);
}
} // namespace qptools
