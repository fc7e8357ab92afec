#include "CEnhancedCopyDialog.h"

#include "ReadNumber.h"

#include "HostConstants.h"

#include "MessageBoxes.h"
#include "Translation.h"
#include "WindowTranslation.h"
#include "XQPComVariant.h"

#include "UiState.h"

#include <utility>

namespace qptools
{
namespace
{
constexpr UINT kTemplate = 379;

constexpr int kGroup = 372;
constexpr int kGrid = 373;
constexpr int kPlanTypes = 374;
constexpr int kNormalRadio = 375;
constexpr int kDeepRadio = 376;
constexpr int kAdvancedOk = 377;
constexpr int kAdvancedCancel = 378;

/// Pixels between the frame and the lower edge of the contracted window.
constexpr int kBelowGroup = 12;

/// LVS_EX_GRIDLINES and 0x200, which has no effect here.
constexpr DWORD kGridStyle = 0x201;
constexpr int kNameWidth = 120;
constexpr int kValueWidth = 200;

/// The value of a member of an attribute that may be set.
constexpr int kOffered = 4;
} // namespace

CEnhancedCopyDialog::CEnhancedCopyDialog(IEnumBaseDataObject* objects, IQPConfigFactory* factory)
    : CDialog(kTemplate), m_enumObjects(objects), m_configFactory(factory)
{
}

CEnhancedCopyDialog::~CEnhancedCopyDialog() = default;

INT_PTR CEnhancedCopyDialog::DoModal()
{
    const CUiState uiState;
    return CDialog::DoModal();
}

void CEnhancedCopyDialog::SetButtonClicked(int id) noexcept
{
    m_buttonClicked = id;
}

int CEnhancedCopyDialog::GetButtonClicked() const noexcept
{
    return m_buttonClicked;
}

const CMessageMap& CEnhancedCopyDialog::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnCommand<&CEnhancedCopyDialog::OnNormal>(kNormalButton),
        OnCommand<&CEnhancedCopyDialog::OnDeep>(kDeepButton),
        OnCommand<&CEnhancedCopyDialog::OnCancelButton>(kCancelButton),
        OnCommand<&CEnhancedCopyDialog::OnAdvanced>(kAdvancedButton),
        OnCommand<&CEnhancedCopyDialog::OnAdvancedOk>(kAdvancedOk),
        OnCommand<&CEnhancedCopyDialog::OnCancelButton>(kAdvancedCancel),
        OnCommand<&CEnhancedCopyDialog::OnRadio>(kNormalRadio),
        OnCommand<&CEnhancedCopyDialog::OnRadio>(kDeepRadio),
        OnControl<&CEnhancedCopyDialog::OnPlanTypesDropDown>(CBN_DROPDOWN, kPlanTypes),
        OnControl<&CEnhancedCopyDialog::OnPlanTypeSelected>(CBN_SELCHANGE, kPlanTypes),
        OnControl<&CEnhancedCopyDialog::OnPlanTypesClosed>(CBN_CLOSEUP, kPlanTypes),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

void CEnhancedCopyDialog::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, kGroup, m_group);
    DDX_Control(pDX, kGrid, m_grid);
    DDX_Control(pDX, kPlanTypes, m_planTypes);
    DDX_Control(pDX, kNormalRadio, m_normalRadio);
    DDX_Control(pDX, kDeepRadio, m_deepRadio);
}

bool CEnhancedCopyDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    CheckRadioButton(m_hWnd, kNormalRadio, kDeepRadio, kNormalRadio);
    ExpandorContract();
    m_grid.SetExtendedStyle(kGridStyle);
    m_grid.InsertColumn(0, CoTranslateText(L"Available attributes"), LVCFMT_LEFT, kNameWidth);
    m_grid.InsertColumn(1, CoTranslateText(L"Set to dynamic value"), LVCFMT_LEFT, kValueWidth);
    m_grid.EnableWindow(false);
    CoTranslateWindow(m_hWnd);
    // The template has two default buttons.
    SetDefaultButton(kNormalButton);
    return true;
}

// Buttons.

void CEnhancedCopyDialog::OnNormal()
{
    EndWith(kNormalButton);
}

void CEnhancedCopyDialog::OnDeep()
{
    EndWith(kDeepButton);
}

void CEnhancedCopyDialog::OnCancelButton()
{
    EndWith(kCancelButton);
}

// Without a checked radio button the last button stays.
void CEnhancedCopyDialog::OnAdvancedOk()
{
    const int radio = CheckedRadio();
    EndWith(radio == kDeepRadio ? kDeepButton : radio == kNormalRadio ? kNormalButton : m_buttonClicked);
}

void CEnhancedCopyDialog::EndWith(int button)
{
    SetButtonClicked(button);
    EndDialog(IDOK);
}

// On purpose every click collects the objects again, also the one that contracts: they are counted twice
// then, which matters to nothing.
void CEnhancedCopyDialog::OnAdvanced()
{
    SetButtonClicked(kAdvancedButton);
    ExpandorContract();
    for (const CopyRoute route : {CopyRoute::ParentsAndChildren, CopyRoute::Parents})
        Collect(route, Candidates(route));
}

// The two layouts.

void CEnhancedCopyDialog::ExpandorContract()
{
    CRect window = GetWindowRect();
    const int height = m_expandPending ? m_fullHeight : ContractedHeight(window);
    ShowAdvanced(m_expandPending);
    window.bottom = window.top + height;
    MoveWindow(window);
    m_expandPending = !m_expandPending;
}

int CEnhancedCopyDialog::ContractedHeight(const CRect& window)
{
    m_fullHeight = window.Height();
    m_groupBottom = m_group.GetWindowRect().bottom - window.top;
    return m_groupBottom + kBelowGroup;
}

void CEnhancedCopyDialog::ShowAdvanced(bool advanced) const
{
    SetItemText(kAdvancedButton, CoTranslateText(advanced ? L"Advanced <<" : L"Advanced >>"));
    const auto show = [this](int id, bool shown) {
        ShowItem(id, shown);
        EnableItem(id, shown);
    };
    for (const int id : {kPlanTypes, kGrid, kNormalRadio, kDeepRadio})
        show(id, advanced);
    for (const int id : {kNormalButton, kDeepButton, kCancelButton})
        show(id, !advanced);
}

// The plan types.

int CEnhancedCopyDialog::CheckedRadio() const noexcept
{
    return IsItemChecked(kDeepRadio) ? kDeepRadio : IsItemChecked(kNormalRadio) ? kNormalRadio : 0;
}

void CEnhancedCopyDialog::OnRadio()
{
    if (CheckedRadio() == m_comboFilledForRadio)
        return;
    m_grid.DeleteAllItems();
    m_planTypes.ResetContent();
    m_planTypeCaption.clear();
    m_comboNeedsRefill = true;
}

void CEnhancedCopyDialog::OnPlanTypesDropDown()
{
    const int radio = CheckedRadio();
    m_planTypeBrowsed = false;
    if (!m_comboNeedsRefill)
        return;
    m_planTypes.ResetContent();
    if (radio == 0)
        return;
    for (const auto& [type, record] :
         Candidates(radio == kDeepRadio ? CopyRoute::ParentsAndChildren : CopyRoute::Parents))
    {
        const int item = m_planTypes.AddString(std::wstring(record.caption.View()).c_str());
        if (item >= 0)
            m_planTypes.SetItemData(item, reinterpret_cast<LPARAM>(type.get()));
    }
    m_comboFilledForRadio = radio;
    m_comboNeedsRefill = false;
}

// Keys browse an open list: what they select counts when it closes. The mouse closes it first.
void CEnhancedCopyDialog::OnPlanTypeSelected()
{
    if (m_planTypes.GetDroppedState())
        m_planTypeBrowsed = true;
    else
        ShowPlanType();
}

void CEnhancedCopyDialog::OnPlanTypesClosed()
{
    if (std::exchange(m_planTypeBrowsed, false))
        ShowPlanType();
}

void CEnhancedCopyDialog::ShowPlanType()
{
    const int item = m_planTypes.GetCurSel();
    if (item < 0)
        return;
    // Not counted by the list, and a type that is no candidate any more may be gone.
    auto* found = reinterpret_cast<IQPType*>(m_planTypes.GetItemData(item));
    std::wstring caption = m_planTypes.GetLBText(item);
    if ((!m_normalCandidates.contains(found) && !m_deepCandidates.contains(found)) ||
        (!caption.empty() && caption == m_planTypeCaption))
        return;
    const ComPtr type(found);
    m_planTypeCaption = std::move(caption);
    m_grid.EnableWindow();
    m_grid.DeleteAllItems();
    if (!FillGrid(type.get()))
        return;
    if (m_grid.GetItemCount() > 0)
    {
        UpdateListCtrlData(m_planTypeCaption.c_str());
        return;
    }
    CoOkBox(m_hWnd, L"qptools", CoTranslateText(L"None of the attributes are configured for extended copy!"),
            0);
    m_grid.EnableWindow(false);
}

/// Shows the attributes that may be set, in the reverse order of the host's list. Returns false if an
/// attribute cannot be read; those before it are shown.
bool CEnhancedCopyDialog::FillGrid(IQPType* type)
{
    ComPtr<IQPAttributeEnum> attributes;
    type->GetDisplayAttributeEnum(kDisplayEnhancedCopy, attributes.put());
    ComPtr<IQPAttribute> attribute;
    while (attributes && attributes->GetSingleNext(attribute.put()) >= 0 && attribute)
    {
        int offered = 0;
        if (ReadNumber(attribute.get(), kAttributeMemberEnhancedCopy, offered) < 0)
            return false;
        if (offered != kOffered)
            continue;
        XQPComVariant name;
        if (attribute->GetProperty(kAttributeMemberName, &name) < 0)
            return false;
        m_grid.InsertAttribute(name.GetString(), attribute.get());
    }
    return true;
}
} // namespace qptools
