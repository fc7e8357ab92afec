// The attributes of a script action or a script command, as a table: how each is read and what is written.
//
//     const ScriptRecordEntry XDlgScriptAction::kRecord[] = {
//         TextEntry<&XDlgScriptAction::m_strName>(L"m_name"),
//         RecordEntry<&XDlgScriptAction::LoadScript, &XDlgScriptAction::ScriptValue>(L"m_pScript"),
//         ReadOnlyEntry<&XDlgScriptAction::LoadPlanTypeMark>(L"orvoplantype"),
//     };
//
// A value is converted to the type of its entry; one that cannot be converted leaves the member as it is.
#pragma once

#include "FixedText.h"

#include "MessageMap.h"
#include "Variant.h"

namespace qptools
{
/// One attribute. Entries are read and written in the order of their table.
struct ScriptRecordEntry
{
    FixedText name;

    /// Takes over the host's value. A failure ends the load.
    HRESULT (*load)(CWnd& dialog, const VARIANT& value);

    /// What is written; null for an attribute that is only read.
    Variant (*value)(CWnd& dialog);
};

namespace script_record
{
using message_map::As;

template <auto Load>
HRESULT CallLoad(CWnd& dialog, const VARIANT& value)
{
    return (As<Load>(dialog).*Load)(value);
}

template <auto Value>
Variant CallValue(CWnd& dialog)
{
    return (As<Value>(dialog).*Value)();
}

template <auto Member>
HRESULT LoadText(CWnd& dialog, const VARIANT& value)
{
    Variant text;
    if (CopyConverted(value, VT_BSTR, text))
        As<Member>(dialog).*Member = text.View();
    return S_OK;
}

template <auto Member>
Variant TextValue(CWnd& dialog)
{
    return Variant::OfText(As<Member>(dialog).*Member);
}

template <auto Member, VARTYPE ReadAs>
HRESULT LoadNumber(CWnd& dialog, const VARIANT& value)
{
    Variant number;
    if (CopyConverted(value, ReadAs, number))
        As<Member>(dialog).*Member = ReadAs == VT_BOOL ? number->boolVal != VARIANT_FALSE : number->lVal;
    return S_OK;
}

template <auto Member>
Variant NumberValue(CWnd& dialog)
{
    return Variant::OfNumber(As<Member>(dialog).*Member);
}
} // namespace script_record

/// A std::wstring of the dialog; read and written as a text.
template <auto Member>
consteval ScriptRecordEntry TextEntry(FixedText name)
{
    return {name, &script_record::LoadText<Member>, &script_record::TextValue<Member>};
}

/// An int of the dialog; read as VT_I4, VT_INT or VT_BOOL (1 or 0) and on purpose always written as VT_I4.
template <auto Member, VARTYPE ReadAs = VT_I4>
consteval ScriptRecordEntry NumberEntry(FixedText name)
{
    static_assert(ReadAs == VT_I4 || ReadAs == VT_INT || ReadAs == VT_BOOL);
    return {name, &script_record::LoadNumber<Member, ReadAs>, &script_record::NumberValue<Member>};
}

/// Functions of the dialog: `HRESULT Load(const VARIANT&)` and `Variant Value() const`.
template <auto Load, auto Value>
consteval ScriptRecordEntry RecordEntry(FixedText name)
{
    return {name, &script_record::CallLoad<Load>, &script_record::CallValue<Value>};
}

/// An attribute that is never written.
template <auto Load>
consteval ScriptRecordEntry ReadOnlyEntry(FixedText name)
{
    return {name, &script_record::CallLoad<Load>, nullptr};
}
} // namespace qptools
