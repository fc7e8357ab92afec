#include "ModuleUnderTest.h"
#include "SevenClasses.h"

#include "qptools.h"

#include <oaidl.h>

namespace
{
class EveryClass : public testing::TestWithParam<ClassFacts>
{
protected:
    ModuleUnderTest module;
    ComPtr<IUnknown> object;

    HRESULT Make() { return module.Create(GetParam().Class(), object); }
    bool Answers(REFIID iid)
    {
        void* found = this;
        const HRESULT status = object->QueryInterface(iid, &found);
        if (status == S_OK && found)
            static_cast<IUnknown*>(found)->Release();
        else
        {
            EXPECT_EQ(status, E_NOINTERFACE);
            EXPECT_EQ(found, nullptr);
        }
        return status == S_OK;
    }
};
INSTANTIATE_TEST_SUITE_P(Classes, EveryClass, testing::ValuesIn(kSevenClasses), ClassTestName);
} // namespace

TEST_P(EveryClass, IsCreatedByItsIdentifierWithItsInterface)
{
    ComPtr<IUnknown> made;
    ASSERT_EQ(module.Create(GetParam().Class(), GetParam().Interface(), made.putVoid()), S_OK);
    EXPECT_EQ(made->AddRef(), 2u);
    EXPECT_EQ(made->Release(), 1u);
}

TEST_P(EveryClass, IsCreatedByBothItsProgIdsInAnyCase)
{
    for (const wchar_t* prefix : {L"Qptools.", L"QPTools.", L"QPTOOLS."})
    {
        for (const wchar_t* suffix : {L"", L".1"})
        {
            // Without a registry the system may give the class another identifier: what counts is the object.
            const std::wstring progId = prefix + std::wstring(GetParam().name) + suffix;
            ASSERT_EQ(module.Create(progId.c_str(), object), S_OK) << progId.c_str();
            EXPECT_TRUE(Answers(GetParam().Interface()));
        }
    }
}

TEST_P(EveryClass, AnswersIUnknownAndItsOneInterfaceOfTheSeven)
{
    ASSERT_EQ(Make(), S_OK);
    EXPECT_TRUE(Answers(__uuidof(IUnknown)));
    for (const ClassFacts& other : kSevenClasses)
        EXPECT_EQ(Answers(other.Interface()), other.name == GetParam().name) << other;
}

TEST_P(EveryClass, AnswersISupportErrorInfoOnlyAsTheProjectChoice)
{
    ASSERT_EQ(Make(), S_OK);
    EXPECT_EQ(Answers(__uuidof(ISupportErrorInfo)), std::wstring(GetParam().name) == L"QPProjectChoice");
}

TEST_P(EveryClass, DoesNotAnswerForIDispatchOrAFactory)
{
    ASSERT_EQ(Make(), S_OK);
    EXPECT_FALSE(Answers(__uuidof(IDispatch)));
    EXPECT_FALSE(Answers(__uuidof(IClassFactory)));
}

TEST_P(EveryClass, IsNotCreatedForAnInterfaceThatItLacks)
{
    void* made = this;
    EXPECT_EQ(module.Create(GetParam().Class(), __uuidof(IDispatch), &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST(ProjectChoice, SupportsErrorInformationForItsOwnInterfaceOnly)
{
    const ModuleUnderTest module;
    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(module.Create(CLSID_QPProjectChoice, support), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(ISupportErrorInfo)), S_FALSE);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IUnknown)), S_FALSE);
    for (const ClassFacts& other : kSevenClasses)
    {
        const bool own = other.name == kSevenClasses[0].name;
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(other.Interface()), own ? S_OK : S_FALSE) << other;
    }
}

TEST(TypeLibraryIdentifiers, AreThoseOfTheInterfaceTable)
{
    wchar_t text[40];
    StringFromGUID2(LIBID_QPTOOLSLib, text, 40);
    EXPECT_STREQ(text, L"{B59FF2AB-0C7E-46F3-8FF1-2D951BC82743}");
    const CLSID* classes[] = {&CLSID_QPProjectChoice,
                              &CLSID_QPSelectOrvoItem,
                              &CLSID_QPSelectDlg,
                              &CLSID_QPUserActionLog,
                              &CLSID_XScriptActionAndCommandManager,
                              &CLSID_QPCopyOptDlg,
                              &CLSID_XBookMark};
    const IID* interfaces[] = {&__uuidof(IQPProjectChoice),
                               &__uuidof(IQPSelectOrvoItem),
                               &__uuidof(IQPSelectDlg),
                               &__uuidof(IQPUserActionLog),
                               &__uuidof(IScriptActionAndCommandManager),
                               &__uuidof(IQPCopyOptDlg),
                               &__uuidof(IXBookMark)};
    for (int i = 0; i < 7; ++i)
    {
        EXPECT_TRUE(*classes[i] == kSevenClasses[i].Class()) << kSevenClasses[i];
        EXPECT_TRUE(*interfaces[i] == kSevenClasses[i].Interface()) << kSevenClasses[i];
    }
}
