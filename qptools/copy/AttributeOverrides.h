// The values that the user sets for the copies, by plan type and attribute.
#pragma once

#include "XQPComBSTR.h"

#include "SafeArray.h"

#include <map>
#include <memory>

namespace qptools
{
/// The value of one attribute. It is text, whatever the attribute's type.
struct AttributeOverrideRecord
{
    XQPComBSTR planTypeCaption;
    int column = 0;        ///< the grid's column, the same as cellColumn
    int attributeType = 0; ///< the attribute's type code; kept, but read by nothing
    XQPComBSTR value;      ///< as the grid shows it; may be empty
    int valueType = 0;     ///< the same as attributeType
    int row = 0;           ///< the grid's row
    int cellColumn = 0;
};

/// Two levels: captions of plan types, and names of attributes. At both a place may be null: of a plan type
/// that was shown, of an attribute that was shown again, neither with a value. Nothing is ever removed.
class AttributeOverrides
{
public:
    using ByAttribute = std::map<XQPComBSTR, std::unique_ptr<AttributeOverrideRecord>>;

    /// Whether no plan type was ever shown.
    bool IsEmpty() const noexcept { return m_byPlanType.empty(); }

    /// The attributes of a plan type that is shown; null if none of them has a value.
    ByAttribute* Shown(const XQPComBSTR& planType) { return m_byPlanType[planType].get(); }

    /// The attributes of a plan type; null if it was not shown or none of them has a value.
    const ByAttribute* Find(const XQPComBSTR& planType) const;

    /// The record of an attribute, created if there is none.
    AttributeOverrideRecord& At(const XQPComBSTR& planType, const XQPComBSTR& attribute);

private:
    std::map<XQPComBSTR, std::unique_ptr<ByAttribute>> m_byPlanType;
};

/// The array for SetAttributes: names and values of all attributes of `overrides` that have a value, in the
/// order of their names. On purpose it has a row for each of the others, too: at its end, and empty. Throws
/// ComException(E_OUTOFMEMORY).
SafeArray PairsOf(const AttributeOverrides::ByAttribute& overrides);
} // namespace qptools
