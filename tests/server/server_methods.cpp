// The methods whose behaviour comes later, called by their position in the table: each nulls its results and
// says that it is not there yet. What a position nulls shows which method stands there.
#include "ModuleUnderTest.h"
#include "VtableSlot.h"

#include "qptools.h"

#include <gtest/gtest.h>

namespace
{
using Object = IQP_BaseDataObject*;

/// A value that no method leaves behind.
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

TEST_F(ProjectChoiceMethods, ShowDialogIsTheFirst)
{
    EXPECT_EQ(Call(3, none, noText, &number, &one, LONG{0}), E_NOTIMPL);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(one, nullptr);
}

TEST_F(ProjectChoiceMethods, ShowDialogExIsTheSecond)
{
    EXPECT_EQ(Call(4, none, noText, LONG{1}, &number, &number2, &one, LONG{0}), E_NOTIMPL);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(number2, 0);
    EXPECT_EQ(one, nullptr);
}

TEST_F(ProjectChoiceMethods, InitializeIsTheThird)
{
    EXPECT_EQ(Call(5, noText), E_NOTIMPL);
}

TEST_F(ProjectChoiceMethods, TakeNullForEveryResult)
{
    LONG* noNumber = nullptr;
    Object* noObject = nullptr;
    EXPECT_EQ(Call(3, none, noText, noNumber, noObject, LONG{0}), E_NOTIMPL);
    EXPECT_EQ(Call(4, none, noText, LONG{1}, noNumber, noNumber, noObject, LONG{0}), E_NOTIMPL);
}

TEST_F(SelectOrvoItemMethods, InitializeIsTheFirstAndShowDialogTheSecond)
{
    EXPECT_EQ(Call(3, static_cast<VARIANT*>(nullptr)), E_NOTIMPL);
    EXPECT_EQ(Call(4, none, noText, &one), E_NOTIMPL);
    EXPECT_EQ(one, nullptr);
}

TEST_F(SelectOrvoItemMethods, GetProjectAndGetPlanTypeAreTheThirdAndTheFourth)
{
    EXPECT_EQ(Call(5, none, &one), E_NOTIMPL);
    EXPECT_EQ(one, nullptr);
    EXPECT_EQ(Call(6, none, &two), E_NOTIMPL);
    EXPECT_EQ(two, nullptr);
}

TEST_F(SelectOrvoItemMethods, GetTypeNameIsTheFifth)
{
    EXPECT_EQ(Call(7, none, &text), E_NOTIMPL);
    EXPECT_EQ(text, nullptr);
}

TEST_F(SelectOrvoItemMethods, GetProjectAndPlanTypeIsTheSixth)
{
    EXPECT_EQ(Call(8, none, &one, &two), E_NOTIMPL);
    EXPECT_EQ(one, nullptr);
    EXPECT_EQ(two, nullptr);
}

TEST_F(SelectOrvoItemMethods, GetTypeNameAndPlanTypeIsTheSeventh)
{
    EXPECT_EQ(Call(9, none, &text, &two), E_NOTIMPL);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(two, nullptr);
}

TEST_F(SelectOrvoItemMethods, GetOrvoCompBaseIsTheEighth)
{
    EXPECT_EQ(Call(10, none, noText, &one), E_NOTIMPL);
    EXPECT_EQ(one, nullptr);
}

TEST_F(SelectOrvoItemMethods, TakeNullForEveryResult)
{
    Object* noObject = nullptr;
    BSTR* noResult = nullptr;
    EXPECT_EQ(Call(4, none, noText, noObject), E_NOTIMPL);
    EXPECT_EQ(Call(5, none, noObject), E_NOTIMPL);
    EXPECT_EQ(Call(6, none, noObject), E_NOTIMPL);
    EXPECT_EQ(Call(7, none, noResult), E_NOTIMPL);
    EXPECT_EQ(Call(8, none, noObject, noObject), E_NOTIMPL);
    EXPECT_EQ(Call(9, none, noResult, noObject), E_NOTIMPL);
    EXPECT_EQ(Call(10, none, noText, noObject), E_NOTIMPL);
}

TEST_F(SelectDlgMethods, ShowDialogIsTheOnlyOne)
{
    IUnknown* selected = one;
    EXPECT_EQ(Call(3, ULONG{0}, static_cast<tagINITVALUE*>(nullptr), &selected), E_NOTIMPL);
    EXPECT_EQ(selected, nullptr);
    EXPECT_EQ(Call(3, ULONG{0}, static_cast<tagINITVALUE*>(nullptr), static_cast<IUnknown**>(nullptr)),
              E_NOTIMPL);
}

TEST_F(CopyOptDlgMethods, StandInTheOrderOfUse)
{
    IEnumBaseDataObject* noEnum = nullptr;
    EXPECT_EQ(Call(3, noEnum, static_cast<IQPConfigFactory*>(nullptr)), E_NOTIMPL) << "Initialize";
    EXPECT_EQ(Call(4), E_NOTIMPL) << "ShowDialog";
    EXPECT_EQ(Call(5, &number), E_NOTIMPL) << "GetButtonIDClicked";
    EXPECT_EQ(number, 0);
    EXPECT_EQ(Call(5, static_cast<LONG*>(nullptr)), E_NOTIMPL);
    EXPECT_EQ(Call(6, noEnum), E_NOTIMPL) << "ApplyEnhanceCopy";
    EXPECT_EQ(Call(7), E_NOTIMPL) << "DeleteObjects";
}

TEST_F(BookMarkMethods, ShowDialogIsTheOnlyOne)
{
    EXPECT_EQ(Call(3, static_cast<IQPFObjectManager*>(nullptr)), E_NOTIMPL);
}

TEST_F(ManagerMethods, ShowScriptActionOrCommandDlgIsTheFirstAndNotThereYet)
{
    EXPECT_EQ(Call(3, static_cast<IQPFObjectManager*>(nullptr), static_cast<IQPConfigFactory*>(nullptr),
                   static_cast<IQP_Query*>(nullptr), none, none, none, noText),
              E_NOTIMPL);
}

TEST_F(ManagerMethods, GetScriptCommandsIsTheSecondAndGetScriptsForActionTheThird)
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
