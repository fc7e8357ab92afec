// Reading and writing several attributes of an object of a host in memory.
#include "MemoryHost.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>

namespace
{
using Lines = std::vector<std::string>;

constexpr HRESULT kSomeUnreadable = static_cast<HRESULT>(0x8004035E);

class MemoryAttributes : public ::testing::Test
{
protected:
    ~MemoryAttributes() override
    {
        for (SAFEARRAY* array : {sent, given})
            if (array)
                SafeArrayDestroy(array);
    }

    HRESULT Read(std::initializer_list<const wchar_t*> names)
    {
        sent = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(names.size()));
        LONG index = 0;
        for (const wchar_t* name : names)
        {
            SafeArrayPutElement(sent, &index, static_cast<wchar_t*>(XQPComBSTR(name)));
            ++index;
        }
        return object->GetAttributes(&sent, &given);
    }

    void Pairs(std::initializer_list<std::pair<const wchar_t*, MemoryValue>> pairs)
    {
        std::array<SAFEARRAYBOUND, 2> bounds{};
        bounds[0].cElements = static_cast<ULONG>(pairs.size());
        bounds[1].cElements = 2;
        sent = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
        LONG row = 0;
        for (const auto& [name, value] : pairs)
        {
            const XQPComVariant text(name);
            Put(row, 0, text.Value());
            Put(row, 1, value.Value());
            ++row;
        }
    }

    /// "name = value" for each row that was handed out.
    Lines Given() const
    {
        Lines rows;
        LONG last = -1;
        SafeArrayGetUBound(given, 1, &last);
        for (LONG row = 0; row <= last; ++row)
            rows.push_back(Cell(row, 0) + " = " + Cell(row, 1));
        return rows;
    }

    MemoryHost host;
    const ComPtr<MemoryObject> object = host.Object("action");
    SAFEARRAY* sent = nullptr;
    SAFEARRAY* given = nullptr;

private:
    void Put(LONG row, LONG column, const VARIANT& value) const
    {
        std::array<LONG, 2> index = {row, column};
        SafeArrayPutElement(sent, index.data(), const_cast<VARIANT*>(&value));
    }
    std::string Cell(LONG row, LONG column) const
    {
        std::array<LONG, 2> index = {row, column};
        XQPComVariant cell;
        SafeArrayGetElement(given, index.data(), &cell);
        return host.Describe(cell.Value());
    }
};

TEST_F(MemoryAttributes, are_read_in_the_order_of_the_names)
{
    object->Set(L"m_name", L"a")->Set(L"m_iSequence", 30);
    EXPECT_EQ(Read({L"m_iSequence", L"m_prompt", L"m_name"}), S_OK);
    EXPECT_EQ(Given(),
              (Lines{"BSTR 'm_iSequence' = I4 30", "BSTR 'm_prompt' = EMPTY", "BSTR 'm_name' = BSTR 'a'"}));
    EXPECT_EQ(host.calls, Lines{"action.GetAttributes(m_iSequence, m_prompt, m_name)"});
}

TEST_F(MemoryAttributes, that_fail_have_no_row)
{
    object->Set(L"m_name", L"a")->Fail(L"m_prompt", E_FAIL);
    EXPECT_EQ(Read({L"m_prompt", L"m_name"}), kSomeUnreadable);
    EXPECT_EQ(Given(), Lines{"BSTR 'm_name' = BSTR 'a'"});
}

TEST_F(MemoryAttributes, are_read_with_a_chosen_status_and_no_array)
{
    object->readStatus = static_cast<HRESULT>(0x80040344);
    object->givesArrays = false;
    EXPECT_EQ(Read({L"m_name", L"m_prompt"}), static_cast<HRESULT>(0x80040344));
    EXPECT_FALSE(given);
}

TEST_F(MemoryAttributes, are_read_into_an_array_of_a_chosen_shape)
{
    object->Set(L"m_name", L"a");
    object->shape = {2, VT_VARIANT, 5, 7};
    EXPECT_EQ(Read({L"m_prompt", L"m_name"}), S_OK);
    std::array<LONG, 2> last = {6, 8};
    XQPComVariant cell;
    EXPECT_EQ(SafeArrayGetElement(given, last.data(), &cell), S_OK);
    EXPECT_EQ(host.Describe(cell.Value()), "BSTR 'a'");
    SafeArrayDestroy(sent);
    SafeArrayDestroy(given);
    object->shape = {1, VT_BSTR};
    EXPECT_EQ(Read({L"m_prompt", L"m_name"}), S_OK);
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(SafeArrayGetVartype(given, &type), S_OK);
    EXPECT_EQ(type, VT_BSTR);
    EXPECT_EQ(SafeArrayGetDim(given), 1U);
}

TEST_F(MemoryAttributes, are_written_row_by_row_with_refusals)
{
    object->Set(L"m_name", L"old")->RefuseWrite(L"m_name", E_ACCESSDENIED);
    Pairs({{L"m_name", L"new"}, {L"m_iSequence", 5}});
    EXPECT_EQ(object->SetAttributes(&sent, &given), S_OK);
    EXPECT_EQ(Given(),
              (Lines{"BSTR 'm_name' = I4 " + std::to_string(E_ACCESSDENIED), "BSTR 'm_iSequence' = I4 0"}));
    EXPECT_EQ(object->ValueText(L"m_name"), "BSTR 'old'");
    EXPECT_EQ(object->ValueText(L"m_iSequence"), "I4 5");
    EXPECT_EQ(object->ValueText(L"m_prompt"), "EMPTY");
    EXPECT_EQ(host.calls, Lines{"action.SetAttributes(m_name = BSTR 'new', m_iSequence = I4 5)"});
}

TEST_F(MemoryAttributes, are_written_in_a_language)
{
    Pairs({{L"m_name", L"neu"}});
    EXPECT_EQ(object->SetAttributesMultiLingual(&sent, 1031, &given), S_OK);
    EXPECT_EQ(Given(), Lines{"BSTR 'm_name' = I4 0"});
    EXPECT_EQ(object->SetAttributeMultiLingual(XQPComBSTR(L"m_name"), 0, XQPComVariant(L"new")), S_OK);
    EXPECT_EQ(object->SetAttribute(XQPComBSTR(L"m_bEnabled"), MemoryValue(true).Value()), S_OK);
    EXPECT_EQ(object->ValueText(L"m_name"), "BSTR 'new'");
    EXPECT_EQ(host.calls, (Lines{"action.SetAttributesMultiLingual(m_name = BSTR 'neu'; language 1031)",
                                 "action.SetAttributeMultiLingual(m_name, 0, BSTR 'new')",
                                 "action.SetAttribute(m_bEnabled, BOOL true)"}));
}

TEST_F(MemoryAttributes, are_not_written_by_a_call_that_fails)
{
    object->writeStatus = E_FAIL;
    Pairs({{L"m_name", L"new"}});
    EXPECT_EQ(object->SetAttributes(&sent, &given), E_FAIL);
    EXPECT_FALSE(given);
    EXPECT_EQ(object->ValueText(L"m_name"), "EMPTY");
}

TEST_F(MemoryAttributes, need_arrays_of_the_right_shape)
{
    SAFEARRAY* none = nullptr;
    EXPECT_EQ(object->GetAttributes(&none, &given), E_INVALIDARG);
    EXPECT_EQ(object->SetAttributes(&none, &given), E_INVALIDARG);
    Pairs({{L"m_name", L"new"}});
    EXPECT_EQ(object->GetAttributes(&sent, &given), E_INVALIDARG);
    EXPECT_FALSE(given);
}

TEST_F(MemoryAttributes, the_object_returns_its_type)
{
    object->TypeName(L"scriptaction")->Type(host.Config().Type(L"scriptaction"));
    BSTR name = nullptr;
    EXPECT_EQ(object->GetTypeName(&name), S_OK);
    EXPECT_EQ(Utf8Of(name), "scriptaction");
    ComPtr<IQPType> type;
    EXPECT_EQ(object->GetType(name, nullptr, type.put()), S_OK);
    EXPECT_TRUE(type);
    SysFreeString(name);
    LONG client = 0;
    object->clientId = 7;
    EXPECT_EQ(object->GetClientId(&client), S_OK);
    EXPECT_EQ(client, 7);
    EXPECT_EQ(host.calls,
              (Lines{"action.GetTypeName()", "action.GetType(scriptaction, null)", "action.GetClientId()"}));
}
} // namespace
