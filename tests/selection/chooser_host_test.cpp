// The choosers when the host returns values by address, or releases a chooser inside a host call.
#include "ProjectChoiceFixture.h"
#include "ReferenceValues.h"
#include "ScriptPickerFixture.h"
#include "SelectDialogFixture.h"

namespace
{
/// The tests check all that happens: there is no trace to compare.
template <class Fixture>
class Untraced : public Fixture
{
    void TearDown() override {}
};

class ProjectReferences : public Untraced<ProjectChoiceFixture>
{
};
class PickerReferences : public Untraced<ScriptPickerFixture>
{
};
class SelectReferences : public Untraced<SelectDialog>
{
};

TEST_F(ProjectReferences, ANameByAddressIsAName)
{
    XQPComBSTR text(L"North");
    BSTR name = text;
    XQPComVariant behind(L"South");
    const auto north = host.Object("north");
    north->Answer(L"name", S_OK, ByAddress(VT_BSTR, &name));
    const auto south = host.Object("south");
    south->Answer(L"name", S_OK, ByAddress(VT_VARIANT, &behind.Value()));
    Has({south, north});
    Show({Sees(InColumn(0, {L"North", L"South"})), Presses(kCreateNew)});
    EXPECT_TRUE(boxes.Shown().empty());
}

TEST_F(ProjectReferences, ANameAtANullAddressIsUnreadable)
{
    const auto child = host.Object("child");
    Has({child, Child("north", L"North")}, L"template");
    for (const VARIANT& nowhere : NullAddresses())
    {
        child->Answer(L"name", S_OK, nowhere);
        ExpectBox(L"Error", L"unexpected error reading templates.\nTrying next template ...");
        ShowEx({Sees(InColumn(0, {L"North"})), Presses(kCreateNew)}, 1);
    }
}

TEST_F(ProjectReferences, TheHostMayReleaseTheChooserBeforeTheDialog)
{
    Has({Child("north", L"North")});
    NameButton(L"A caption that is no short one");
    host.onCall = [this](const std::string&) {
        choice.reset();
    };
    EXPECT_EQ(Show({Sees(Shows(kCreateNew, L"A caption that is no short one")), Selects(0), Presses(IDOK)}),
              (Outcome{S_OK, 0, kUnchanged, "north"}));
}

TEST_F(PickerReferences, AProjectByAddressIsShownAsTheProjectsLibrary)
{
    IUnknown* object = static_cast<IQP_BaseDataObject*>(project.get());
    const auto weld = Script("weld");
    weld->Answer(L"m_pDODefaultImpl", S_OK, ByAddress(VT_UNKNOWN, &object));
    Finds({weld});
    Show({Sees(InColumn(1, {L"Project Lib"})), Presses(IDCANCEL)});
}

TEST_F(PickerReferences, TheHostMayReleaseTheComponentInsideTheDialog)
{
    Finds({Script("weld")});
    host.onCall = [this](const std::string&) {
        item.reset();
    };
    EXPECT_EQ(Show({Selects(L"weld"), Presses(IDOK)}), (Outcome{S_OK, "weld"}));
}

TEST_F(SelectReferences, ParametersAtNullAddressesAreAbsent)
{
    for (const VARIANT& nowhere : NullAddresses())
    {
        Parameters values;
        values.Add(L"Caption", nowhere);
        values.Add(L"Prompt0", nowhere).Object(L"Object0", Of(a));
        values.Text(L"Prompt1", L"B").Add(L"Object1", nowhere);
        EXPECT_EQ(Rows(values.Count(), values.Values()), Texts{L""}) << nowhere.vt;
    }
}

TEST_F(SelectReferences, ParametersByAddressAreFollowed)
{
    XQPComBSTR text(L"A");
    BSTR prompt = text;
    IUnknown* object = Of(a);
    parameters.Add(L"Prompt0", ByAddress(VT_BSTR, &prompt)).Add(L"Object0", ByAddress(VT_UNKNOWN, &object));
    EXPECT_EQ(Rows(), Texts{L"A"});
    EXPECT_EQ(Show({Presses(IDOK)}), "a");
}

TEST_F(SelectReferences, TheHostMayReleaseTheChooserInsideTheDialog)
{
    parameters.Entry(0, L"A", Of(a));
    EXPECT_EQ(Show({[this](DialogView&) { dialog.reset(); }, Presses(IDOK)}), "a");
}
} // namespace
