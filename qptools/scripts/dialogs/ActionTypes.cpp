#include "ActionTypes.h"

#include "EnumWalk.h"
#include "HostConstants.h"

#include "Variant.h"

#include "qpservices.h"

namespace qptools
{
namespace
{
/// In process, in another process, on another machine: whatever the host offers.
constexpr DWORD kAnyServer =
    CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;

ComPtr<IQPHostSettings> SettingsService()
{
    ComPtr<IQPHostSettings> settings;
    // On purpose not balanced by CoUninitialize. S_FALSE, already initialised, is the normal answer.
    if (CoInitialize(nullptr) >= 0)
        CoCreateInstance(kClassSessionDataManager, nullptr, kAnyServer, __uuidof(IQPHostSettings),
                         settings.putVoid());
    return settings;
}

bool AreMcmActionsEnabled()
{
    static constexpr FixedText kSection = L"properties";
    static constexpr FixedText kSetting = L"enablemcmscriptactions";
    const ComPtr<IQPHostSettings> settings = SettingsService();
    Variant value;
    if (!settings || settings->GetValue(kSection, kSetting, VT_BOOL, value.put(), kScopeSettings) != S_OK)
        return false;
    Variant enabled;
    return CopyConverted(value.get(), VT_BOOL, enabled) && enabled->boolVal != VARIANT_FALSE;
}

bool IsMcmAction(LONG number)
{
    return number >= 24 && number <= 26;
}

/// Returns false if the host's call failed. `value` is empty if it cannot be converted.
bool Read(IQPAttributeType* entry, const FixedText& key, VARTYPE type, Variant& value)
{
    Variant answer;
    if (entry->Get(key, answer.put()) < 0)
        return false;
    CopyConverted(answer.get(), type, value);
    return true;
}
} // namespace

void ActionTypes::Load(IQPType* scriptAction)
{
    const bool showsMcm = AreMcmActionsEnabled();
    if (!scriptAction)
        return;
    ComPtr<IQPAttribute> attribute;
    if (scriptAction->GetAttribute(kAttributeActionType, attribute.put()) < 0 || !attribute)
        return;
    ComPtr<IQPAttributeTypeEnum> values;
    if (attribute->GetAttributeTypeEnum(values.put()) >= 0 && values)
        LoadFrom(values.get(), showsMcm);
}

void ActionTypes::LoadFrom(IQPAttributeTypeEnum* values, bool showsMcm)
{
    WalkBatches(values, [&](IQPAttributeType* entry) {
        Variant name;
        Variant number;
        if (!Read(entry, kKeyName, VT_BSTR, name) || !Read(entry, kKeyValue, VT_I4, number))
            return BatchStep::NextBatch;
        // A missing number counts as 0, a missing name as empty.
        const LONG value = number.Type() == VT_I4 ? number->lVal : 0;
        if (showsMcm || !IsMcmAction(value))
        {
            m_names[value] = name.View();
            m_numbers[std::wstring(name.View())] = value;
        }
        return BatchStep::NextObject;
    });
}

std::optional<LONG> ActionTypes::NumberOf(const std::wstring& name) const
{
    const auto found = m_numbers.find(name);
    return found == m_numbers.end() ? std::nullopt : std::optional(found->second);
}
} // namespace qptools
