// The choice among given objects with parameters of every type, also by address and as arrays.
#include "OddValues.h"
#include "ReferenceValues.h"
#include "SelectDialogFixture.h"

#include "Bstr.h"

namespace
{
/// The tests check all that happens: there is no trace to compare.
class SelectTypes : public SelectDialog
{
protected:
    SelectTypes() : values(OddValues())
    {
        for (unsigned type = 0; type < kOddTypes; ++type)
        {
            const auto odd = static_cast<VARTYPE>(type);
            values.push_back(ByAddress(odd, m_zeros));
            values.push_back(ByAddress(static_cast<VARTYPE>(VT_ARRAY | odd), m_zeros));
            if (SAFEARRAY* array = SafeArrayCreateVector(odd, 0, 1))
                AddArray(odd, array);
        }
    }
    ~SelectTypes() override
    {
        for (SAFEARRAY* array : m_arrays)
            SafeArrayDestroy(array);
    }
    void TearDown() override {}

    /// The first column of a dialog with these parameters, which are borrowed: "Prompt" and "Object" in turn.
    Texts RowsOf(const std::vector<VARIANT>& prompts, const std::vector<VARIANT>& objects)
    {
        std::vector<Bstr> names;
        std::vector<tagINITVALUE> array;
        for (std::size_t index = 0; index < prompts.size(); ++index)
        {
            names.emplace_back(L"Prompt" + std::to_wstring(index));
            array.push_back({names.back().get(), prompts[index]});
            names.emplace_back(L"Object" + std::to_wstring(index));
            array.push_back({names.back().get(), objects[index]});
        }
        Texts rows;
        Show({[&](DialogView& view) { rows = view.Column(view.List(), 0); }, Presses(IDCANCEL)},
             static_cast<ULONG>(array.size()), array.data());
        return rows;
    }

    std::vector<VARIANT> values;

private:
    void AddArray(VARTYPE type, SAFEARRAY* array)
    {
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        value.parray = array;
        values.push_back(value);
        m_arrays.push_back(array);
    }

    long long m_zeros[4] = {};
    std::vector<SAFEARRAY*> m_arrays;
};

/// Whether the system converts a zero of that type to a text, which winport does not for all.
bool HasTextOfZero(VARTYPE type)
{
    VARIANT zero{};
    zero.vt = static_cast<VARTYPE>(type & ~VT_BYREF);
    XQPComVariant text;
    return text.ChangeType(VT_BSTR, &zero) >= 0;
}

/// The text of a value that is all zeros.
std::wstring TextOfZero(VARTYPE type)
{
    switch (type & ~VT_BYREF)
    {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_BOOL:
        return L"0";
    case VT_CY:
    case VT_DECIMAL:
        return HasTextOfZero(type) ? L"0" : L"";
    case VT_DATE:
        return L"12:00:00 AM";
    default:
        return L"";
    }
}

TEST_F(SelectTypes, NoOddValueIsAnObject)
{
    const XQPComVariant prompt(L"A");
    EXPECT_EQ(RowsOf(std::vector<VARIANT>(values.size(), prompt.Value()), values), Texts{});
}

TEST_F(SelectTypes, AnOddPromptIsItsTextOrEmpty)
{
    std::vector<ComPtr<MemoryObject>> owned;
    std::vector<VARIANT> objects;
    std::map<IUnknown*, VARTYPE> typeOf; // in the order of the rows
    for (const VARIANT& value : values)
    {
        owned.push_back(host.Object("object"));
        objects.push_back(ObjectReference(Of(owned.back())));
        typeOf[Of(owned.back())] = value.vt;
    }
    const Texts rows = RowsOf(values, objects);
    ASSERT_EQ(rows.size(), values.size());
    std::size_t row = 0;
    for (const auto& [object, type] : typeOf)
        EXPECT_EQ(rows[row++], TextOfZero(type)) << "type " << type;
}
} // namespace
