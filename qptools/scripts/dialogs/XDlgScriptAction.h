// The property dialog of a script action.
#pragma once

#include "ActionTypes.h"
#include "ScriptPropertyDialog.h"

namespace qptools
{
/// A script action runs a script before or after an action, on objects of one configured type or of one plan
/// type, at its place in a sequence, if it is enabled.
class XDlgScriptAction final : public ScriptPropertyDialog
{
public:
    /// `pProject` may be null. If another argument is null, or the host does not know the type of script
    /// actions, the dialog opens with empty controls and its OK writes nothing; the latter is reported.
    XDlgScriptAction(IQPConfigFactory* pCF, IQP_Query* pQuery, IQP_BaseDataObject* pProject,
                     IQP_BaseDataObject* pPTS, IQP_BaseDataObject* pScriptAction, HWND parent);

protected:
    const CMessageMap& GetMessageMap() const override;
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;

    /// Writes the attributes and ends the dialog if a script and a type are selected; otherwise shows a
    /// warning.
    void OnOK() override;

private:
    static const ScriptRecordEntry kRecord[];

    void LoadActionTypes();
    void ApplyRights();
    void ReadControls();

    void OnConfigTypesDropDown();
    void OnPlanTypesDropDown();
    void OnScriptsDropDown();

    /// Also selects the name in the combo box.
    HRESULT LoadActionType(const VARIANT& value);
    Variant ActionTypeValue() const;

    ComPtr<IQPType> m_ptrConfigType;
    ActionTypes m_actionTypes;
    CComboBox m_actionTypeBox;

    std::wstring m_strName;
    std::wstring m_strPrompt; ///< has no control and is written as it was read
    int m_actionValue = 0;    ///< also of an action type that is not listed
    int m_sequenceEdit = 0;
    int m_beforeAfterRadio = 0; ///< 0 after, 1 before
    int m_bEnabledCheck = 0;
};
} // namespace qptools
