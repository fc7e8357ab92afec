// Conversions of objects, errors and arrays, and what holds for all conversions.
#include "ChangeTypeTest.h"

TEST(ChangeType, AnAutomationObjectBecomesAnyObject)
{
    CCountedObject object;
    {
        CTestVariant target;
        CTestVariant unknown = OfObject(&object);
        EXPECT_EQ(S_OK, VariantChangeType(&target, &unknown, 0, VT_UNKNOWN));
        EXPECT_EQ(3, object.m_references);
        CTestVariant dispatch = OfObject(&object, VT_DISPATCH);
        EXPECT_EQ(S_OK, VariantChangeType(&target, &dispatch, 0, VT_UNKNOWN));
        EXPECT_EQ(VT_UNKNOWN, V_VT(&target));
        EXPECT_EQ(4, object.m_references);
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(ChangeType, ANullObjectStaysNull)
{
    EXPECT_EQ(L"null object", Changed(OfObject(nullptr), VT_UNKNOWN));
    EXPECT_EQ(L"null object", Changed(OfObject(nullptr, VT_DISPATCH), VT_UNKNOWN));
}

TEST(ChangeType, AnObjectIsNoValue)
{
    CCountedObject object;
    ExpectRow(OfObject(&object), {L"mismatch", L"mismatch", L"mismatch"});
    ExpectRow(OfObject(nullptr), {L"mismatch", L"mismatch", L"mismatch"});
    EXPECT_EQ(0, object.m_calls);
}

TEST(ChangeType, AnAutomationObjectIsItsDefaultProperty)
{
    CCountedObject object;
    object.m_hasValue = true;
    CTestVariant source = OfObject(&object, VT_DISPATCH);
    ExpectRow(source, {L"42", L"-1", L"'42'"});
    object.m_hasValue = false;
    EXPECT_EQ(L"mismatch", Changed(source, VT_I4));
    EXPECT_EQ(L"bad type", Changed(OfObject(nullptr, VT_DISPATCH), VT_I4));
    EXPECT_EQ(2, object.m_references);
}

TEST(ChangeType, AnErrorIsNothingElse)
{
    CTestVariant error = OfWhole(VT_ERROR, static_cast<LONG>(DISP_E_PARAMNOTFOUND));
    for (const VARTYPE type : {VT_I4, VT_INT, VT_BOOL, VT_BSTR, VT_UNKNOWN})
        EXPECT_EQ(L"mismatch", Changed(error, type)) << type;
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantChangeType(&target, &error, 0, VT_ERROR));
    EXPECT_EQ(DISP_E_PARAMNOTFOUND, V_ERROR(&target));
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_ERROR));
}

TEST(ChangeType, AnArrayStaysTheArrayItIs)
{
    CTestVariant source;
    V_VT(&source) = VT_ARRAY | VT_I4;
    V_ARRAY(&source) = SafeArrayCreateVector(VT_I4, 0, 2);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantChangeType(&target, &source, 0, VT_ARRAY | VT_I4));
    EXPECT_EQ(VT_ARRAY | VT_I4, V_VT(&target));
    EXPECT_NE(V_ARRAY(&source), V_ARRAY(&target));
    EXPECT_EQ(L"mismatch", Changed(source, VT_ARRAY | VT_VARIANT));
    EXPECT_EQ(L"mismatch", Changed(source, VT_I4));
    EXPECT_EQ(L"mismatch", Changed(source, VT_BSTR));
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_ARRAY | VT_I4));
}

TEST(ChangeType, RefusesTypesThatNoVariantHas)
{
    for (const VARTYPE type :
         {static_cast<VARTYPE>(15), static_cast<VARTYPE>(99), static_cast<VARTYPE>(VT_CLSID)})
        EXPECT_EQ(L"bad type", Changed(OfI4(1), type)) << type;
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_VARIANT));
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_BYREF | VT_I4));
    VARIANT bad;
    VariantInit(&bad);
    V_VT(&bad) = 99;
    EXPECT_EQ(L"bad type", Changed(bad, VT_I4));
    CTestVariant source = OfI4(1);
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantChangeType(&bad, &source, 0, VT_BSTR));
    EXPECT_EQ(99, V_VT(&bad));
}

TEST(ChangeType, LooksThroughReferences)
{
    LONG value = 7;
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_BYREF | VT_I4;
    V_I4REF(&source) = &value;
    EXPECT_EQ(L"'7'", Changed(source, VT_BSTR));
    EXPECT_EQ(L"7", Changed(source, VT_I4));
    CTestVariant inner = OfText(L"33");
    V_VT(&source) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&source) = &inner;
    EXPECT_EQ(L"33", Changed(source, VT_I4));
}

TEST(ChangeType, WorksInPlace)
{
    CTestVariant variant = OfText(L"12");
    EXPECT_EQ(S_OK, VariantChangeType(&variant, &variant, 0, VT_I4));
    EXPECT_EQ(VT_I4, V_VT(&variant));
    EXPECT_EQ(12, V_I4(&variant));
    EXPECT_EQ(S_OK, VariantChangeType(&variant, &variant, 0, VT_BSTR));
    EXPECT_EQ(L"12", Content(V_BSTR(&variant)));
}

TEST(ChangeType, AFailureLeavesTheTargetAsItWas)
{
    CTestVariant target = OfText(L"old");
    CTestVariant source = OfText(L"abc");
    EXPECT_EQ(DISP_E_TYPEMISMATCH, VariantChangeType(&target, &source, 0, VT_I4));
    EXPECT_EQ(VT_BSTR, V_VT(&target));
    EXPECT_EQ(L"old", Content(V_BSTR(&target)));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, VariantChangeType(&source, &source, 0, VT_I4));
    EXPECT_EQ(VT_BSTR, V_VT(&source));
    EXPECT_EQ(L"abc", Content(V_BSTR(&source)));
}

TEST(ChangeType, ASuccessClearsTheTargetFirst)
{
    CCountedObject object;
    CTestVariant target = OfObject(&object);
    CTestVariant source = OfI4(1);
    EXPECT_EQ(S_OK, VariantChangeType(&target, &source, 0, VT_BOOL));
    EXPECT_EQ(1, object.m_references);
    EXPECT_EQ(VARIANT_TRUE, V_BOOL(&target));
}
