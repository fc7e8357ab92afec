// The list of macros of the property dialog of a script command: the search for the VBA projects, the request
// to the host's macro loader, and what becomes of its reply.
#include "CommandFixture.h"

#include <algorithm>

namespace
{
using namespace command_dialog;

const std::string kLoaderClass = "{3F0E8D7B-52A6-4B39-9C14-7D60E82BA145}";
const std::string kNullClass = "{00000000-0000-0000-0000-000000000000}";

class CommandMacros : public CommandFixture
{
protected:
    CommandMacros()
    {
        host.onCall = [this](const std::string& call) {
            if (call == "SetSearchTable(vbaproject)")
                host.Query().result = projects;
        };
        host.Loader().Macros({L"Weld", L"Grind"});
    }
    ~CommandMacros() override { host.onCall = nullptr; }

    /// For each project that an enumerator hands out, one reference stays open on purpose.
    void TearDown() override
    {
        ReleaseOpen(first, openOfFirst);
        ReleaseOpen(second, openOfSecond);
        CommandFixture::TearDown();
    }

    /// Opens the list, which shows these, and leaves the dialog.
    void ShowList(const Texts& macros)
    {
        Show({Drops(kMacro), Sees(Offers(kMacro, macros)), Sees(NoneChosen(kScript)), Presses(IDCANCEL)});
    }

    static std::string GetLoader(const std::string& clsid = kLoaderClass)
    {
        return "manager.GetObject(" + clsid + ", 1)";
    }
    static std::string Request(const std::string& project, const std::string& vbaProjects)
    {
        return "loader.Invoke(pProject = UNKNOWN " + project +
               ", pQuery = UNKNOWN query, pConfigFactory = UNKNOWN config, bstrConfigName = BSTR 'Default "
               "Configuration', bLogEnabled = I4 0, pVBAProjectsArray = ARRAY {" +
               vbaProjects + "}, Menupath = BSTR 'GetListOfMacros', pSelectedObject = UNKNOWN command)";
    }

    void Finds(const std::vector<ComPtr<MemoryObject>>& found) { projects = host.List(found); }

    const RegisteredProgId progId{MemoryLoader::kProgId, MemoryLoader::kClass};
    const ComPtr<MemoryObject> first = host.Object("first");
    const ComPtr<MemoryObject> second = host.Object("second");
    ComPtr<MemoryEnum> projects = host.List({first, second});

    /// The references that are expected to stay open.
    ULONG openOfFirst = 1;
    ULONG openOfSecond = 1;

private:
    void ReleaseOpen(const ComPtr<MemoryObject>& object, ULONG open)
    {
        projects.reset();
        host.Query().result.reset();
        EXPECT_EQ(References(object), 1 + open) << object->Name();
        for (ULONG left = References(object); left > 1; --left)
            object->Release();
    }
};

TEST_F(CommandMacros, AreFoundBySearchManagerAndLoader)
{
    ShowList({L"Grind", L"Weld"});
    const Calls asking = {GetLoader(), Request("project", "first, second")};
    EXPECT_EQ(Asked(), Searching("vbaproject") + asking);
}

TEST_F(CommandMacros, AreFoundByOneCriterionWithoutAProject)
{
    owner = {};
    ShowList({L"Grind", L"Weld"});
    EXPECT_EQ(Asked(), (Calls{"ResetSearch(0)", "SetSearchTable(vbaproject)",
                              "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)", "GetSearchResult()",
                              "RemNext(25)", GetLoader(), Request("null", "first, second")}));
}

TEST_F(CommandMacros, ReadNoAttributeOfAVbaProject)
{
    first->Fail(L"name", E_FAIL);
    ShowList({L"Grind", L"Weld"});
    EXPECT_EQ(Asked().size(), Searching("vbaproject").size() + 2);
}

TEST_F(CommandMacros, OfferAProjectThatIsFoundTwiceOnce)
{
    Finds({first, second, first});
    openOfFirst = 2;
    ShowList({L"Grind", L"Weld"});
    EXPECT_EQ(Asked().back(), Request("project", "first, second"));
}

TEST_F(CommandMacros, StopABatchAtANullProject)
{
    Finds({first, {}, second});
    openOfSecond = 0;
    ShowList({L"Grind", L"Weld"});
    EXPECT_EQ(Asked().back(), Request("project", "first"));
}

TEST_F(CommandMacros, WalkThroughAllBatches)
{
    std::vector<ComPtr<MemoryObject>> many(26, first);
    many.push_back(second);
    Finds(many);
    openOfFirst = 26;
    ShowList({L"Grind", L"Weld"});
    const Calls asked = Asked();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "RemNext(25)"), 2);
    EXPECT_EQ(asked.back(), Request("project", "first, second"));
}

// If the search finds nothing, neither the object manager nor the loader is called.

class NoVbaProjects : public CommandMacros
{
protected:
    NoVbaProjects() { openOfFirst = openOfSecond = 0; }

    /// The search came to this call of its own.
    void ExpectEndAt(const std::string& last)
    {
        ShowList({});
        Calls expected = Searching("vbaproject");
        expected.erase(std::find(expected.begin(), expected.end(), last) + 1, expected.end());
        EXPECT_EQ(Asked(), expected);
    }
};

TEST_F(NoVbaProjects, AskNobody)
{
    Finds({});
    ExpectEndAt("RemNext(25)");
}

TEST_F(NoVbaProjects, MayBeNoEnumerator)
{
    projects.reset();
    ExpectEndAt("GetSearchResult()");
}

TEST_F(NoVbaProjects, AreFoundByAQueryThatFails)
{
    host.Query().resultStatus = E_FAIL;
    ExpectEndAt("GetSearchResult()");
    for (const HRESULT status : {E_FAIL, S_FALSE})
    {
        host.Query().tableStatus = status;
        ExpectEndAt("SetSearchTable(vbaproject)");
        host.Query().resetStatus = status;
        ExpectEndAt("ResetSearch(0)");
        host.Query().resetStatus = S_OK;
    }
}

TEST_F(NoVbaProjects, AreFoundIfACriterionIsRefused)
{
    const Calls whole = Searching("vbaproject");
    for (const std::string& refused : {whole[2], whole[3]})
    {
        host.onCall = [&](const std::string& call) {
            host.Query().criterionStatus = call == refused ? E_FAIL : S_OK;
        };
        ExpectEndAt(whole[3]);
    }
}

TEST_F(NoVbaProjects, AreInABatchThatFails)
{
    projects->statuses[0] = E_FAIL; // the batch is released
    ShowList({});
    EXPECT_EQ(Asked(), Searching("vbaproject"));
}

// The loader.

TEST_F(CommandMacros, ComeFromALoaderOfTheNullClassWithoutAProgId)
{
    const RegisteredProgId none(MemoryLoader::kProgId);
    ShowList({L"Grind", L"Weld"});
    EXPECT_EQ(Asked()[6], GetLoader(kNullClass));
}

TEST_F(CommandMacros, NeedAnObjectOfTheManager)
{
    host.Manager().object.reset();
    for (const HRESULT status : {S_OK, S_FALSE, E_FAIL})
    {
        host.Manager().status = status;
        ShowList({});
        EXPECT_EQ(Asked().back(), GetLoader());
    }
    openOfFirst = openOfSecond = 3;
}

TEST_F(CommandMacros, TakeAnObjectWhateverTheManagersStatus)
{
    host.Manager().status = E_FAIL;
    ShowList({L"Grind", L"Weld"});
}

TEST_F(CommandMacros, NeedAnObjectThatIsALoader)
{
    host.Loader().offersLoader = false;
    ShowList({});
    EXPECT_EQ(Asked().back(), GetLoader());
}

/// The reply is released all the same.
TEST_F(CommandMacros, AreReadOnSuccessAlone)
{
    openOfFirst = openOfSecond = 3;
    for (const HRESULT status : {S_FALSE, static_cast<HRESULT>(2), E_FAIL})
    {
        host.Loader().status = status;
        ShowList({});
        EXPECT_EQ(Asked().back(), Request("project", "first, second"));
    }
}

TEST_F(CommandMacros, LeaveTheLoaderUnreferenced)
{
    const ULONG before = host.Loader().References();
    ShowList({L"Grind", L"Weld"});
    EXPECT_EQ(host.Loader().References(), before);
    EXPECT_EQ(host.Query().References(), 0u);
    EXPECT_EQ(host.Manager().References(), 0u);
    EXPECT_EQ(host.Config().References(), 0u);
}

// The reply.

TEST_F(CommandMacros, AreTheNumberedEntries)
{
    host.Loader().Clear()->Entry(L"Log", L"none")->Entry(L"Macro1", L"Weld")->Entry(L"Macro2", L"Grind");
    ShowList({L"Grind", L"Weld"});
}

/// There are as many numbers as entries.
TEST_F(CommandMacros, BehindAGapAreNotReached)
{
    host.Loader().Clear()->Entry(L"Macro1", L"Weld")->Entry(L"Macro3", L"Grind");
    ShowList({L"Weld"});
}

TEST_F(CommandMacros, AreSearchedFromOne)
{
    host.Loader().Clear()->Entry(L"Macro0", L"Weld")->Entry(L"Macro01", L"Saw")->Entry(nullptr, L"Grind");
    ShowList({});
}

TEST_F(CommandMacros, AreTextsOrWhatBecomesOne)
{
    host.Loader().Clear()->Entry(L"Macro1", static_cast<IQP_BaseDataObject*>(drill.get()));
    host.Loader().Entry(L"Macro2", 7)->Entry(L"Macro3", L"Weld");
    ShowList({L"7", L"Weld"});
}

TEST_F(CommandMacros, AreListedOnceByExactText)
{
    host.Loader().Clear()->Macros({L"Weld", L"Grind", L"Weld", L"weld"});
    Show({Drops(kMacro), [](DialogView& view) { EXPECT_EQ(view.Items(kMacro).size(), 3u); },
          Presses(IDCANCEL)});
}

TEST_F(CommandMacros, OfANullArrayOrAnEmptyReplyAreNone)
{
    openOfFirst = openOfSecond = 2;
    host.Loader().givesArray = false;
    host.Loader().count = 3;
    ShowList({});
    host.Loader().givesArray = true;
    host.Loader().Clear()->count.reset();
    ShowList({});
}

TEST_F(CommandMacros, OfMoreEntriesThanNamedAreTheNamed)
{
    host.Loader().count = 5;
    ShowList({L"Grind", L"Weld"});
}

// When the loader is asked, and what a choice does.

TEST_F(CommandMacros, AreAskedForAgainWhileThereAreNone)
{
    openOfFirst = openOfSecond = 2;
    host.Loader().status = E_FAIL;
    Show({Drops(kMacro), Sees(Offers(kMacro, {})), Types("Escape"),
          [this](DialogView&) { host.Loader().status = S_OK; }, Drops(kMacro),
          Sees(Offers(kMacro, {L"Grind", L"Weld"})), Types("Escape"), Drops(kMacro),
          Sees(Offers(kMacro, {L"Grind", L"Weld"})), Presses(IDCANCEL)});
    const Calls asked = Asked();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), Request("project", "first, second")), 2);
}

TEST_F(CommandMacros, AreNotAskedForUnlessTheListIsOpened)
{
    openOfFirst = openOfSecond = 0;
    RunMacro();
    EXPECT_EQ(Show({Sees(Chosen(kMacro, L"Weld")), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write({{"m_pScript", "EMPTY"}, {"m_strVBAMacroName", "BSTR 'Weld'"}}));
}

TEST_F(CommandMacros, ReplaceTheScript)
{
    EXPECT_EQ(Show({Chooses(kMacro, L"Grind"), Sees(NoneChosen(kScript)), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write({{"m_pScript", "EMPTY"}, {"m_strVBAMacroName", "BSTR 'Grind'"}}));
}

TEST_F(CommandMacros, GiveWayToAScript)
{
    openOfFirst = openOfSecond = 0;
    RunMacro();
    EXPECT_EQ(Show({Chooses(kScript, L"Weld"), Sees(NoneChosen(kMacro)), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write({{"m_pScript", "UNKNOWN weld"}}));
}

TEST_F(CommandMacros, KeepTheStoredOneSelected)
{
    RunMacro();
    Show({Drops(kMacro), Sees(Chosen(kMacro, L"Weld")), Presses(IDCANCEL)});
}

/// The search by prefix begins behind the first.
TEST_F(CommandMacros, SelectALongerNameThatFollowsTheFirst)
{
    RunMacro();
    host.Loader().Clear()->Macros({L"Weld", L"Weld all"});
    EXPECT_EQ(Show({Drops(kMacro), Sees(Chosen(kMacro, L"Weld all")), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write({{"m_pScript", "EMPTY"}, {"m_strVBAMacroName", "BSTR 'Weld all'"}}));
}

TEST_F(CommandMacros, LoseTheStoredOneIfItIsGone)
{
    command->Set(L"m_pScript", L"")->Set(L"m_strVBAMacroName", L"Mill");
    ExpectWarning(kNoScript);
    Show({Drops(kMacro), Sees(NoneChosen(kMacro)), Types("Escape"), Presses(IDOK), Presses(IDCANCEL)});
}
} // namespace
