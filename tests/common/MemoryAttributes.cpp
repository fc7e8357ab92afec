// Attributes of a MemoryObject: several at once, and writing.
#include "MemoryObject.h"

#include "ArrayText.h"

#include <algorithm>
#include <array>

namespace
{
/// GetAttributes: some attributes could not be read.
constexpr HRESULT kSomeUnreadable = static_cast<HRESULT>(0x8004035E);

std::wstring_view ViewOf(BSTR text)
{
    return {text, SysStringLen(text)};
}

struct Row
{
    XQPComVariant name;
    XQPComVariant value;
};

LONG LowOf(SAFEARRAY* array, UINT dimension)
{
    LONG low = 0;
    SafeArrayGetLBound(array, dimension, &low);
    return low;
}

LONG HighOf(SAFEARRAY* array, UINT dimension)
{
    LONG high = -1;
    SafeArrayGetUBound(array, dimension, &high);
    return high;
}

bool IsArray(SAFEARRAY** array, UINT dimensions, VARTYPE wanted)
{
    VARTYPE type = VT_EMPTY;
    return array && *array && SafeArrayGetDim(*array) == dimensions &&
           SafeArrayGetVartype(*array, &type) == S_OK && type == wanted;
}

std::vector<XQPComBSTR> NamesIn(SAFEARRAY* array)
{
    std::vector<XQPComBSTR> names;
    for (LONG index = LowOf(array, 1); index <= HighOf(array, 1); ++index)
    {
        BSTR name = nullptr;
        SafeArrayGetElement(array, &index, &name);
        names.emplace_back(name, static_cast<int>(SysStringLen(name)));
        SysFreeString(name);
    }
    return names;
}

std::vector<Row> RowsIn(SAFEARRAY* array)
{
    std::vector<Row> rows;
    const LONG column = LowOf(array, 2);
    for (LONG index = LowOf(array, 1); index <= HighOf(array, 1); ++index)
    {
        Row& row = rows.emplace_back();
        std::array<LONG, 2> cell = {index, column};
        SafeArrayGetElement(array, cell.data(), &row.name);
        cell[1] = column + 1;
        SafeArrayGetElement(array, cell.data(), &row.value);
    }
    return rows;
}

SAFEARRAY* ArrayOf(const std::vector<Row>& rows, const MemoryObject::ArrayShape& shape)
{
    // Of more dimensions than two, those behind are empty.
    std::array<SAFEARRAYBOUND, 4> bounds{};
    bounds[0] = {static_cast<ULONG>(rows.size()), shape.firstRow};
    bounds[1] = {2, shape.firstColumn};
    SAFEARRAY* array = SafeArrayCreate(shape.type, shape.dimensions, bounds.data());
    if (shape.dimensions != 2 || shape.type != VT_VARIANT)
        return array;
    std::array<LONG, 2> cell = {shape.firstRow, 0};
    for (const Row& row : rows)
    {
        cell[1] = shape.firstColumn;
        SafeArrayPutElement(array, cell.data(), const_cast<VARIANT*>(&row.name.Value()));
        ++cell[1];
        SafeArrayPutElement(array, cell.data(), const_cast<VARIANT*>(&row.value.Value()));
        ++cell[0];
    }
    return array;
}

std::string NameList(const std::vector<XQPComBSTR>& names)
{
    std::string text;
    for (const XQPComBSTR& name : names)
        text += (text.empty() ? "" : ", ") + Utf8Of(name);
    return text;
}

/// A cell that should hold a name.
BSTR NameIn(const VARIANT& cell)
{
    return cell.vt == VT_BSTR ? cell.bstrVal : nullptr;
}
} // namespace

MemoryObject* MemoryObject::RefuseWrite(const wchar_t* attribute, HRESULT status)
{
    m_refusals.emplace_back(attribute, status);
    return this;
}

const MemoryAnswer* MemoryObject::Find(std::wstring_view attribute) const
{
    const auto found = std::find_if(m_answers.begin(), m_answers.end(),
                                    [&](const auto& answer) { return answer.first == attribute; });
    return found == m_answers.end() ? nullptr : &found->second;
}

std::string MemoryObject::ValueText(const wchar_t* attribute) const
{
    const MemoryAnswer* answer = Find(attribute);
    return m_record.Describe(answer ? answer->value.Value() : VARIANT{});
}

HRESULT MemoryObject::GetAttributes(SAFEARRAY** names, SAFEARRAY** values)
{
    const MemoryRecord::CallScope call;
    *values = nullptr;
    if (!IsArray(names, 1, VT_BSTR))
        return E_INVALIDARG;
    const std::vector<XQPComBSTR> asked = NamesIn(*names);
    if (m_record.recording)
        m_record.Record(m_name + ".GetAttributes(" + NameList(asked) + ")");
    std::vector<Row> rows;
    for (const XQPComBSTR& name : asked)
    {
        const MemoryAnswer* answer = Find(name.View());
        if (answer && answer->status < 0)
            continue;
        Row& row = rows.emplace_back();
        row.name = static_cast<const wchar_t*>(name);
        if (answer)
            row.value = answer->value;
    }
    if (givesArrays)
        *values = ArrayOf(rows, shape);
    return readStatus.value_or(rows.size() == asked.size() ? S_OK : kSomeUnreadable);
}

HRESULT MemoryObject::Write(std::wstring_view attribute, const VARIANT& value)
{
    for (const auto& [name, status] : m_refusals)
        if (attribute == name)
            return status;
    Answer(std::wstring(attribute).c_str(), S_OK, value);
    return S_OK;
}

HRESULT MemoryObject::WriteAll(SAFEARRAY** pairs, SAFEARRAY** results)
{
    if (writeStatus < 0)
        return writeStatus;
    std::vector<Row> rows = RowsIn(*pairs);
    for (Row& row : rows)
        row.value = MemoryValue(Write(ViewOf(NameIn(row.name.Value())), row.value.Value())).Value();
    if (givesArrays)
        *results = ArrayOf(rows, shape);
    return writeStatus;
}

/// "m_name = BSTR 'x', m_pScript = UNKNOWN script".
std::string MemoryObject::PairList(SAFEARRAY* pairs) const
{
    std::string text;
    for (const Row& row : RowsIn(pairs))
        text += (text.empty() ? "" : ", ") + Utf8Of(NameIn(row.name.Value())) + " = " +
                m_record.Describe(row.value.Value());
    return text;
}

HRESULT MemoryObject::SetAttribute(BSTR name, VARIANT value)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".SetAttribute(" + Utf8Of(name) + ", " + m_record.Describe(value) + ")");
    return Write(ViewOf(name), value);
}

HRESULT MemoryObject::SetAttributeMultiLingual(BSTR name, LONG language, VARIANT value)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
    {
        m_record.Record(m_name + ".SetAttributeMultiLingual(" + Utf8Of(name) + ", " +
                        std::to_string(language) + ", " + m_record.Describe(value) + ")");
    }
    return Write(ViewOf(name), value);
}

HRESULT MemoryObject::SetAttributes(SAFEARRAY** pairs, SAFEARRAY** results)
{
    const MemoryRecord::CallScope call;
    *results = nullptr;
    if (onWrite)
        onWrite();
    if (m_record.recording)
        written = ArrayLine(pairs ? *pairs : nullptr, m_record);
    if (!IsArray(pairs, 2, VT_VARIANT))
        return E_INVALIDARG;
    if (m_record.recording)
        m_record.Record(m_name + ".SetAttributes(" + PairList(*pairs) + ")");
    return WriteAll(pairs, results);
}

HRESULT MemoryObject::SetAttributesMultiLingual(SAFEARRAY** pairs, LONG language, SAFEARRAY** results)
{
    const MemoryRecord::CallScope call;
    *results = nullptr;
    if (!IsArray(pairs, 2, VT_VARIANT))
        return E_INVALIDARG;
    if (m_record.recording)
    {
        m_record.Record(m_name + ".SetAttributesMultiLingual(" + PairList(*pairs) + "; language " +
                        std::to_string(language) + ")");
    }
    return WriteAll(pairs, results);
}
