#include "CommandRecordModel.h"

#include "CommandWords.h"

#include "Utf8.h"

#include <map>

using namespace command_dialog;

namespace
{
using Elements = std::map<std::wstring, std::wstring>; ///< identifiers to names

/// The elements of each kind; null for a type that the host does not have.
const Elements* ElementsOf(const std::wstring& type, int kind)
{
    static const Elements cell[] = {{{L"1", L"General"}, {L"2", L"Costs"}},
                                    {{L"101", L"Usage"}, {L"102", L"Limits"}},
                                    {{L"weight", L"weight"}}};
    static const Elements plan[] = {{{L"7", L"Planning"}}, {}, {}};
    static const Elements none;
    if (type == L"cell")
        return &cell[kind];
    if (type == L"plan")
        return &plan[kind];
    return type == L"line" || type == L"scriptcommand" ? &none : nullptr;
}

std::string Bstr(const std::wstring& text)
{
    return "BSTR '" + Utf8FromWide(text) + "'";
}

std::string Number(int number)
{
    return "I4 " + std::to_string(number);
}

/// What is in the dialog when it is open.
class OpenDialog
{
public:
    explicit OpenDialog(const StoredCommand& stored) : m_stored(stored)
    {
        if (stored.isReadable)
            Load();
    }

    WrittenBack PressOk() const
    {
        if (!m_planType && !m_type)
            return {kNoType, {}};
        if (!m_script && !m_macro)
            return {kNoScript, {}};
        const bool placed = (m_userInterface & 2) != 0;
        if (placed && m_elementKind >= 0 && m_elementKind <= 2 && ShownElement().empty())
            return {kNoElement, {}};
        return {nullptr, Write({{"m_name", Bstr(m_name)},
                                {"m_strPrompt", Bstr(m_prompt)},
                                {"m_pScript", Kept(m_script, m_stored.scriptObject)},
                                {"m_strVBAMacroName", Bstr(m_macro.value_or(L""))},
                                {"m_strType", Bstr(m_type.value_or(L""))},
                                {"m_pPlanType", Kept(m_planType, m_stored.planTypeObject)},
                                {"m_bVisible", Number(m_visible)},
                                {"m_lUserInterfaceType", Number(m_userInterface & 3)},
                                {"m_nameShort", m_once ? "BSTR '0'" : "BSTR '1'"},
                                {"customizationobjectid", Bstr(placed ? m_elementId : L"")},
                                {"customizationobjecttype", Number(placed ? m_elementKind : -1)}})};
    }

private:
    /// In the order of the attributes; a script or plan type that cannot be read ends it.
    void Load()
    {
        m_name = m_stored.name.AsText().value_or(L"");
        m_prompt = m_stored.prompt.AsText().value_or(L"");
        if (!LoadObject(m_stored.script, m_stored.scriptObject, true, m_script))
            return;
        if (const auto macro = m_stored.macro.AsText(); macro && !macro->empty())
            m_macro = macro;
        const bool marked = m_stored.mark.IsSet();
        if (const auto type = m_stored.type.AsText(); type && !type->empty() && !marked)
            m_type = type;
        m_hasPlanType = m_stored.planType.kind == StoredValue::Kind::Object;
        if (!LoadObject(m_stored.planType, m_stored.planTypeObject, marked, m_planType))
            return;
        m_visible = m_stored.visible.AsFlag().value_or(m_visible);
        m_userInterface = m_stored.userInterface.AsNumber().value_or(m_userInterface);
        m_once = m_stored.execution.AsText() == L"0";
        m_elementId = m_stored.elementId.AsText().value_or(L"");
        m_elementKind = m_stored.elementKind.AsNumber().value_or(m_elementKind);
    }

    /// Returns false if that ends the load.
    static bool LoadObject(const StoredValue& value, const StoredObject& object, bool isShown,
                           std::optional<std::wstring>& shown)
    {
        if (value.kind == StoredValue::Kind::NullObject)
            return false;
        if (value.kind != StoredValue::Kind::Object)
            return true;
        if (isShown && object.read == StoredObject::Name::Readable)
            shown = object.name;
        return object.read != StoredObject::Name::Unreadable;
    }

    /// The name of the stored element; empty if there is none, or no such type.
    std::wstring ShownElement() const
    {
        const std::wstring type = m_hasPlanType ? m_stored.planTypeObject.typeName : m_type.value_or(L"");
        const Elements* elements = ElementsOf(type, m_elementKind);
        const bool isListed = elements && (m_hasPlanType || type != L"plan");
        const auto found = isListed ? elements->find(m_elementId) : Elements::const_iterator();
        return isListed && found != elements->end() ? found->second : L"";
    }

    /// An object is kept if a name of it is shown.
    static std::string Kept(const std::optional<std::wstring>& shown, const StoredObject& object)
    {
        return shown && !shown->empty() ? "UNKNOWN " + object.recorded : "EMPTY";
    }

    const StoredCommand& m_stored;
    std::wstring m_name;
    std::wstring m_prompt;
    std::optional<std::wstring> m_script; ///< what the boxes show
    std::optional<std::wstring> m_macro;
    std::optional<std::wstring> m_type;
    std::optional<std::wstring> m_planType;
    bool m_hasPlanType = false;
    int m_visible = 1;
    int m_userInterface = 1;
    bool m_once = false;
    std::wstring m_elementId;
    int m_elementKind = 0;
};

/// A text of decimal digits and perhaps a sign.
std::optional<int> ParsedNumber(const std::wstring& text)
{
    if (text.empty() || text.find_first_not_of(L"-0123456789") != std::wstring::npos)
        return std::nullopt;
    return std::stoi(text);
}
} // namespace

std::optional<std::wstring> StoredValue::AsText() const
{
    if (kind == Kind::Object || kind == Kind::NullObject)
        return std::nullopt;
    return kind == Kind::Number ? std::to_wstring(number) : text;
}

std::optional<int> StoredValue::AsNumber() const
{
    if (kind == Kind::Object || kind == Kind::NullObject)
        return std::nullopt;
    return kind == Kind::Text ? ParsedNumber(text) : number;
}

std::optional<int> StoredValue::AsFlag() const
{
    const std::optional<int> converted = AsNumber();
    return converted ? std::optional(*converted != 0 ? 1 : 0) : std::nullopt;
}

WrittenBack WriteBack(const StoredCommand& stored)
{
    return OpenDialog(stored).PressOk();
}
