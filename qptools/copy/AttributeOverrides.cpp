#include "AttributeOverrides.h"

#include "ComException.h"

namespace qptools
{
namespace
{
void PutText(SAFEARRAY* array, LONG row, LONG column, const XQPComBSTR& text)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    value.bstrVal = text;
    LONG cell[] = {row, column};
    if (SafeArrayPutElement(array, cell, &value) < 0)
        ThrowOutOfMemory();
}
} // namespace

const AttributeOverrides::ByAttribute* AttributeOverrides::Find(const XQPComBSTR& planType) const
{
    const auto found = m_byPlanType.find(planType);
    return found == m_byPlanType.end() ? nullptr : found->second.get();
}

AttributeOverrideRecord& AttributeOverrides::At(const XQPComBSTR& planType, const XQPComBSTR& attribute)
{
    std::unique_ptr<ByAttribute>& attributes = m_byPlanType[planType];
    if (!attributes)
        attributes = std::make_unique<ByAttribute>();
    std::unique_ptr<AttributeOverrideRecord>& record = (*attributes)[attribute];
    if (!record)
        record = std::make_unique<AttributeOverrideRecord>();
    return *record;
}

SafeArray PairsOf(const AttributeOverrides::ByAttribute& overrides)
{
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(overrides.size()), 0}, {2, 0}};
    SafeArray pairs(SafeArrayCreate(VT_VARIANT, 2, bounds));
    if (!pairs)
        ThrowOutOfMemory();
    LONG row = 0;
    for (const auto& [attribute, record] : overrides)
        if (record)
        {
            PutText(pairs.get(), row, 0, attribute);
            PutText(pairs.get(), row, 1, record->value);
            ++row;
        }
    return pairs;
}
} // namespace qptools
