#include "XDlgScriptCommand.h"

#include "ScriptCommandControls.h"

#include "HostConstants.h"

#include "Translation.h"
#include "WindowTranslation.h"

#include "WaitCursor.h"

namespace qptools
{
using namespace script_command;

namespace
{
constexpr UINT kTemplate = 214;

/// What a user without the right to change cannot use. On purpose the two check boxes of the interface are
/// not among them, nor what follows the second one.
constexpr int kChanging[] = {kPlanType, kConfigType, kScript,  kMacro, kExecution,
                             kName,     kPrompt,     kVisible, IDOK};

/// The execution modes, in the order of the combo box.
enum ExecutionMode
{
    kOnceForAll,
    kForEach
};

/// Translated once a process, so that what is shown and what is compared at OK are the same.
const std::wstring& ExecutionText(ExecutionMode mode)
{
    static const std::wstring texts[] = {CoTranslateText(L"Once for all objects"),
                                         CoTranslateText(L"For each object")};
    return texts[mode];
}
} // namespace

// The mark "orvoplantype" comes before the two types, whose load depends on it.
const ScriptRecordEntry XDlgScriptCommand::kRecord[] = {
    TextEntry<&XDlgScriptCommand::m_strName>(L"m_name"),
    TextEntry<&XDlgScriptCommand::m_strPromptText>(L"m_strPrompt"),
    RecordEntry<&XDlgScriptCommand::LoadScript, &XDlgScriptCommand::ScriptValue>(L"m_pScript"),
    RecordEntry<&XDlgScriptCommand::LoadMacroName, &XDlgScriptCommand::MacroNameValue>(L"m_strVBAMacroName"),
    ReadOnlyEntry<&XDlgScriptCommand::LoadPlanTypeMark>(L"orvoplantype"),
    RecordEntry<&XDlgScriptCommand::LoadConfigType, &XDlgScriptCommand::ConfigTypeValue>(L"m_strType"),
    RecordEntry<&XDlgScriptCommand::LoadPlanType, &XDlgScriptCommand::PlanTypeValue>(L"m_pPlanType"),
    NumberEntry<&XDlgScriptCommand::m_bVisibleCheck, VT_BOOL>(L"m_bVisible"),
    NumberEntry<&XDlgScriptCommand::m_uiType>(L"m_lUserInterfaceType"),
    RecordEntry<&XDlgScriptCommand::LoadExecution, &XDlgScriptCommand::ExecutionValue>(L"m_nameShort"),
    TextEntry<&XDlgScriptCommand::m_customizationId>(L"customizationobjectid"),
    NumberEntry<&XDlgScriptCommand::m_customizationType, VT_INT>(L"customizationobjecttype"),
};

XDlgScriptCommand::XDlgScriptCommand(IQPFObjectManager* pObjectManager, IQPConfigFactory* pCF,
                                     IQP_Query* pQuery, IQP_BaseDataObject* pProject,
                                     IQP_BaseDataObject* pPTS, IQP_BaseDataObject* pScriptCommand,
                                     HWND parent)
    : ScriptPropertyDialog(kTemplate, pCF, pQuery, pProject, pPTS, pScriptCommand, parent),
      m_ptrObjectManager(pObjectManager)
{
    if (m_ptrObjectManager && IsComplete())
        OpenRecord(kTypeScriptCommand, kRecord, L"XDlgScriptCommand::XDlgScriptCommand", 70);
}

const CMessageMap& XDlgScriptCommand::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnControl<&XDlgScriptCommand::OnConfigTypesDropDown>(CBN_DROPDOWN, kConfigType),
        OnControl<&XDlgScriptCommand::OnPlanTypesDropDown>(CBN_DROPDOWN, kPlanType),
        OnControl<&XDlgScriptCommand::OnScriptsDropDown>(CBN_DROPDOWN, kScript),
        OnControl<&XDlgScriptCommand::OnMacrosDropDown>(CBN_DROPDOWN, kMacro),
        OnControl<&XDlgScriptCommand::OnExecutionDropDown>(CBN_DROPDOWN, kExecution),
        OnControl<&XDlgScriptCommand::FillPlacementNames>(CBN_DROPDOWN, kElementName),
        OnCommand<&XDlgScriptCommand::OnDisplayInProperties>(kProperties),
        OnCommand<&XDlgScriptCommand::OnPlacementKind>(kPage),
        OnCommand<&XDlgScriptCommand::OnPlacementKind>(kGroup),
        OnCommand<&XDlgScriptCommand::OnPlacementKind>(kAttribute),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

void XDlgScriptCommand::DoDataExchange(CDataExchange* pDX)
{
    DDX_Control(pDX, kPlanType, m_planTypeBox);
    DDX_Control(pDX, kConfigType, m_configTypeBox);
    DDX_Control(pDX, kMacro, m_macroBox);
    DDX_Control(pDX, kScript, m_scriptBox);
    DDX_Text(pDX, kName, m_strName);
    DDX_Check(pDX, kVisible, m_bVisibleCheck);
    DDX_Text(pDX, kPrompt, m_strPromptText);
    DDX_Check(pDX, kContextMenu, m_bContextMenuCheck);
    DDX_Check(pDX, kProperties, m_bPropertiesCheck);
    DDX_Control(pDX, kExecution, m_executionBox);
    DDX_Control(pDX, kElementName, m_placementBox);
}

bool XDlgScriptCommand::OnInitDialog()
{
    CDialog::OnInitDialog();
    FillExecutionModes();
    LoadFromCommand();
    SyncInterfaceChecks();
    ApplyRights();
    CoTranslateWindow(m_hWnd);
    UpdateData(false);
    return true;
}

/// Inserted, because the box would sort what is added, and the modes are known by their index.
void XDlgScriptCommand::FillExecutionModes()
{
    for (const ExecutionMode mode : {kOnceForAll, kForEach})
        m_executionBox.InsertString(mode, ExecutionText(mode).c_str());
}

void XDlgScriptCommand::LoadFromCommand()
{
    if (!m_ptrObject)
        return;
    LoadRecord();
    // Also after a load that ended early.
    LoadPlacement();
}

void XDlgScriptCommand::SyncInterfaceChecks() noexcept
{
    m_bContextMenuCheck = m_uiType & kInContextMenu ? BST_CHECKED : BST_UNCHECKED;
    m_bPropertiesCheck = m_uiType & kInProperties ? BST_CHECKED : BST_UNCHECKED;
}

void XDlgScriptCommand::ApplyRights()
{
    if (!m_ptrObject)
        return;
    const bool mayChange = MayChange();
    for (const int control : kChanging)
        EnableItem(control, mayChange);
    EnablePlacementOptions(m_bPropertiesCheck != BST_UNCHECKED);
}

// To open a list deselects its opposite: script and macro, configured type and plan type exclude each other
// only by this. A record that has both keeps both until then. On purpose the lists of types are read again
// while they do not show all that was read: the place on the properties sheet reads the configured types,
// too.

void XDlgScriptCommand::OnConfigTypesDropDown()
{
    const CWaitCursor wait;
    m_placementBox.ResetContent();
    m_planTypeBox.Deselect();
    if (!m_configTypeBox.ShowsAll(m_configTypes))
        m_configTypeBox.Refill([this]() -> auto& { return ReadConfigTypes(); });
}

void XDlgScriptCommand::OnPlanTypesDropDown()
{
    const CWaitCursor wait;
    m_placementBox.ResetContent();
    m_configTypeBox.Deselect();
    if (!m_planTypeBox.ShowsAll(m_planTypes))
        m_planTypeBox.Refill([this]() -> auto& { return ReadPlanTypes(); });
}

void XDlgScriptCommand::OnScriptsDropDown()
{
    const CWaitCursor wait;
    m_macroBox.Deselect();
    if (m_scripts.empty())
        m_scriptBox.Refill([this]() -> auto& { return ReadScripts(); });
}

void XDlgScriptCommand::OnMacrosDropDown()
{
    const CWaitCursor wait;
    m_scriptBox.Deselect();
    if (m_macros.empty())
        m_macroBox.Refill([this]() -> auto& { return ReadMacros(); });
}

/// On purpose: to open the list resets the mode to the first one.
void XDlgScriptCommand::OnExecutionDropDown()
{
    const CWaitCursor wait;
    m_executionBox.SetCurSel(kOnceForAll);
}

void XDlgScriptCommand::OnDisplayInProperties()
{
    UpdateData();
    EnablePlacementOptions(m_bPropertiesCheck != BST_UNCHECKED);
}

void XDlgScriptCommand::OnPlacementKind()
{
    m_placementBox.ResetContent();
}

void XDlgScriptCommand::OnOK()
{
    if (!m_planTypeBox.HasSelection() && !m_configTypeBox.HasSelection())
        return Warn(kWarning, kNoType);
    if (!m_scriptBox.HasSelection() && !m_macroBox.HasSelection())
        return Warn(kWarning, L"Neither a script nor a VBA Macro selected.");
    if (IsItemChecked(kProperties))
    {
        if (!SavePlacement())
            return;
    }
    else
    {
        m_customizationId.clear();
        m_customizationType = kNowhere;
    }
    ReadControls();
    SaveRecord();
    EndDialog(IDOK);
}

void XDlgScriptCommand::ReadControls()
{
    UpdateData();
    TakeChoice(m_planTypeBox, m_planTypes, m_ptrPlanType);
    TakeChoice(m_scriptBox, m_scripts, m_ptrScript);
    m_uiType = (m_bContextMenuCheck ? kInContextMenu : 0) | (m_bPropertiesCheck ? kInProperties : 0);
    m_strExecution = m_executionBox.GetWindowText();
}

HRESULT XDlgScriptCommand::LoadMacroName(const VARIANT& value)
{
    const std::wstring name = TextOrEmpty(value);
    if (!name.empty())
        m_macroBox.ShowStored(name);
    return S_OK;
}

Variant XDlgScriptCommand::MacroNameValue() const
{
    return Variant::OfText(m_macroBox.GetWindowText());
}

HRESULT XDlgScriptCommand::LoadExecution(const VARIANT& value)
{
    Variant text;
    if (!CopyConverted(value, VT_BSTR, text))
        return S_OK;
    m_strExecution = text.View();
    // On purpose only "0": a command that has the words for it is once for all until it is edited here.
    m_executionBox.SetCurSel(m_strExecution == L"0" ? kOnceForAll : kForEach);
    return S_OK;
}

/// A mode that is not selected is written as the second one.
Variant XDlgScriptCommand::ExecutionValue() const
{
    return Variant::OfText(m_strExecution == ExecutionText(kOnceForAll) ? L"0" : L"1");
}
} // namespace qptools
