#include "BorrowedValues.h"
#include "Bstr.h"
#include "CTranslator.h"
#include "CatalogueBytes.h"
#include "ComException.h"
#include "FaultyMemory.h"
#include "TestFolder.h"
#include "Translation.h"
#include "Variant.h"
#include "XInitValueWrapper.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"
#include "XQPError.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace
{
// Runs `operation` without memory: it must fail, and in the documented way.
template <class Operation>
void ExpectOutOfMemory(Operation&& operation)
{
    HRESULT status = S_OK;
    try
    {
        const FaultyMemory memory(1);
        operation();
    }
    catch (const ComException& exception)
    {
        status = exception.Status();
    }
    EXPECT_EQ(status, E_OUTOFMEMORY);
}

// Runs `operation` with memory for 0, 1, 2 ... allocations until none fails. Returns how many runs had a
// failure.
template <class Operation>
int FailEachAllocation(Operation&& operation)
{
    for (int n = 1; n <= 1000; ++n)
    {
        const FaultyMemory memory(n);
        operation();
        if (!memory.Struck())
            return n - 1;
    }
    ADD_FAILURE() << "more allocations than expected";
    return 0;
}

TEST(QPComBstrWithoutMemory, ThrowsAndStaysAsItWas)
{
    const wchar_t* const text = L"a longer text than fits anywhere";
    const XQPComBSTR other(text);
    XQPComBSTR target(L"before");
    ExpectOutOfMemory([&] { XQPComBSTR made(text); });
    ExpectOutOfMemory([&] { XQPComBSTR made(text, 3); });
    ExpectOutOfMemory([&] { XQPComBSTR made(other); });
    ExpectOutOfMemory([&] { target = text; });
    ExpectOutOfMemory([&] { target = other; });
    ExpectOutOfMemory([&] { target += other; });
    ExpectOutOfMemory([&] { target += text; });
    ExpectOutOfMemory([&] { target.Mid(1, 2); });
    ExpectOutOfMemory([&] { target.Copy(); });
    ExpectOutOfMemory([&] { XQPComBSTR().Copy(); });
    EXPECT_STREQ(target, L"before");
}

TEST(QPComBstrWithoutMemory, NeedsNoneToReadCompareMoveAndForTheEmptyText)
{
    XQPComBSTR text(L"Text");
    {
        const FaultyMemory memory(1);
        XQPComBSTR empty;
        const XQPComBSTR fromEmpty(L"");
        const XQPComBSTR copy(empty);
        empty += copy;
        EXPECT_TRUE(*static_cast<wchar_t*>(empty) == 0 && empty == L"" && fromEmpty < text);
        EXPECT_TRUE(text.Find(L"x") == 2 && text.Mid(9, 1).IsEmpty() && text.ToLower() == 0);
        XQPComBSTR moved(std::move(text));
        text = std::move(moved);
        EXPECT_FALSE(memory.Struck());
    }
    EXPECT_STREQ(text, L"text");
}

TEST(QPComVariantWithoutMemory, ThrowsAndStaysAsItWas)
{
    const XQPComVariant text(L"text");
    XQPComVariant number(NumberValue(5));
    ExpectOutOfMemory([&] { XQPComVariant made(L"text"); });
    ExpectOutOfMemory([&] { XQPComVariant made(static_cast<const wchar_t*>(nullptr)); });
    ExpectOutOfMemory([&] { XQPComVariant made(text); });
    ExpectOutOfMemory([&] { XQPComVariant made(text.Value()); });
    ExpectOutOfMemory([&] { number = L"text"; });
    ExpectOutOfMemory([&] { number = text; });
    ExpectOutOfMemory([&] { number = text.Value(); });
    ExpectOutOfMemory([&] { number.GetString(); });
    EXPECT_EQ(number.Type(), VT_I4);
    EXPECT_EQ(number.GetInt(), 5);
}

TEST(QPComVariantWithoutMemory, ReturnsTheStatusOfAConversionAndKeepsItsValue)
{
    XQPComVariant number(NumberValue(5));
    const VARIANT source = NumberValue(6);
    {
        const FaultyMemory memory(1);
        EXPECT_EQ(number.ChangeType(VT_BSTR), E_OUTOFMEMORY);
        EXPECT_EQ(number.ChangeType(VT_BSTR, &source), E_OUTOFMEMORY);
    }
    EXPECT_EQ(number.Type(), VT_I4);
    EXPECT_EQ(number.GetInt(), 5);
}

TEST(BstrWithoutMemory, Throws)
{
    ExpectOutOfMemory([] { const Bstr made(L"text"); });
    ExpectOutOfMemory([] { const Bstr made(std::wstring_view(L"text")); });
}

TEST(VariantWithoutMemory, ThrowsAndStaysAsItWas)
{
    const BSTR text = SysAllocString(L"text");
    BSTR raw = text;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &raw;
    Variant value;
    *value.put() = reference;
    ExpectOutOfMemory([] { Variant::OfText(L"text"); });
    ExpectOutOfMemory([&] { ResolveReference(value); });
    ExpectOutOfMemory([&] { ConvertToText(value); });
    EXPECT_EQ(value->pbstrVal, &raw);
    *value.put() = NumberValue(5);
    ExpectOutOfMemory([&] { ConvertToText(value); });
    EXPECT_EQ(value->lVal, 5);
    SysFreeString(text);
}

TEST(InitValueWrapperWithoutMemory, CannotBeMade)
{
    tagINITVALUE records[2]{};
    for (tagINITVALUE& record : records)
    {
        record.bstrParamName = SysAllocString(L"name");
        record.varValue = XQPComVariant(L"value").Detach();
    }
    const int failures = FailEachAllocation([&] {
        try
        {
            const XInitValueWrapper bag(2, records);
        }
        catch (const ComException& exception)
        {
            EXPECT_EQ(exception.Status(), E_OUTOFMEMORY);
        }
    });
    EXPECT_GE(failures, 2) << "the list of entries, and the table that finds them by name";
    for (tagINITVALUE& record : records)
    {
        SysFreeString(record.bstrParamName);
        VariantClear(&record.varValue);
    }
}

TEST(InitValueWrapperWithoutMemory, ReportsThatItCannotGive)
{
    XInitValueWrapper bag(0, nullptr);
    bag.SetData(L"a", XQPComVariant(L"1").Value());
    bag.SetData(L"b", XQPComVariant(L"2").Value());
    XQPComVariant target(NumberValue(5));
    int refused = 0;
    const int failures = FailEachAllocation([&] {
        ULONG count = 99;
        tagINITVALUE* values = nullptr;
        if (bag.GetStruct(count, &values))
        {
            EXPECT_EQ(count, 2u);
            return XInitValueWrapper::FreeStruct(count, values);
        }
        EXPECT_EQ(count, 0u);
        EXPECT_EQ(values, nullptr);
        ++refused;
    });
    EXPECT_EQ(failures, 5) << "the array, two names, two values";
    EXPECT_EQ(refused, failures);
    {
        const FaultyMemory memory(1);
        EXPECT_FALSE(bag.GetData(L"a", target.Value()));
    }
    EXPECT_EQ(target.GetInt(), 5);
}

TEST(InitValueWrapperWithoutMemory, StaysAsItWasWhenNothingCanBeAdded)
{
    XInitValueWrapper bag(0, nullptr);
    bag.SetData(L"a", XQPComVariant(L"1").Value());
    const XQPComVariant value(L"2");
    ExpectOutOfMemory([&] { bag.SetData(L"a", value.Value()); });
    ExpectOutOfMemory([&] { bag.SetData(L"b", value.Value()); });
    ULONG count = 0;
    tagINITVALUE* values = nullptr;
    ASSERT_TRUE(bag.GetStruct(count, &values));
    ASSERT_EQ(count, 1u);
    EXPECT_STREQ(values[0].varValue.bstrVal, L"1");
    XInitValueWrapper::FreeStruct(count, values);
    FailEachAllocation([&] {
        try
        {
            bag.SetData(L"b", value.Value());
        }
        catch (const ComException& exception)
        {
            EXPECT_EQ(exception.Status(), E_OUTOFMEMORY);
        }
    });
    ASSERT_TRUE(bag.GetStruct(count, &values));
    EXPECT_EQ(count, 2u) << "added once, by the call that succeeded";
    XInitValueWrapper::FreeStruct(count, values);
}

TEST(ErrorLibraryWithoutMemory, NeverThrowsAndWritesALineWholeOrNotAtAll)
{
    const TestFolder folder;
    const TestVariable directory(L"QPTOOLS_LOG_DIR", folder.Path().wstring());
    const std::wstring text = std::wstring(300, L'x') + L"\n";
    const int failures = FailEachAllocation([&] {
        XQPError::WriteLogLine(L"UserActions", text.c_str());
        EXPECT_EQ(XQPError::HandleComError(E_FAIL, L"source", text.c_str(), 1, true, false), E_FAIL);
        EXPECT_EQ(XQPError::SetComError(L"source", L"function", 1, text.c_str(), E_FAIL), E_FAIL);
        EXPECT_EQ(XQPError::HandleStandardError(L"source", L"function", 1, text.c_str(), E_FAIL, true),
                  E_FAIL);
        XQPError::WriteLogLine(L"..", text.c_str());
    });
    EXPECT_GT(failures, 10);
    for (const std::string& line : ReadLines(folder.Path() / "UserActions.log"))
        EXPECT_EQ(line, std::string(300, 'x'));
    for (const std::string& line : ReadLines(folder.Path() / "logbook.log"))
        EXPECT_TRUE(line.ends_with("xxx\\n") || line.ends_with("No log has the name: ..")) << line;
}

class TranslationWithoutMemory : public testing::Test
{
protected:
    TranslationWithoutMemory()
    {
        WriteBytes(m_folder.Path() / "de" / "qptools.mo",
                   CatalogueBytes::Make({{"A pump that moves water", "Eine Pumpe, die Wasser bewegt"}}));
    }
    ~TranslationWithoutMemory() override { CTranslator::Instance().UseEnvironment(); }

    TestFolder m_folder;
    std::wstring m_directory = m_folder.Path().wstring();
    std::wstring m_language = L"de";
    const wchar_t* m_text = L"A pump that moves water";
    const wchar_t* m_german = L"Eine Pumpe, die Wasser bewegt";
};

TEST_F(TranslationWithoutMemory, GivesTheTextItselfUntilTheCatalogueCouldBeRead)
{
    const TestVariable language(L"QPTOOLS_LANG", L"de");
    CTranslator::Instance().UseEnvironment();
    const wchar_t* const text = L"For each object";
    GetModuleHandleW(nullptr); // the list of modules exists before any module runs
    const int failures = FailEachAllocation([&] {
        const std::wstring_view shown = CoTranslateText(text);
        EXPECT_TRUE(shown == text || shown == L"F\u00fcr jedes Objekt");
    });
    EXPECT_GT(failures, 5);
    EXPECT_STREQ(CoTranslateText(text), L"F\u00fcr jedes Objekt");
}

TEST_F(TranslationWithoutMemory, ThrowsWhereATextOfItsOwnIsWanted)
{
    CTranslator::Instance().Use(m_directory, m_language);
    EXPECT_STREQ(CoTranslateText(m_text), m_german);
    ExpectOutOfMemory([&] { CoTranslateText2(m_text); });
    ExpectOutOfMemory([&] { CoTranslateText2("A pump that moves water"); });
    ExpectOutOfMemory([&] { CoTranslateText2(L""); });
    EXPECT_STREQ(CoTranslateText2(m_text), m_german);
}
} // namespace
