#include "ScriptSchema.h"

namespace refhost
{
using enum ColumnType;

Kind ScriptKind()
{
    return {"script",
            "script",
            "XDOScript",
            true,
            {{"m_name", "name"},
             {"m_pDODefaultImpl", "dodefaultimpl", Object, "project"},
             {"m_strLanguageType", "languagetype"},
             {"m_creationDate", "creationdate"},
             {"m_modificationDate", "modificationdate"}},
            {}};
}

Kind ScriptActionKind()
{
    return {"scriptaction",
            "scriptaction",
            "XDOScriptAction",
            true,
            {{"m_name", "name"},
             {"m_prompt", "prompt"},
             {"m_pScript", "script", Object, "script"},
             {"m_pType", "type"},
             {"m_pPlanType", "orvoplantype", Object, "plantype"},
             {"m_pOrvoPlanTypeSet", "orvoplantypeset", Object, "plantypeset"},
             {"m_actionType", "actiontype", Number},
             {"m_beforeAfter", "beforeafter", Number},
             {"m_iSequence", "sequence", Number},
             {"m_bEnabled", "enabled", Flag}},
            {}};
}

Kind ScriptCommandKind()
{
    return {"scriptcommand",
            "scriptcommand",
            "XDOScriptCommand",
            true,
            {{"m_name", "name"},
             {"m_strPrompt", "prompt"},
             {"m_nameShort", "nameshort"},
             {"m_pScript", "script", Object, "script"},
             {"m_strVBAMacroName", "vbamacroname"},
             {"m_strType", "type"},
             {"m_pPlanType", "orvoplantype", Object, "plantype"},
             {"m_pOrvoPlanTypeSet", "orvoplantypeset", Object, "plantypeset"},
             {"m_bVisible", "visible", Flag},
             {"m_lUserInterfaceType", "userinterfacetype", Number},
             {"m_strCustomizationObjectId", "customizationobjectid"},
             {"m_lCustomizationObjectType", "customizationobjecttype", Number}},
            {}};
}

/// Holds macros, for one project or, if it has none, for all.
Kind VbaProjectKind()
{
    return {"vbaproject",
            "vbaproject",
            "XDOVBAProject",
            true,
            {{"m_name", "name"}, {"m_pDODefaultImpl", "dodefaultimpl", Object, "project"}},
            {}};
}

/// `name` is what a command calls the macro by. Two VBA projects may have macros of the same name.
Kind VbaMacroKind()
{
    return {"vbamacro",
            "vbamacro",
            "XDOVBAMacro",
            false,
            {{"m_name", "name"}, {"m_pVBAProject", "vbaproject", Object, "vbaproject"}},
            {}};
}
} // namespace refhost
