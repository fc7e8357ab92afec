// The enhanced copy dialog.
#pragma once

#include "AttributeOverrides.h"
#include "CEnhanceCopyListCtrl.h"
#include "CopyCandidates.h"
#include "Export.h"

#include "Button.h"
#include "ComPtr.h"
#include "ComboBox.h"
#include "Dialog.h"
#include "Static.h"

#include "qpconfig.h"
#include "qpobjects.h"

#include <string>

namespace qptools
{
/// Asks how to copy objects, Normal or Deep, and for the values that attributes of the copies get. The host
/// makes the copies; the values are applied to them afterwards, so the object outlives its window. Values are
/// kept by the caption of the plan type: whether Normal or Deep is chosen does not matter to them.
///
/// The window is contracted at first, with buttons for both kinds of copy. "Advanced" expands it to the grid
/// of attributes, and then radio buttons take the place of the buttons.
class CEnhancedCopyDialog : public CDialog
{
public:
    /// Button ids, as SetButtonClicked takes them.
    static constexpr int kNormalButton = 367;
    static constexpr int kDeepButton = 368;
    static constexpr int kCancelButton = 369;
    static constexpr int kAdvancedButton = 371;

    /// `objects` are those to be copied. Both arguments may be null. The dialog holds references to both.
    QPTOOLS_EXPORT CEnhancedCopyDialog(IEnumBaseDataObject* objects, IQPConfigFactory* factory);
    QPTOOLS_EXPORT ~CEnhancedCopyDialog() override;

    /// Shows the dialog. Returns -1 if it cannot be created, any other number after it was closed. Throws
    /// ComException(E_OUTOFMEMORY) or std::bad_alloc.
    QPTOOLS_EXPORT INT_PTR DoModal();

    QPTOOLS_EXPORT void SetButtonClicked(int id) noexcept;

    /// The button that was clicked last; 0 if none was. OK counts as Normal or Deep.
    QPTOOLS_EXPORT int GetButtonClicked() const noexcept;

    /// Takes the value of an attribute of the plan type shown from a cell of the grid.
    QPTOOLS_EXPORT void UpdateDataContainer(int row, int column);

    /// Sets the values on `copies`, if Normal or Deep was chosen: on the objects themselves for Normal, also
    /// on those below them for Deep. The dialog holds a reference to `copies` from then on, in place of the
    /// objects to be copied. `copies` may be null. Nothing is saved. No failure is reported but to the log
    /// book.
    QPTOOLS_EXPORT void ApplyEnhanceCopy(IEnumBaseDataObject* copies) noexcept;

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    const CMessageMap& GetMessageMap() const override;

private:
    void OnNormal();
    void OnDeep();
    void OnCancelButton();
    void OnAdvanced();
    void OnAdvancedOk();
    void OnRadio();
    void OnPlanTypesDropDown();
    void OnPlanTypeSelected();
    void OnPlanTypesClosed();

    void EndWith(int button);
    void ExpandorContract();
    int ContractedHeight(const CRect& window);
    void ShowAdvanced(bool advanced) const;
    int CheckedRadio() const noexcept;
    CopyCandidates& Candidates(CopyRoute route) noexcept;
    void Collect(CopyRoute route, CopyCandidates& candidates) const;
    void ClearMaps() noexcept;
    void ShowPlanType();
    bool FillGrid(IQPType* type);
    void UpdateListCtrlData(const XQPComBSTR& planTypeCaption);
    void ApplyTo(const CopyCandidateRecord& record) const;
    static void ApplyAttributeSettings(IQP_BaseDataObject* object, SafeArray& pairs);

    int m_buttonClicked = 0;
    int m_groupBottom = 0;        ///< of the frame, from the top of the window
    int m_fullHeight = 0;         ///< of the expanded window
    bool m_expandPending = false; ///< the next change of the layout expands
    CEnhanceCopyListCtrl m_grid;
    CButton m_normalRadio;
    CButton m_deepRadio;
    CStatic m_group;
    bool m_comboNeedsRefill = true;
    bool m_planTypeBrowsed = false; ///< the selection has changed since the list opened
    CopyCandidates m_normalCandidates;
    CopyCandidates m_deepCandidates;
    std::wstring m_planTypeCaption; ///< of the plan type that the grid shows
    AttributeOverrides m_attributeOverrides;
    ComPtr<IEnumBaseDataObject> m_enumObjects; ///< the objects to be copied, later the copies
    ComPtr<IQPConfigFactory> m_configFactory;  ///< kept for the host, and not used
    CComboBox m_planTypes;
    int m_comboFilledForRadio = -1; ///< the radio button that was checked when the list was filled
};
} // namespace qptools
