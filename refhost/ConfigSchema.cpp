#include "ConfigSchema.h"

namespace refhost
{
using enum ColumnType;

Kind ConfigTypeKind()
{
    return {"configtype",
            "configtype",
            "XDOConfigType",
            false,
            {{"m_name", "name"},
             {"typename", "name"},
             {"m_strCaptionSingular", "captionsingular"},
             {"m_bIsPlanType", "isplantype", Flag}},
            {}};
}

/// Its identifier in the placement of a command is `number`.
Kind ConfigPageKind()
{
    return {"configpage",
            "configpage",
            "XDOConfigPage",
            false,
            {{"m_name", "name"},
             {"m_pConfigType", "configtype", Object, "configtype"},
             {"m_bShown", "shown", Flag},
             {"m_lNumber", "number", Number}},
            {},
            {},
            {{0, "name"}, {5, "shown"}, {6, "number"}}};
}

/// Its identifier in the placement of a command is `number`. A group stands on a page or inside a group.
Kind ConfigGroupKind()
{
    return {"configgroup",
            "configgroup",
            "XDOConfigGroup",
            false,
            {{"m_name", "name"},
             {"m_pConfigType", "configtype", Object, "configtype"},
             {"m_pPage", "configpage", Object, "configpage"},
             {"m_pGroup", "configgroup", Object, "configgroup"},
             {"m_bShown", "shown", Flag},
             {"m_lNumber", "number", Number}},
            {},
            {},
            {{0, "name"}, {2, "number"}, {9, "shown"}}};
}

/// `name` is the key of the attribute on objects, `attributename` the name that is shown and searched by. For
/// `copymode`, 4 offers the attribute for an enhanced copy.
Kind ConfigAttributeKind()
{
    return {"configattribute",
            "configattribute",
            "XDOConfigAttribute",
            false,
            {{"m_name", "name"},
             {"m_strAttributeName", "attributename"},
             {"m_pConfigType", "configtype", Object, "configtype"},
             {"m_lTypeCode", "typecode", Number},
             {"m_lDisplayMask", "displaymask", Number},
             {"m_lCopyMode", "copymode", Number}},
            {},
            {},
            {{0, "name"}, {3, "typecode"}, {54, "copymode"}}};
}

/// One entry of an attribute's list of values. `value` is text, as the configuration keeps all of them.
Kind ConfigValueKind()
{
    return {"configvalue",
            "configvalue",
            "XDOConfigValue",
            false,
            {{"m_name", "name"},
             {"m_strValue", "value"},
             {"m_pConfigAttribute", "configattribute", Object, "configattribute"}},
            {}};
}
} // namespace refhost
