// Every chooser on the sample plant, used without a mouse.
#include "ChooserPlant.h"
#include "KeyboardUser.h"
#include "Parameters.h"
#include "WindowTexts.h"

#include <map>

namespace
{
constexpr int kCreateNew = 3;

class ByKeyboard : public ChoosersOnPlant
{
protected:
    KeyboardUser user;
};

// Projects, a dialog without Cancel: it ends only with a choice or with none of them.

class Projects : public ByKeyboard
{
protected:
    static constexpr int kList = 202;

    Projects() { EXPECT_EQ(choice->Initialize(XQPComBSTR(L"&None of these")), S_OK); }

    /// What the host learns.
    std::string Show()
    {
        LONG canceled = 77;
        ComPtr<IQP_BaseDataObject> selected;
        EXPECT_EQ(choice->ShowDialog(Root().get(), XQPComBSTR(L"Choose"), &canceled, selected.put(), 0),
                  S_OK);
        return (canceled ? "canceled, " : "") + NameInPlant(selected.get());
    }
};

TEST_F(Projects, TabGoesRoundThemAndBack)
{
    user.Does(GoesRound({IDOK, kCreateNew, kList}) + Steps{Ends("Escape")});
    EXPECT_EQ(Show(), "canceled, null");
}

TEST_F(Projects, AreChosenByArrowsAndEnter)
{
    user.Does({Types("shift+Tab", FocusOn(kList)), Types("Down", Selected(L"Body Plant North")),
               Types("Down", Selected(L"Engine Machining South")),
               Types("Down", Selected(L"Final Assembly East")),
               Types("Up", Selected(L"Engine Machining South")), Ends("Return")});
    EXPECT_EQ(Show(), "Engine Machining South");
}

TEST_F(Projects, AreFoundByTheirFirstLetters)
{
    user.Does(
        {Types("shift+Tab", FocusOn(kList)), Types("f i", Selected(L"Final Assembly East")), Ends("Return")});
    EXPECT_EQ(Show(), "Final Assembly East");
}

TEST_F(Projects, AreChosenBySpaceOnOk)
{
    user.Does({Types("shift+Tab", FocusOn(kList)), Types("End", Selected(L"Final Assembly East")),
               Types("Home", Selected(L"Body Plant North")), Types("Tab", FocusOn(IDOK)), Ends("space")});
    EXPECT_EQ(Show(), "Body Plant North");
}

TEST_F(Projects, AreDoneWithoutByTheMnemonic)
{
    user.Does({Types("shift+Tab", FocusOn(kList)), Types("Down", RowSelected(0)), Ends("alt+n")});
    EXPECT_EQ(Show(), "null");
}

TEST_F(Projects, AreDoneWithoutBySpaceOrEnterOnTheButton)
{
    for (const char* key : {"space", "Return"})
    {
        user.Does({Types("Tab", FocusOn(kCreateNew)), Ends(key)});
        EXPECT_EQ(Show(), "null") << key;
    }
}

TEST_F(Projects, AreWantedByABoxThatEachKeyOfABoxCloses)
{
    user.Does({Sees(FocusOn(IDOK))});
    for (const char* key : {"Return", "space", "Escape"})
        user.Does({Types("Return", Box(L"Information")), Ends(key), Sees(FocusOn(IDOK))});
    user.Does({Ends("Escape")});
    EXPECT_EQ(Show(), "canceled, null");
}

// Templates and projects in the dialog that can be cancelled.

class Cancellable : public Projects, public ::testing::WithParamInterface<bool>
{
protected:
    Cancellable() { EXPECT_EQ(choice->Initialize(XQPComBSTR(L"&Create new")), S_OK); }

    std::string Show()
    {
        LONG canceled = 0;
        LONG create = 0;
        ComPtr<IQP_BaseDataObject> selected;
        EXPECT_EQ(choice->ShowDialogEx(Root().get(), XQPComBSTR(L"Choose"), GetParam(), &canceled, &create,
                                       selected.put(), 0),
                  S_OK);
        return (canceled ? "canceled, " : "") + std::string(create ? "to be made, " : "") +
               NameInPlant(selected.get());
    }

    static std::wstring First() { return GetParam() ? L"Company Template" : L"Body Plant North"; }
};

INSTANTIATE_TEST_SUITE_P(Dialog, Cancellable, ::testing::Bool(),
                         [](const auto& given) { return given.param ? "Templates" : "Projects"; });

TEST_P(Cancellable, TabGoesRoundTheDialogAndBack)
{
    user.Does(GoesRound({IDOK, kCreateNew, IDCANCEL, kList}) + Steps{Ends("Escape")});
    EXPECT_EQ(Show(), "canceled, null");
}

TEST_P(Cancellable, ARowIsChosenByArrowAndEnter)
{
    user.Does({Types("shift+Tab", FocusOn(kList)), Types("Down", Selected(First())), Ends("Return")});
    EXPECT_EQ(Show(), Utf8Text(First()));
}

TEST_P(Cancellable, ARowIsChosenBySpaceOnOk)
{
    user.Does({Types("shift+Tab", FocusOn(kList)), Types("Down", Selected(First())),
               Types("Tab", FocusOn(IDOK)), Ends("space")});
    EXPECT_EQ(Show(), Utf8Text(First()));
}

TEST_P(Cancellable, SomethingNewIsChosenByTheMnemonic)
{
    user.Does({Types("shift+Tab", FocusOn(kList)), Ends("alt+c")});
    EXPECT_EQ(Show(), "to be made, null");
}

TEST_P(Cancellable, SomethingNewIsChosenBySpaceOrEnterOnTheButton)
{
    for (const char* key : {"space", "Return"})
    {
        user.Does({Types("Tab", FocusOn(kCreateNew)), Ends(key)});
        EXPECT_EQ(Show(), "to be made, null") << key;
    }
}

TEST_P(Cancellable, SpaceAndEnterOnCancelCancel)
{
    for (const char* key : {"space", "Return"})
    {
        user.Does({Types("Tab", FocusOn(kCreateNew)), Types("Tab", FocusOn(IDCANCEL)), Ends(key)});
        EXPECT_EQ(Show(), "canceled, null") << key;
    }
}

// Scripts.

class Scripts : public ByKeyboard
{
protected:
    static constexpr int kList = 206;

    /// The names of the scripts of the crankshaft's project and of no project are unique.
    std::string Show()
    {
        ComPtr<IQP_BaseDataObject> selected;
        const HRESULT status =
            item->ShowDialog(Find(L"orvoitem", L"Crankshaft").get(), XQPComBSTR(L"script"), selected.put());
        EXPECT_EQ(status, selected ? S_OK : S_FALSE);
        return NameInPlant(selected.get());
    }

    /// The scripts are in the order of their addresses, which a test cannot know.
    DialogStep NotesTheSelected()
    {
        return [this](DialogView& view) {
            picked = Utf8Text(view.Cell(view.List(), view.SelectedRow(view.List()), 0));
        };
    }

    std::string picked = "none";
};

TEST_F(Scripts, TabGoesRoundThemAndBack)
{
    user.Does(GoesRound({kList, IDOK, IDCANCEL}) + Steps{Ends("Escape")});
    EXPECT_EQ(Show(), "null");
}

TEST_F(Scripts, AreChosenByArrowsAndEnter)
{
    user.Does({Sees(RowSelected(0)), Types("Down", RowSelected(1)), Types("Down", RowSelected(2)),
               Types("Down", RowSelected(3)), Types("Up", RowSelected(2)), NotesTheSelected(),
               Ends("Return")});
    EXPECT_EQ(Show(), picked);
}

TEST_F(Scripts, AreChosenBySpaceOnOk)
{
    user.Does({Types("Down", RowSelected(1)), Types("Home", RowSelected(0)), NotesTheSelected(),
               Types("Tab", FocusOn(IDOK)), Ends("space")});
    EXPECT_EQ(Show(), picked);
}

TEST_F(Scripts, AreCancelledBySpaceOrEnterOnCancel)
{
    for (const char* key : {"space", "Return"})
    {
        user.Does({Types("Tab", FocusOn(IDOK)), Types("Tab", FocusOn(IDCANCEL)), Ends(key)});
        EXPECT_EQ(Show(), "null") << key;
    }
}

// Objects that the host gives.

class GivenObjects : public ByKeyboard
{
protected:
    static constexpr int kList = 6666;

    GivenObjects()
    {
        EXPECT_EQ(module.Create(CLSID_QPSelectDlg, dialog), S_OK);
        parameters.Text(L"Caption", L"Which item?");
    }

    void Give()
    {
        int number = 0;
        for (const wchar_t* name : {L"Roof", L"Crankshaft", L"Side panel left"})
        {
            const ComPtr<IQP_BaseDataObject> object = Find(L"orvoitem", name);
            parameters.Entry(number++, name, object.get());
            rows[object.get()] = name;
        }
    }

    std::string Show()
    {
        ComPtr<IUnknown> selected;
        EXPECT_EQ(dialog->ShowDialog(parameters.Count(), parameters.Values(), selected.put()), S_OK);
        return NameInPlant(selected.get());
    }

    /// The row, by the objects' addresses, which order them.
    std::wstring Row(int number) const { return std::next(rows.begin(), number)->second; }

    Parameters parameters;
    std::map<IUnknown*, std::wstring, std::less<>> rows;
    ComPtr<IQPSelectDlg> dialog;
};

TEST_F(GivenObjects, TabGoesRoundThemAndBack)
{
    Give();
    user.Does(GoesRound({IDOK, IDCANCEL, kList}) + Steps{Ends("Escape")});
    EXPECT_EQ(Show(), "null");
}

TEST_F(GivenObjects, AreChosenByArrowsAndEnter)
{
    Give();
    user.Does({Types("shift+Tab", FocusOn(kList)), Types("Down", Selected(Row(1))),
               Types("Down", Selected(Row(2))), Types("Up", Selected(Row(1))), Ends("Return")});
    EXPECT_EQ(Show(), Utf8Text(Row(1)));
}

TEST_F(GivenObjects, AreChosenBySpaceOnOk)
{
    Give();
    user.Does({Types("shift+Tab", FocusOn(kList)), Types("End", Selected(Row(2))),
               Types("Tab", FocusOn(IDOK)), Ends("space")});
    EXPECT_EQ(Show(), Utf8Text(Row(2)));
}

TEST_F(GivenObjects, AreCancelledBySpaceOrEnterOnCancel)
{
    Give();
    for (const char* key : {"space", "Return"})
    {
        user.Does({Types("Tab", FocusOn(IDCANCEL)), Ends(key)});
        EXPECT_EQ(Show(), "null") << key;
    }
}

TEST_F(GivenObjects, AreMissedByABoxThatEachKeyOfABoxCloses)
{
    user.Does({Sees(FocusOn(IDOK))});
    for (const char* key : {"Return", "space", "Escape"})
        user.Does({Types("Return", Box(L"Attention !")), Ends(key), Sees(FocusOn(IDOK))});
    user.Does({Ends("Escape")});
    EXPECT_EQ(Show(), "null");
}
} // namespace
