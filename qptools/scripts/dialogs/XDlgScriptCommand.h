// The property dialog of a script command.
#pragma once

#include "ScriptPropertyDialog.h"

#include "qpservices.h"

#include <set>
#include <vector>

namespace qptools
{
/// A script command offers a script or a macro as a user command on objects of one configured type or of one
/// plan type: in the context menu, on the properties sheet, or on both.
///
/// Its sources: XDlgScriptCommand.cpp has the record, the events and OK; ScriptCommandPlacement.cpp the place
/// on the properties sheet; ScriptCommandMacros.cpp the list of macros.
class XDlgScriptCommand final : public ScriptPropertyDialog
{
public:
    /// `pProject` may be null. If another argument is null, or the host does not know the type of script
    /// commands, the dialog opens with empty controls and its OK writes nothing; the latter is reported.
    XDlgScriptCommand(IQPFObjectManager* pObjectManager, IQPConfigFactory* pCF, IQP_Query* pQuery,
                      IQP_BaseDataObject* pProject, IQP_BaseDataObject* pPTS,
                      IQP_BaseDataObject* pScriptCommand, HWND parent);

protected:
    const CMessageMap& GetMessageMap() const override;
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;

    /// Writes the attributes and ends the dialog if a type, a script or macro, and a place are chosen;
    /// otherwise shows a warning.
    void OnOK() override;

private:
    static const ScriptRecordEntry kRecord[];

    /// Bits of m_uiType. Higher bits are not kept.
    static constexpr int kInContextMenu = 1;
    static constexpr int kInProperties = 2;

    /// m_customizationType if the command has no place. Other values are indexes of kPlacementKinds.
    static constexpr int kNowhere = -1;

    /// Where a command may be placed, as the user chooses it and customizationobjecttype holds it.
    struct PlacementKind
    {
        int button; ///< the radio button

        HRESULT (XDlgScriptCommand::*fill)(IQPType* type);
        std::wstring (XDlgScriptCommand::*nameFromId)() const;
        void (XDlgScriptCommand::*takeId)(const std::wstring& name);
    };
    static const PlacementKind kPlacementKinds[];

    void FillExecutionModes();
    void LoadFromCommand();
    void SyncInterfaceChecks() noexcept;
    void ApplyRights();
    void ReadControls();

    void OnConfigTypesDropDown();
    void OnPlanTypesDropDown();
    void OnScriptsDropDown();
    void OnMacrosDropDown();
    void OnExecutionDropDown();
    void OnDisplayInProperties();
    void OnPlacementKind();

    HRESULT LoadMacroName(const VARIANT& value);
    Variant MacroNameValue() const;
    HRESULT LoadExecution(const VARIANT& value);
    Variant ExecutionValue() const;

    // The macros.

    /// Returns E_POINTER without a query or an object manager; the status of a failed search; that of the
    /// object manager if it gives no loader; E_NOINTERFACE if that is none; else the status of the loader.
    HRESULT LoadMacros();
    HRESULT LoadVBAProjects(std::vector<ComPtr<IQP_BaseDataObject>>& projects) const;
    HRESULT InvokeLoader(IVBALoaderManager* loader, const std::vector<ComPtr<IQP_BaseDataObject>>& projects);
    const std::set<std::wstring>& ReadMacros();

    // The place on the properties sheet: a page, a group or an attribute of the object's type.

    void LoadPlacement();
    void FillPlacementNames();

    /// Takes over the place that is chosen. Returns false, after a warning, if there is no name.
    bool SavePlacement();
    void EnablePlacementOptions(bool enable);

    /// The kind whose radio button is checked; null if none is.
    const PlacementKind* CheckedKind() const;

    /// The type that the stored record is for; null if it cannot be got.
    ComPtr<IQPType> StoredType();
    /// The type that the combo boxes show; null if there is none.
    ComPtr<IQPType> ShownType() const;
    ComPtr<IQPType> TypeOfPlanType(IQP_BaseDataObject* planType) const;

    // Fill a list and the combo box. Return E_POINTER without a type; the status of the host if it failed or
    // gave no enumerator (on purpose S_OK for the groups); else S_OK.

    HRESULT FillPages(IQPType* type);
    HRESULT FillGroups(IQPType* type);
    HRESULT FillAttributes(IQPType* type);

    // The name of the listed element with the stored identifier; empty if there is none.

    std::wstring PageNameFromId() const;
    std::wstring GroupNameFromId() const;
    std::wstring AttributeNameFromId() const;

    // Take over the identifier of a listed element; without such an element the stored one stays, on purpose.

    void TakePageId(const std::wstring& name);
    void TakeGroupId(const std::wstring& name);
    void TakeAttributeId(const std::wstring& name);

    ComPtr<IQPFObjectManager> m_ptrObjectManager;

    OnDemandComboBox m_macroBox;
    CComboBox m_executionBox;
    CComboBox m_placementBox;

    std::set<std::wstring> m_macros;
    ByName<IQPPage> m_pages;
    ByName<IQPGroup> m_groups;
    ByName<IQPAttribute> m_attributes;

    std::wstring m_strName;
    std::wstring m_strPromptText;
    std::wstring m_strExecution;
    int m_bVisibleCheck = 1;
    int m_bContextMenuCheck = 1;
    int m_bPropertiesCheck = 0;
    int m_uiType = kInContextMenu;
    std::wstring m_customizationId;
    int m_customizationType = 0;
};
} // namespace qptools
