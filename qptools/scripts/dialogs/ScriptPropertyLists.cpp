// The lists of the property dialogs.
#include "ScriptPropertyDialog.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ProjectSearch.h"

namespace qptools
{
namespace
{
/// Adds the objects of `list` under their names. An object without a readable name, or null, ends its batch.
/// Returns the status of the last step.
HRESULT AddByName(IEnumBaseDataObject* list, std::map<std::wstring, ComPtr<IQP_BaseDataObject>>& objects)
{
    HRESULT status = S_OK;
    WalkBatches(
        list,
        [&](IQP_BaseDataObject* object) {
            Variant name;
            status = object->GetAttribute(kAttributeName, name.put());
            if (status < 0)
                return BatchStep::NextBatch;
            objects[TextOrEmpty(name.get())] = ComPtr(object);
            return BatchStep::NextObject;
        },
        [&] { status = E_POINTER; });
    return status;
}

bool ReadsAsPlanType(IQPType* type, HRESULT& status, bool& isPlanType)
{
    Variant answer;
    status = type->Get(kKeyIsPlanType, answer.put());
    ResolveReference(answer);
    if (status < 0 || answer.Type() != VT_BOOL)
    {
        status = E_INVALIDARG;
        return false;
    }
    isPlanType = answer->boolVal != VARIANT_FALSE;
    return true;
}
} // namespace

HRESULT ScriptPropertyDialog::LoadPlanTypes()
{
    if (!m_ptrPlanTypeSet)
        return S_FALSE;
    ComPtr<IEnumBaseDataObject> found;
    const HRESULT status = m_ptrPlanTypeSet->GetChildren(kAttributePlanType, found.put());
    if (status < 0 || !found)
        return status;
    AddByName(found.get(), m_planTypes);
    return S_OK;
}

HRESULT ScriptPropertyDialog::LoadConfigTypes()
{
    if (!m_ptrFactory)
        return E_POINTER;
    ComPtr<IQPTypeEnum> types;
    HRESULT status = m_ptrFactory->GetTypeEnum(nullptr, types.put());
    if (status < 0 || !types)
        return status;
    WalkBatches(
        types.get(),
        [&](IQPType* type) {
            bool isPlanType = false;
            if (!ReadsAsPlanType(type, status, isPlanType))
                return BatchStep::NextBatch;
            if (isPlanType)
                return BatchStep::NextObject;
            // A type is listed also if the read of its name failed: under what was delivered.
            Variant name;
            status = type->Get(kKeyTypeName, name.put());
            m_configTypes[TextOrEmpty(name.get())] = ComPtr(type);
            return BatchStep::NextObject;
        },
        [&] { status = E_POINTER; });
    return status;
}

HRESULT ScriptPropertyDialog::LoadScripts()
{
    ComPtr<IEnumBaseDataObject> found;
    const HRESULT status = SearchProject(m_ptrQuery.get(), kTableScript, m_ptrProject.get(), found);
    return status < 0 || !found ? status : AddByName(found.get(), m_scripts);
}

const ScriptPropertyDialog::ByName<IQP_BaseDataObject>& ScriptPropertyDialog::ReadPlanTypes()
{
    LoadPlanTypes();
    return m_planTypes;
}

const ScriptPropertyDialog::ByName<IQPType>& ScriptPropertyDialog::ReadConfigTypes()
{
    LoadConfigTypes();
    return m_configTypes;
}

const ScriptPropertyDialog::ByName<IQP_BaseDataObject>& ScriptPropertyDialog::ReadScripts()
{
    LoadScripts();
    return m_scripts;
}
} // namespace qptools
