#include "Bstr.h"
#include "Variant.h"

#include "TestComponents.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
using namespace std::string_view_literals;

ComPtr<ITestNumber> MakeNumber()
{
    ComPtr<ITestNumber> number;
    CreateComObject<TestComponent>(nullptr, __uuidof(ITestNumber), number.putVoid());
    return number;
}

/// A VT_BYREF of `type` to what stands at `address`.
VARIANT ReferenceTo(VARTYPE type, void* address)
{
    VARIANT value{};
    value.vt = static_cast<VARTYPE>(VT_BYREF | type);
    value.byref = address;
    return value;
}

Variant Holding(const VARIANT& value)
{
    Variant holder;
    *holder.put() = value;
    return holder;
}

Variant Number(LONG number)
{
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    return Holding(value);
}
} // namespace

TEST(Bstr, CopiesItsTextNullCharactersIncluded)
{
    EXPECT_EQ(Bstr(L"text").View(), L"text");
    const Bstr parts(L"one\0two"sv);
    EXPECT_EQ(SysStringLen(parts.get()), 7u);
    EXPECT_EQ(parts.View(), L"one\0two"sv);
}

TEST(Bstr, DistinguishesNullFromEmptyAndReadsBothAsEmpty)
{
    const wchar_t* const none = nullptr;
    EXPECT_EQ(Bstr().get(), nullptr);
    EXPECT_EQ(Bstr(none).get(), nullptr);
    EXPECT_EQ(Bstr(none).View(), L"");
    EXPECT_NE(Bstr(L"").get(), nullptr);
    EXPECT_EQ(Bstr(L"").View(), L"");
}

TEST(Bstr, MovesAndDetachesItsText)
{
    Bstr first(L"first");
    const BSTR text = first.get();
    Bstr second(L"second");
    second = std::move(first);
    EXPECT_EQ(second.get(), text);
    Bstr third(std::move(second));
    EXPECT_EQ(third.get(), text);
    const BSTR detached = third.detach();
    EXPECT_EQ(detached, text);
    EXPECT_EQ(third.get(), nullptr);
    SysFreeString(detached);
}

TEST(Bstr, PutFreesWhatWasHeld)
{
    Bstr text(L"before");
    BSTR* const place = text.put();
    EXPECT_EQ(*place, nullptr);
    *place = SysAllocString(L"after");
    EXPECT_EQ(text.View(), L"after");
}

TEST(Variant, BeginsEmptyAndHoldsTextsAndObjects)
{
    EXPECT_EQ(Variant().Type(), VT_EMPTY);
    const Variant text = Variant::OfText(L"one\0two"sv);
    EXPECT_EQ(text.Type(), VT_BSTR);
    EXPECT_EQ(text.View(), L"one\0two"sv);
    {
        const Variant object = Variant::OfObject(MakeNumber());
        EXPECT_EQ(object.Type(), VT_UNKNOWN);
        EXPECT_EQ(object.View(), L"");
        EXPECT_EQ(TestComponent::s_alive, 1) << "its one reference is the value's";
    }
    EXPECT_EQ(TestComponent::s_alive, 0);
    EXPECT_EQ(Variant::OfObject(ComPtr<IUnknown>())->punkVal, nullptr);
}

TEST(Variant, ReadsANullTextAsEmpty)
{
    VARIANT value{};
    value.vt = VT_BSTR;
    EXPECT_EQ(Holding(value).View(), L"");
}

TEST(Variant, PutClearAndTheEndReleaseWhatWasHeld)
{
    Variant value = Variant::OfObject(MakeNumber());
    EXPECT_EQ(value.put()->vt, VT_EMPTY);
    EXPECT_EQ(TestComponent::s_alive, 0);
    value = Variant::OfObject(MakeNumber());
    value.Clear();
    EXPECT_EQ(value.Type(), VT_EMPTY);
    EXPECT_EQ(TestComponent::s_alive, 0);
    {
        const Variant last = Variant::OfObject(MakeNumber());
    }
    EXPECT_EQ(TestComponent::s_alive, 0);
}

TEST(Variant, MovesAndDetachesItsValue)
{
    Variant object = Variant::OfObject(MakeNumber());
    Variant other = Variant::OfText(L"text");
    other = std::move(object);
    EXPECT_EQ(other.Type(), VT_UNKNOWN);
    Variant third(std::move(other));
    VARIANT detached = third.detach();
    EXPECT_EQ(third.Type(), VT_EMPTY);
    EXPECT_EQ(detached.vt, VT_UNKNOWN);
    EXPECT_EQ(TestComponent::s_alive, 1);
    VariantClear(&detached);
    EXPECT_EQ(TestComponent::s_alive, 0);
}

TEST(Variant, AReferenceIsResolvedToACopy)
{
    Bstr text(L"text");
    BSTR raw = text.get();
    Variant value = Holding(ReferenceTo(VT_BSTR, &raw));
    ResolveReference(value);
    EXPECT_EQ(value.Type(), VT_BSTR);
    EXPECT_EQ(value.View(), L"text");
    EXPECT_NE(value->bstrVal, raw);

    const Variant inner = Holding(ReferenceTo(VT_BSTR, &raw));
    VARIANT middle = inner.get();
    value = Holding(ReferenceTo(VT_VARIANT, &middle));
    ResolveReference(value);
    EXPECT_EQ(value.View(), L"text");

    ComPtr<ITestNumber> number = MakeNumber();
    IUnknown* object = number.get();
    value = Holding(ReferenceTo(VT_UNKNOWN, &object));
    ResolveReference(value);
    EXPECT_EQ(value.Type(), VT_UNKNOWN);
    EXPECT_EQ(value->punkVal, object);
}

TEST(Variant, WhatIsNoReferenceStaysAsItIs)
{
    Variant value = Variant::OfText(L"text");
    const BSTR text = value->bstrVal;
    ResolveReference(value);
    EXPECT_EQ(value->bstrVal, text);
}

TEST(Variant, ANullAddressReadsAsNoValue)
{
    VARIANT inner = ReferenceTo(VT_BSTR, nullptr);
    for (const VARIANT& reference :
         {ReferenceTo(VT_BSTR, nullptr), ReferenceTo(VT_UNKNOWN, nullptr), ReferenceTo(VT_I4, nullptr),
          ReferenceTo(VT_VARIANT, nullptr), ReferenceTo(VT_VARIANT, &inner)})
    {
        Variant copy = Number(1);
        EXPECT_EQ(CopyResolved(reference, copy), S_OK) << reference.vt;
        EXPECT_EQ(copy.Type(), VT_EMPTY) << reference.vt;
        Variant value = Holding(reference);
        ResolveReference(value);
        EXPECT_EQ(value.Type(), VT_EMPTY) << reference.vt;
        value = Holding(reference);
        EXPECT_TRUE(ConvertToText(value)) << reference.vt;
        EXPECT_EQ(value.View(), L"") << "the text of an empty value";
    }
}

TEST(Variant, WhatCannotBeCopiedReadsAsNoValue)
{
    VARIANT ring = ReferenceTo(VT_VARIANT, nullptr);
    ring.byref = &ring;
    Variant copy = Number(1);
    EXPECT_LT(CopyResolved(ring, copy), 0);
    EXPECT_EQ(copy.Type(), VT_EMPTY);
    Variant value = Holding(ring);
    ResolveReference(value);
    EXPECT_EQ(value.Type(), VT_EMPTY);
}

TEST(Variant, ConvertsToTextWhatHasAText)
{
    Variant value = Number(42);
    EXPECT_TRUE(ConvertToText(value));
    EXPECT_EQ(value.View(), L"42");
    LONG number = 7;
    value = Holding(ReferenceTo(VT_I4, &number));
    EXPECT_TRUE(ConvertToText(value));
    EXPECT_EQ(value.View(), L"7");
    value = Variant::OfText(L"text");
    const BSTR text = value->bstrVal;
    EXPECT_TRUE(ConvertToText(value));
    EXPECT_EQ(value->bstrVal, text) << "a text is not copied";
}

TEST(Variant, WhatHasNoTextStaysAsItIs)
{
    Variant value = Variant::OfObject(MakeNumber());
    EXPECT_FALSE(ConvertToText(value));
    EXPECT_EQ(value.Type(), VT_UNKNOWN);
    EXPECT_EQ(TestComponent::s_alive, 1);
}
