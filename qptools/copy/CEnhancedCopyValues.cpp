// The values of the enhanced copy dialog: from the grid, to the grid, and to the copies.
#include "CEnhancedCopyDialog.h"

#include "ReadNumber.h"

#include "HostConstants.h"

#include "XQPError.h"

#include "UiState.h"

#include <utility>

namespace qptools
{
namespace
{
// The line numbers in the log book that tell the two apart. They are not positions in this file and never
// change.
constexpr ULONG kApplyLine = 688;
constexpr ULONG kSetAttributesLine = 705;
} // namespace

// The host is asked last: if it calls back, the user may show another plan type meanwhile.
void CEnhancedCopyDialog::UpdateDataContainer(int row, int column)
{
    if (row < 0 || row >= m_grid.GetItemCount())
        return;
    const XQPComBSTR planType = m_planTypeCaption.c_str();
    const XQPComBSTR attribute = m_grid.GetItemText(row, 0).c_str();
    const XQPComBSTR value = m_grid.GetItemText(row, column).c_str();
    int type = 0;
    ReadNumber(m_grid.AttributeOf(row), kAttributeMemberTypeCode, type);
    m_attributeOverrides.At(planType, attribute) = {planType, column, type, value, type, row, column};
}

// A value goes to the row where it was typed, not to that of its name: the rows of a plan type are expected
// to come in the same order each time.
void CEnhancedCopyDialog::UpdateListCtrlData(const XQPComBSTR& planTypeCaption)
{
    AttributeOverrides::ByAttribute* attributes = m_attributeOverrides.Shown(planTypeCaption);
    for (int row = 0; attributes && row < m_grid.GetItemCount(); ++row)
        if (const auto& record = (*attributes)[m_grid.GetItemText(row, 0).c_str()])
            m_grid.SetItemText(record->row, record->cellColumn, record->value);
}

CopyCandidates& CEnhancedCopyDialog::Candidates(CopyRoute route) noexcept
{
    return route == CopyRoute::Parents ? m_normalCandidates : m_deepCandidates;
}

// A host that calls back may set other objects meanwhile.
void CEnhancedCopyDialog::Collect(CopyRoute route, CopyCandidates& candidates) const
{
    const ComPtr objects = m_enumObjects;
    if (!objects)
        return;
    CollectCandidates(objects.get(), route, candidates);
    objects->Reset();
}

// Both are empty before a host's object is released, which may call back.
void CEnhancedCopyDialog::ClearMaps() noexcept
{
    const CopyCandidates deep = std::exchange(m_deepCandidates, {});
    const CopyCandidates normal = std::exchange(m_normalCandidates, {});
}

// On purpose a failure of any kind reaches the log book only: what was set until then stays.
void CEnhancedCopyDialog::ApplyEnhanceCopy(IEnumBaseDataObject* copies) noexcept
{
    const CUiState uiState;
    m_enumObjects = ComPtr(copies);
    try
    {
        ClearMaps();
        const bool isNormal = m_buttonClicked == kNormalButton;
        if (m_attributeOverrides.IsEmpty() || (!isNormal && m_buttonClicked != kDeepButton))
            return;
        const CopyRoute route = isNormal ? CopyRoute::Parents : CopyRoute::ParentsAndChildren;
        // A host that applies again while values are set empties the members.
        CopyCandidates candidates;
        Collect(route, candidates);
        for (const auto& [type, record] : candidates)
            ApplyTo(record);
        Candidates(route) = std::move(candidates);
    }
    catch (...)
    {
        XQPError::WriteErrorToLogBook(L"QPTools", L"ApplyEnhanceCopy()", kApplyLine, L"UnExpected Behaviour",
                                      E_UNEXPECTED);
    }
}

void CEnhancedCopyDialog::ApplyTo(const CopyCandidateRecord& record) const
{
    const std::wstring_view caption = record.caption.View();
    const auto* attributes =
        m_attributeOverrides.Find(XQPComBSTR(caption.data(), static_cast<int>(caption.size())));
    if (!attributes || attributes->empty())
        return;
    SafeArray pairs = PairsOf(*attributes);
    for (const auto& object : record.objects)
        ApplyAttributeSettings(object.get(), pairs);
}

void CEnhancedCopyDialog::ApplyAttributeSettings(IQP_BaseDataObject* object, SafeArray& pairs)
{
    SAFEARRAY* result = nullptr;
    if (object->SetAttributes(pairs.Address(), &result) == S_OK)
    {
        // What the host refused stands in the result, which is not read, on purpose.
        const SafeArray destroyed(result);
        return;
    }
    // On purpose no result is destroyed: a call that fails has none.
    XQPError::WriteLogLineToLogBook(L"Orvoexplorer", L"CEnhancedCopyDialog::ApplyAttributeSettings",
                                    kSetAttributesLine,
                                    L"pDBO->SetAttributes(pNameValuePairs,&pSafeArrayResult");
}
} // namespace qptools
