// Which methods enter the module's UI state, and that all leave it.
#include "InsideModule.h"

#include "CEnhancedCopyDialog.h"

#include "UiState.h"

#include "qptools.h"

#include <oleauto.h>

#include <functional>

using qptools::CEnhancedCopyDialog;

namespace
{
class Entries : public InsideModule
{
protected:
    /// How often `call` enters the state; it must leave it as often.
    static unsigned Of(const std::function<void()>& call)
    {
        const unsigned before = CUiState::Entries();
        call();
        EXPECT_EQ(CUiState::Depth(), 0);
        EXPECT_EQ(CurrentModule(), nullptr);
        return CUiState::Entries() - before;
    }
};
} // namespace

TEST_F(Entries, AllThreeMethodsOfTheProjectChoiceEnterOnce)
{
    ComPtr<IQPProjectChoice> choice;
    ASSERT_EQ(Make(CLSID_QPProjectChoice, choice), S_OK);
    LONG canceled = 0;
    LONG create = 0;
    IQP_BaseDataObject* project = nullptr;
    EXPECT_EQ(Of([&] { choice->ShowDialog(nullptr, nullptr, &canceled, &project, 0); }), 1u);
    EXPECT_EQ(Of([&] { choice->ShowDialogEx(nullptr, nullptr, 0, &canceled, &create, &project, 0); }), 1u);
    EXPECT_EQ(Of([&] { choice->Initialize(nullptr); }), 1u);
}

TEST_F(Entries, AllEightMethodsOfTheItemChoiceEnterOnce)
{
    ComPtr<IQPSelectOrvoItem> item;
    ASSERT_EQ(Make(CLSID_QPSelectOrvoItem, item), S_OK);
    IQP_BaseDataObject* one = nullptr;
    IQP_BaseDataObject* two = nullptr;
    BSTR text = nullptr;
    EXPECT_EQ(Of([&] { item->Initialize(nullptr); }), 1u);
    EXPECT_EQ(Of([&] { item->ShowDialog(nullptr, nullptr, &one); }), 1u);
    EXPECT_EQ(Of([&] { item->GetProject(nullptr, &one); }), 1u);
    EXPECT_EQ(Of([&] { item->GetPlanType(nullptr, &one); }), 1u);
    EXPECT_EQ(Of([&] { item->GetTypeName(nullptr, &text); }), 1u);
    EXPECT_EQ(Of([&] { item->GetProjectAndPlanType(nullptr, &one, &two); }), 1u);
    EXPECT_EQ(Of([&] { item->GetTypeNameAndPlanType(nullptr, &text, &two); }), 1u);
    EXPECT_EQ(Of([&] { item->GetOrvoCompBase(nullptr, nullptr, &one); }), 1u);
}

TEST_F(Entries, TheSelectionDialogEntersOnce)
{
    ComPtr<IQPSelectDlg> dialog;
    ASSERT_EQ(Make(CLSID_QPSelectDlg, dialog), S_OK);
    IUnknown* selected = nullptr;
    EXPECT_EQ(Of([&] { dialog->ShowDialog(0, nullptr, &selected); }), 1u);
}

TEST_F(Entries, AllFourMethodsOfTheLogEnterOnce)
{
    ComPtr<IQPUserActionLog> log;
    ASSERT_EQ(Make(CLSID_QPUserActionLog, log), S_OK);
    EXPECT_EQ(Of([&] { log->WriteTimeStampWithInfo(nullptr); }), 1u);
    EXPECT_EQ(Of([&] { log->WriteLine(nullptr); }), 1u);
    EXPECT_EQ(Of([&] { log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr); }), 1u);
    EXPECT_EQ(Of([&] { log->WriteTimeStamp(); }), 1u);
}

TEST_F(Entries, AllFiveMethodsOfTheCopyOptionsEnterOnce)
{
    ComPtr<IQPCopyOptDlg> copy;
    ASSERT_EQ(Make(CLSID_QPCopyOptDlg, copy), S_OK);
    LONG button = 0;
    EXPECT_EQ(Of([&] { copy->ShowDialog(); }), 1u);
    EXPECT_EQ(Of([&] { copy->ApplyEnhanceCopy(nullptr); }), 1u);
    EXPECT_EQ(Of([&] { copy->Initialize(nullptr, nullptr); }), 1u);
    EXPECT_EQ(Of([&] { copy->GetButtonIDClicked(&button); }), 1u);
    EXPECT_EQ(Of([&] { copy->DeleteObjects(); }), 1u);
}

/// The program has no template for it, so no dialog comes up.
TEST_F(Entries, TheCopyDialogEntersForAHostThatUsesItWithoutCom)
{
    CEnhancedCopyDialog dialog(nullptr, nullptr);
    EXPECT_EQ(Of([&] { EXPECT_EQ(dialog.DoModal(), -1); }), 1u);
    EXPECT_EQ(Of([&] { dialog.ApplyEnhanceCopy(nullptr); }), 1u);
    ComPtr<IQPCopyOptDlg> copy;
    ASSERT_EQ(Make(CLSID_QPCopyOptDlg, copy), S_OK);
    copy->Initialize(nullptr, nullptr);
    EXPECT_EQ(Of([&] { EXPECT_EQ(copy->ShowDialog(), S_FALSE); }), 2u);
    EXPECT_EQ(Of([&] { copy->ApplyEnhanceCopy(nullptr); }), 2u);
    copy->DeleteObjects();
}

TEST_F(Entries, TheBookmarkDialogEntersOnce)
{
    ComPtr<IXBookMark> bookmarks;
    ASSERT_EQ(Make(CLSID_XBookMark, bookmarks), S_OK);
    EXPECT_EQ(Of([&] { bookmarks->ShowDialog(nullptr); }), 1u);
}

TEST_F(Entries, TheDialogEntersOnceAndSearchesInTheirFinders)
{
    ComPtr<IScriptActionAndCommandManager> manager;
    ASSERT_EQ(Make(CLSID_XScriptActionAndCommandManager, manager), S_OK);
    EXPECT_EQ(Of([&] {
                  manager->ShowScriptActionOrCommandDlg(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                                        nullptr);
              }),
              1u);
    VARIANT result;
    VariantInit(&result);
    // One entry, which is the finder's: were the method's own added, it would be two.
    EXPECT_EQ(
        Of([&] { manager->GetScriptCommands(nullptr, nullptr, nullptr, nullptr, 0, nullptr, &result); }), 1u);
    EXPECT_EQ(Of([&] { manager->GetScriptsForAction(nullptr, nullptr, nullptr, nullptr, 0, 0, &result); }),
              1u);
    VariantClear(&result);
}

TEST_F(Entries, CountingReferencesAndAskingForInterfacesDoNotEnter)
{
    for (const ClassFacts& facts : kSevenClasses)
    {
        ComPtr<IUnknown> object;
        EXPECT_EQ(Of([&] { Make(facts.Class(), object); }), 0u) << facts;
        EXPECT_EQ(Of([&] {
                      object->AddRef();
                      object->Release();
                      void* other = nullptr;
                      object->QueryInterface(__uuidof(IDispatch), &other);
                  }),
                  0u)
            << facts;
        EXPECT_EQ(Of([&] { object.reset(); }), 0u) << facts;
    }
}

TEST_F(Entries, AskingForErrorInformationDoesNotEnter)
{
    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(Make(CLSID_QPProjectChoice, support), S_OK);
    EXPECT_EQ(Of([&] { support->InterfaceSupportsErrorInfo(__uuidof(IQPProjectChoice)); }), 0u);
}
