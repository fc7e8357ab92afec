// Methods called by their position in the table, as a caller in another language does.
#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "ModuleUnderTest.h"
#include "VtableSlot.h"

#include "qptools.h"

#include <gtest/gtest.h>

namespace
{
using Object = IQP_BaseDataObject*;

/// A value that no method writes.
template <class T>
T* Dirty()
{
    static int place;
    return reinterpret_cast<T*>(&place);
}

template <class Interface>
class Methods : public testing::Test
{
protected:
    explicit Methods(REFCLSID classId) { EXPECT_EQ(module.Create(classId, object), S_OK); }

    template <class... Arguments>
    HRESULT Call(int slot, Arguments... arguments)
    {
        return CallSlot(object.get(), slot, arguments...);
    }

    ModuleUnderTest module;
    ComPtr<Interface> object;
    Object none = nullptr;
    BSTR noText = nullptr;
    Object one = Dirty<IQP_BaseDataObject>();
    Object two = Dirty<IQP_BaseDataObject>();
    LONG number = 77;
    LONG number2 = 77;
    BSTR text = reinterpret_cast<BSTR>(Dirty<int>());
};

class ProjectChoiceMethods : public Methods<IQPProjectChoice>
{
protected:
    ProjectChoiceMethods() : Methods(CLSID_QPProjectChoice) {}
};
class SelectOrvoItemMethods : public Methods<IQPSelectOrvoItem>
{
protected:
    SelectOrvoItemMethods() : Methods(CLSID_QPSelectOrvoItem) {}
};
class SelectDlgMethods : public Methods<IQPSelectDlg>
{
protected:
    SelectDlgMethods() : Methods(CLSID_QPSelectDlg) {}
};
class CopyOptDlgMethods : public Methods<IQPCopyOptDlg>
{
protected:
    CopyOptDlgMethods() : Methods(CLSID_QPCopyOptDlg) {}
};
class BookMarkMethods : public Methods<IXBookMark>
{
protected:
    BookMarkMethods() : Methods(CLSID_XBookMark) {}
};
class ManagerMethods : public Methods<IScriptActionAndCommandManager>
{
protected:
    ManagerMethods() : Methods(CLSID_XScriptActionAndCommandManager) {}
};
} // namespace

// The methods of the choosers, by what each answers to nothing at all.

TEST_F(ProjectChoiceMethods, ShowDialogIsTheFirst)
{
    EXPECT_EQ(Call(3, none, noText, &number, &one, LONG{0}), S_OK);
    EXPECT_EQ(number, 1) << "cancelled";
}

TEST_F(ProjectChoiceMethods, ShowDialogExIsTheSecond)
{
    EXPECT_EQ(Call(4, none, noText, LONG{1}, &number, &number2, &one, LONG{0}), S_OK);
    EXPECT_EQ(number, 0) << "not cancelled";
    EXPECT_EQ(number2, 1) << "something new";
}

TEST_F(ProjectChoiceMethods, InitializeIsTheThird)
{
    EXPECT_EQ(Call(5, noText), S_OK);
}

TEST_F(SelectOrvoItemMethods, InitializeIsTheFirstAndShowDialogTheSecond)
{
    EXPECT_EQ(Call(3, static_cast<VARIANT*>(nullptr)), S_OK);
    BoxAnswers boxes;
    boxes.Expect(L"Error", L"Unknown error.", IDOK);
    EXPECT_EQ(Call(4, none, noText, &one), S_FALSE);
}

TEST_F(SelectOrvoItemMethods, TheLookUpsFollowAndOnlyTheLastAcceptsANullObject)
{
    EXPECT_EQ(Call(5, none, &one), E_INVALIDARG) << "GetProject";
    EXPECT_EQ(Call(6, none, &one), E_INVALIDARG) << "GetPlanType";
    EXPECT_EQ(Call(7, none, &text), E_INVALIDARG) << "GetTypeName";
    EXPECT_EQ(Call(8, none, &one, &two), E_INVALIDARG) << "GetProjectAndPlanType";
    EXPECT_EQ(Call(9, none, &text, &two), E_INVALIDARG) << "GetTypeNameAndPlanType";
    EXPECT_EQ(Call(10, none, noText, &one), S_OK) << "GetOrvoCompBase";
    EXPECT_EQ(one, nullptr);
}

TEST_F(SelectDlgMethods, ShowDialogIsTheOnlyOne)
{
    IUnknown* selected = one;
    DialogDriver dialogs;
    dialogs.OnDialog({Presses(IDCANCEL)});
    EXPECT_EQ(Call(3, ULONG{0}, static_cast<tagINITVALUE*>(nullptr), &selected), S_OK);
    EXPECT_EQ(selected, one);
}

// The copy options, by what each method changes in what the next one answers.

TEST_F(CopyOptDlgMethods, AreInTheOrderOfUse)
{
    constexpr int deepButton = 368;
    IEnumBaseDataObject* noEnum = nullptr;
    EXPECT_EQ(Call(3, noEnum, static_cast<IQPConfigFactory*>(nullptr)), S_OK) << "Initialize";
    DialogDriver dialogs;
    dialogs.OnDialog({Presses(deepButton)});
    EXPECT_EQ(Call(4), S_OK) << "ShowDialog";
    EXPECT_TRUE(dialogs.AllShown());
    EXPECT_EQ(Call(5, &number), S_OK) << "GetButtonIDClicked";
    EXPECT_EQ(number, 8);
    EXPECT_EQ(Call(5, static_cast<LONG*>(nullptr)), E_POINTER);
    EXPECT_EQ(Call(6, noEnum), S_OK) << "ApplyEnhanceCopy";
    EXPECT_EQ(Call(5, &number), S_OK);
    EXPECT_EQ(number, 8) << "the dialog is still there";
    EXPECT_EQ(Call(7), S_OK) << "DeleteObjects";
    EXPECT_EQ(Call(5, &number), S_OK);
    EXPECT_EQ(number, -1) << "there is no dialog any more";
}

TEST_F(CopyOptDlgMethods, DoNothingWithoutADialog)
{
    EXPECT_EQ(Call(4), S_FALSE) << "ShowDialog";
    EXPECT_EQ(Call(5, &number), S_OK) << "GetButtonIDClicked";
    EXPECT_EQ(number, -1);
    EXPECT_EQ(Call(6, static_cast<IEnumBaseDataObject*>(nullptr)), S_OK) << "ApplyEnhanceCopy";
    EXPECT_EQ(Call(7), S_OK) << "DeleteObjects";
    EXPECT_EQ(Call(7), S_OK) << "DeleteObjects";
}

TEST_F(BookMarkMethods, ShowDialogIsTheOnlyOne)
{
    DialogDriver dialogs;
    dialogs.OnDialog({Presses(IDCANCEL)});
    EXPECT_EQ(Call(3, static_cast<IQPFObjectManager*>(nullptr)), S_OK);
    EXPECT_TRUE(dialogs.AllShown());
}

TEST_F(ManagerMethods, ShowScriptActionOrCommandDlgIsTheFirst)
{
    EXPECT_EQ(Call(3, static_cast<IQPFObjectManager*>(nullptr), static_cast<IQPConfigFactory*>(nullptr),
                   static_cast<IQP_Query*>(nullptr), none, none, none, noText),
              E_INVALIDARG)
        << "no type name";
}

TEST_F(ManagerMethods, TheTwoSearchesAreSecondAndThird)
{
    VARIANT result;
    VariantInit(&result);
    IQP_Query* noQuery = nullptr;
    EXPECT_EQ(Call(4, noQuery, none, noText, none, 0, noText, &result), E_POINTER);
    ASSERT_EQ(result.vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(result.parray->rgsabound[0].cElements, 3u) << "columns of a command";
    EXPECT_EQ(Call(5, noQuery, none, noText, none, 0, 0, &result), E_POINTER);
    ASSERT_EQ(result.vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(result.parray->rgsabound[0].cElements, 2u) << "columns of an action";
    VariantClear(&result);
}
