// The type names by which the script service shows a property dialog, and what it returns.
#include "ActionFixture.h"

namespace
{
using namespace action_dialog;

class PropertyEntry : public ActionFixture
{
protected:
    /// No dialog comes up and the host is not asked.
    void IsRefused(const wchar_t* typeName)
    {
        const NoDialogs none;
        EXPECT_EQ(PropertyFixture::Show(typeName, action, {}), E_INVALIDARG);
        EXPECT_EQ(host.calls, Calls{});
    }
};

TEST_F(PropertyEntry, ShowsTheDialogOfActions)
{
    EXPECT_EQ(PropertyFixture::Show(L"XDOScriptAction", action,
                                    {Sees(Titled(L"Script Action Properties")), Presses(IDOK)}),
              S_OK);
}

TEST_F(PropertyEntry, TheTypeNameAloneDecides)
{
    host.Config().Type(L"scriptcommand");
    EXPECT_EQ(PropertyFixture::Show(L"XDOScriptCommand", action,
                                    {Sees(Titled(L"Script Command Properties")), Presses(IDCANCEL)}),
              S_FALSE);
}

TEST_F(PropertyEntry, RefusesAnotherCase)
{
    IsRefused(L"xdoscriptaction");
    IsRefused(L"XDOSCRIPTCOMMAND");
}

TEST_F(PropertyEntry, RefusesAPartOfAName)
{
    IsRefused(L"XDOScript");
    IsRefused(L"XDOScriptActions");
    IsRefused(L" XDOScriptAction");
}

TEST_F(PropertyEntry, RefusesTheNameOfTheTable)
{
    IsRefused(L"scriptaction");
}

TEST_F(PropertyEntry, RefusesAnEmptyName)
{
    IsRefused(L"");
}

TEST_F(PropertyEntry, RefusesANullName)
{
    const NoDialogs none;
    EXPECT_EQ(service->ShowScriptActionOrCommandDlg(manager, factory, query, owner.get(), planTypes.get(),
                                                    action.get(), nullptr),
              E_INVALIDARG);
}

TEST_F(PropertyEntry, RefusesANameWithMoreBehindItsEnd)
{
    const NoDialogs none;
    const XQPComBSTR name(L"XDOScriptAction\0x", 17);
    EXPECT_EQ(service->ShowScriptActionOrCommandDlg(manager, factory, query, owner.get(), planTypes.get(),
                                                    action.get(), name),
              E_INVALIDARG);
}

TEST_F(PropertyEntry, ReturnsSFalseUnlessOkEndedTheDialog)
{
    EXPECT_EQ(Show({Presses(IDCANCEL)}), S_FALSE);
    EXPECT_EQ(Show({Closes()}), S_FALSE);
}

TEST_F(PropertyEntry, ReturnsSOkAlsoIfTheSaveFailed)
{
    action->writeStatus = E_FAIL;
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
}

TEST_F(PropertyEntry, ReturnsSFalseIfTheDialogCannotBeCreated)
{
    const NoDialogs none;
    EXPECT_EQ(Show({}), S_FALSE);
    EXPECT_EQ(Written(), "");
}

TEST_F(PropertyEntry, DisablesTheWindowInFrontMeanwhile)
{
    const OwnerWindow window;
    SetActiveWindow(window.get());
    Open({Sees(OwnedBy(window.get())), Sees(OwnerDisabled())});
    EXPECT_TRUE(IsWindowEnabled(window.get()));
}
} // namespace
