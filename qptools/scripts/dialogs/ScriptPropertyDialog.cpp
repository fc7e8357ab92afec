#include "ScriptPropertyDialog.h"

#include "AttributeMap.h"
#include "HostConstants.h"
#include "ObjectRights.h"
#include "ValueWord.h"

#include "MessageBoxes.h"
#include "XQPError.h"

#include <utility>
#include <vector>

namespace qptools
{
namespace
{
/// The key of an object's name here. On purpose the lists read "name" of the same objects.
constexpr FixedText kObjectName = L"m_name";

/// A reference to `object`; an empty value, which clears the attribute, if there is none.
Variant ObjectOrEmpty(const ComPtr<IQP_BaseDataObject>& object)
{
    return object ? Variant::OfObject(ComPtr(object)) : Variant();
}
} // namespace

std::wstring TextOrEmpty(const VARIANT& value)
{
    Variant text;
    CopyConverted(value, VT_BSTR, text);
    return std::wstring(text.View());
}

ScriptPropertyDialog::ScriptPropertyDialog(UINT templateId, IQPConfigFactory* factory, IQP_Query* query,
                                           IQP_BaseDataObject* project, IQP_BaseDataObject* planTypeSet,
                                           IQP_BaseDataObject* object, HWND parent)
    : CDialog(templateId, parent), m_ptrFactory(factory), m_ptrQuery(query), m_ptrProject(project),
      m_ptrPlanTypeSet(planTypeSet), m_ptrObject(object)
{
}

bool ScriptPropertyDialog::IsComplete() const noexcept
{
    return m_ptrFactory && m_ptrQuery && m_ptrPlanTypeSet && m_ptrObject;
}

ComPtr<IQPType> ScriptPropertyDialog::OpenRecord(const FixedText& typeName,
                                                 std::span<const ScriptRecordEntry> record,
                                                 const wchar_t* function, ULONG line)
{
    ComPtr<IQPType> type;
    if (m_ptrFactory->GetType(typeName, nullptr, type.put()) < 0 && !type)
        XQPError::SetComError(L"QPTools", function, line, L"Invalid type", E_INVALIDARG);
    else
        m_record = record;
    return type;
}

/// On purpose a load that ends early is not shown, and OK writes the defaults of what was not loaded.
HRESULT ScriptPropertyDialog::LoadRecord()
{
    if (!m_ptrObject)
        return E_POINTER;
    std::vector<BSTR> names;
    for (const ScriptRecordEntry& entry : m_record)
        names.push_back(entry.name);
    AttributeMap values;
    HRESULT status = ReadAttributeMap(m_ptrObject.get(), names, values);
    for (const ScriptRecordEntry& entry : m_record)
    {
        // Also a read that delivered a part of the attributes ends the load.
        if (status != S_OK)
            break;
        if (const VARIANT* value = values.Find(entry.name))
            status = entry.load(*this, *value);
    }
    return status;
}

void ScriptPropertyDialog::SaveRecord()
{
    if (!m_ptrObject)
        return;
    std::vector<AttributePair> pairs;
    for (const ScriptRecordEntry& entry : m_record)
    {
        if (entry.value)
            pairs.push_back({entry.name, entry.value(*this)});
    }
    std::wstring unused;
    WriteAttributePairs(m_ptrObject.get(), pairs, &unused, true, 0);
}

bool ScriptPropertyDialog::MayChange() const
{
    return HasRight(m_ptrObject.get(), QPRT_change) == S_OK;
}

void ScriptPropertyDialog::Warn(const wchar_t* title, const wchar_t* text)
{
    CoInfoBox(nullptr, title, text, 0);
}

HRESULT ScriptPropertyDialog::LoadObject(const VARIANT& value, ComPtr<IQP_BaseDataObject>& object,
                                         Variant& name)
{
    Variant reference;
    if (!CopyConverted(value, VT_UNKNOWN, reference))
        return S_OK;
    object.queryFrom(reference->punkVal);
    if (!object)
        return E_NOINTERFACE;
    Variant read;
    const HRESULT status = object->GetAttribute(kObjectName, read.put());
    if (status < 0)
        return status;
    CopyConverted(read.get(), VT_BSTR, name);
    return S_OK;
}

HRESULT ScriptPropertyDialog::LoadScript(const VARIANT& value)
{
    Variant name;
    const HRESULT status = LoadObject(value, m_ptrScript, name);
    if (name.Type() == VT_BSTR)
        m_scriptBox.ShowStored(std::wstring(name.View()));
    return status;
}

Variant ScriptPropertyDialog::ScriptValue() const
{
    return ObjectOrEmpty(m_ptrScript);
}

HRESULT ScriptPropertyDialog::LoadPlanTypeMark(const VARIANT& value)
{
    m_hasPlanType = ValueWord(value) != 0;
    return S_OK;
}

HRESULT ScriptPropertyDialog::LoadConfigType(const VARIANT& value)
{
    const std::wstring name = TextOrEmpty(value);
    if (!name.empty() && !m_hasPlanType)
        m_configTypeBox.ShowStored(name);
    return S_OK;
}

Variant ScriptPropertyDialog::ConfigTypeValue() const
{
    return Variant::OfText(m_configTypeBox.GetWindowText());
}

HRESULT ScriptPropertyDialog::LoadPlanType(const VARIANT& value)
{
    Variant name;
    const HRESULT status = LoadObject(value, m_ptrPlanType, name);
    if (m_hasPlanType && name.Type() == VT_BSTR)
        m_planTypeBox.ShowStored(std::wstring(name.View()));
    return status;
}

Variant ScriptPropertyDialog::PlanTypeValue() const
{
    return ObjectOrEmpty(m_ptrPlanType);
}

void ScriptPropertyDialog::TakeChoice(const OnDemandComboBox& box, const ByName<IQP_BaseDataObject>& list,
                                      ComPtr<IQP_BaseDataObject>& object)
{
    const std::wstring name = box.GetWindowText();
    if (name.empty())
        object.reset();
    else if (const auto found = list.find(name); found != list.end())
        object = found->second;
}
} // namespace qptools
