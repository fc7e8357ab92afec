// The place of a command on the properties sheet of its type: the options of XDlgScriptCommand.
#include "XDlgScriptCommand.h"

#include "ScriptCommandControls.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ValueWord.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace qptools
{
using namespace script_command;

namespace
{
/// A member of a configured object as text; nothing if it cannot be read or has no text.
std::optional<std::wstring> MemberText(IQPConfigObject* object, int member)
{
    Variant value;
    Variant text;
    if (object->GetProperty(member, value.put()) < 0 || !CopyConverted(value.get(), VT_BSTR, text))
        return std::nullopt;
    return std::wstring(text.View());
}

/// A member that is a number, in decimals.
std::optional<std::wstring> MemberNumber(IQPConfigObject* object, int member)
{
    Variant value;
    Variant number;
    if (object->GetProperty(member, value.put()) < 0 || !CopyConverted(value.get(), VT_I4, number))
        return std::nullopt;
    return std::to_wstring(number->lVal);
}

bool IsListed(IQPConfigObject* object, int member)
{
    Variant listed;
    return object->GetProperty(member, listed.put()) >= 0 && ValueWord(listed.get()) != 0;
}

/// Adds every element for which `nameOf` returns a name to the list and the combo box. Of equal
/// names the box shows each and the list keeps the last.
template <class Enumerator, class List, class NameOf>
void AddElements(const ComPtr<Enumerator>& elements, List& list, const CComboBox& box, NameOf&& nameOf)
{
    EnumWalk walk(elements.get(), WalkBy::GetSingleNext, WalkEnd::AtStatusOnly);
    while (walk.Next())
    {
        const std::optional<std::wstring> name = nameOf(walk.Object());
        if (!name)
            continue;
        list[*name] = walk.Take();
        box.AddString(name->c_str());
    }
}

/// The name of the first element, in the order of the list, whose identifier is `id`; empty if there is none.
template <class List, class IdOf>
std::wstring NameFromId(const List& list, const std::wstring& id, int nameMember, IdOf&& idOf)
{
    for (const auto& [key, element] : list)
    {
        if (idOf(element.get()) != id)
            continue;
        if (const std::optional<std::wstring> name = MemberText(element.get(), nameMember))
            return *name;
    }
    return {};
}

/// The identifier of the element `name`; `id` stays as it is if there is no such element or it cannot be
/// read.
template <class List, class IdOf>
void TakeId(const List& list, const std::wstring& name, std::wstring& id, IdOf&& idOf)
{
    const auto found = list.find(name);
    if (found == list.end())
        return;
    if (const std::optional<std::wstring> read = idOf(found->second.get()))
        id = *read;
}

std::optional<std::wstring> PageId(IQPPage* page)
{
    return MemberNumber(page, kPageId);
}

std::optional<std::wstring> GroupId(IQPGroup* group)
{
    return MemberNumber(group, kGroupId);
}

/// On purpose another read than that of the name in the list, which is the key "attributename".
std::optional<std::wstring> AttributeId(IQPAttribute* attribute)
{
    return MemberText(attribute, kAttributeMemberName);
}
} // namespace

const XDlgScriptCommand::PlacementKind XDlgScriptCommand::kPlacementKinds[] = {
    {kPage, &XDlgScriptCommand::FillPages, &XDlgScriptCommand::PageNameFromId,
     &XDlgScriptCommand::TakePageId},
    {kGroup, &XDlgScriptCommand::FillGroups, &XDlgScriptCommand::GroupNameFromId,
     &XDlgScriptCommand::TakeGroupId},
    {kAttribute, &XDlgScriptCommand::FillAttributes, &XDlgScriptCommand::AttributeNameFromId,
     &XDlgScriptCommand::TakeAttributeId},
};

const XDlgScriptCommand::PlacementKind* XDlgScriptCommand::CheckedKind() const
{
    const auto* const found = std::ranges::find_if(
        kPlacementKinds, [this](const PlacementKind& kind) { return IsItemChecked(kind.button); });
    return found == std::end(kPlacementKinds) ? nullptr : found;
}

HRESULT XDlgScriptCommand::FillPages(IQPType* type)
{
    m_pages.clear();
    if (!type)
        return E_POINTER;
    ComPtr<IQPPageEnum> pages;
    const HRESULT status = type->GetPageEnum(pages.put());
    if (status < 0 || !pages)
        return status;
    AddElements(pages, m_pages, m_placementBox, [](IQPPage* page) -> std::optional<std::wstring> {
        return IsListed(page, kPageListed) ? MemberText(page, kPageName) : std::nullopt;
    });
    return S_OK;
}

HRESULT XDlgScriptCommand::FillGroups(IQPType* type)
{
    m_groups.clear();
    if (!type)
        return E_POINTER;
    ComPtr<IQPGroupEnum> groups;
    if (type->GetGroupEnum(groups.put()) < 0 || !groups)
        return S_OK;
    AddElements(groups, m_groups, m_placementBox, [](IQPGroup* group) -> std::optional<std::wstring> {
        std::optional<std::wstring> name;
        if (IsListed(group, kGroupListed))
            name = MemberText(group, kGroupName);
        return name && !name->empty() ? name : std::nullopt;
    });
    return S_OK;
}

HRESULT XDlgScriptCommand::FillAttributes(IQPType* type)
{
    m_attributes.clear();
    if (!type)
        return E_POINTER;
    ComPtr<IQPAttributeEnum> attributes;
    const HRESULT status = type->GetDisplayAttributeEnum(kDisplayPlacement, attributes.put());
    if (status < 0 || !attributes)
        return status;
    AddElements(attributes, m_attributes, m_placementBox,
                [](IQPAttribute* attribute) -> std::optional<std::wstring> {
                    Variant value;
                    Variant name;
                    if (attribute->Get(kKeyAttributeName, value.put()) < 0 ||
                        !CopyConverted(value.get(), VT_BSTR, name))
                        return std::nullopt;
                    return std::wstring(name.View());
                });
    return S_OK;
}

std::wstring XDlgScriptCommand::PageNameFromId() const
{
    return NameFromId(m_pages, m_customizationId, kPageName, PageId);
}

std::wstring XDlgScriptCommand::GroupNameFromId() const
{
    return NameFromId(m_groups, m_customizationId, kGroupName, GroupId);
}

std::wstring XDlgScriptCommand::AttributeNameFromId() const
{
    return NameFromId(m_attributes, m_customizationId, kAttributeMemberName, AttributeId);
}

void XDlgScriptCommand::TakePageId(const std::wstring& name)
{
    TakeId(m_pages, name, m_customizationId, PageId);
}

void XDlgScriptCommand::TakeGroupId(const std::wstring& name)
{
    TakeId(m_groups, name, m_customizationId, GroupId);
}

void XDlgScriptCommand::TakeAttributeId(const std::wstring& name)
{
    TakeId(m_attributes, name, m_customizationId, AttributeId);
}

void XDlgScriptCommand::LoadPlacement()
{
    // On purpose also for a command without a place.
    const ComPtr<IQPType> type = StoredType();
    if (m_customizationType < 0 || m_customizationType >= std::ssize(kPlacementKinds))
        return;
    const PlacementKind& kind = kPlacementKinds[m_customizationType];
    CheckRadioButton(m_hWnd, kPage, kAttribute, kind.button);
    if ((this->*kind.fill)(type.get()) != S_OK)
        return;
    // On purpose this is a second entry of a name that is listed already, or an empty one. It is gone with
    // the first drop-down, which fills the box again.
    m_placementBox.SetCurSel(m_placementBox.AddString((this->*kind.nameFromId)().c_str()));
}

ComPtr<IQPType> XDlgScriptCommand::TypeOfPlanType(IQP_BaseDataObject* planType) const
{
    ComPtr<IQPType> type;
    Variant value;
    Variant name;
    if (planType->GetAttribute(kAttributeConfigTypeName, value.put()) >= 0 && m_ptrFactory &&
        CopyConverted(value.get(), VT_BSTR, name))
        m_ptrFactory->GetType(name->bstrVal, nullptr, type.put());
    return type;
}

ComPtr<IQPType> XDlgScriptCommand::StoredType()
{
    if (m_ptrPlanType)
        return TypeOfPlanType(m_ptrPlanType.get());
    const std::wstring name = m_configTypeBox.GetLBText(0);
    if (name.empty() || LoadConfigTypes() != S_OK)
        return {};
    const auto found = m_configTypes.find(name);
    return found == m_configTypes.end() ? ComPtr<IQPType>() : found->second;
}

ComPtr<IQPType> XDlgScriptCommand::ShownType() const
{
    if (const std::wstring name = m_planTypeBox.GetWindowText(); !name.empty())
    {
        const auto found = m_planTypes.find(name);
        const ComPtr<IQP_BaseDataObject> planType =
            found == m_planTypes.end() ? m_ptrPlanType : found->second;
        return planType ? TypeOfPlanType(planType.get()) : ComPtr<IQPType>();
    }
    const std::wstring name = m_configTypeBox.GetWindowText();
    const auto found = name.empty() ? m_configTypes.end() : m_configTypes.find(name);
    return found == m_configTypes.end() ? ComPtr<IQPType>() : found->second;
}

/// On purpose the function continues after the warning; without a type the list stays empty.
void XDlgScriptCommand::FillPlacementNames()
{
    m_placementBox.ResetContent();
    if (m_planTypeBox.GetWindowText().empty() && m_configTypeBox.GetWindowText().empty())
        Warn(kWarning, kNoType);
    const ComPtr<IQPType> type = ShownType();
    if (const PlacementKind* kind = CheckedKind())
        (this->*kind->fill)(type.get());
}

/// On purpose a refusal has changed the kind already, and a name that is not listed keeps the identifier that
/// was stored, under the new kind.
bool XDlgScriptCommand::SavePlacement()
{
    const PlacementKind* const kind = CheckedKind();
    if (!kind)
        return true;
    m_customizationType = static_cast<int>(kind - kPlacementKinds);
    const std::wstring name = m_placementBox.GetWindowText();
    if (name.empty())
    {
        Warn(kWarning, L"Please select an element and a name in the options group");
        return false;
    }
    (this->*kind->takeId)(name);
    return true;
}

void XDlgScriptCommand::EnablePlacementOptions(bool enable)
{
    for (const int control :
         {kOptions, kElementLabel, kPage, kGroup, kAttribute, kElementNameLabel, kElementName})
        EnableItem(control, enable);
    InvalidateRect(m_hWnd, nullptr, TRUE);
}
} // namespace qptools
