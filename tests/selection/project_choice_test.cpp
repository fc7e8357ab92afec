// The project choice: what ends it, and its results.
#include "ProjectChoiceFixture.h"

namespace
{
const wchar_t kNoProject[] =
    L"You must either select a project and choose ok, \nor you must choose the 'New' button!";

class ProjectChoice : public ProjectChoiceFixture
{
protected:
    ProjectChoice()
    {
        NameButton(L"New");
        Has({north, south});
        root->Children(L"template", host.List({Child("template", L"Plant")}));
    }

    const ComPtr<MemoryObject> north = Child("north", L"North");
    const ComPtr<MemoryObject> south = Child("south", L"South");
};

// ShowDialog.

TEST_F(ProjectChoice, TheChosenProjectHasAReferenceForTheCaller)
{
    const ULONG before = References(south);
    dialogs.OnDialog({Selects(1), Presses(IDOK)});
    LONG canceled = kUnchanged;
    IQP_BaseDataObject* selected = nullptr;
    EXPECT_EQ(choice->ShowDialog(root.get(), title, &canceled, &selected, 0), S_OK);
    EXPECT_EQ(selected, south.get());
    EXPECT_EQ(References(south), before + 1);
    selected->Release();
}

TEST_F(ProjectChoice, WithoutAListOfProjectsItIsCancelledUnshown)
{
    const auto broken = host.Object("broken");
    broken->Children(L"orvoproject", host.List({}), E_FAIL);
    EXPECT_EQ(Show({}, broken), (Outcome{S_OK, 1, kUnchanged, "untouched"}));
    EXPECT_TRACE(Calls{"broken.GetChildren(orvoproject)"});
    EXPECT_EQ(Show({}, nullptr), (Outcome{S_OK, 1, kUnchanged, "untouched"}));
}

// ShowDialogEx.

TEST_F(ProjectChoice, TemplatesAreListedInTheirPlace)
{
    for (const LONG templates : {LONG{1}, LONG{-1}, LONG{256}, static_cast<LONG>(0x80000000)})
        EXPECT_EQ(ShowEx({Selects(0), Presses(IDOK)}, templates), (Outcome{S_OK, 0, 0, "template"}));
    EXPECT_TRACE(Calls{"root.GetChildren(template)", "root.GetChildren(template)", "RemNext(1)",
                       "template.GetAttribute(name)", "RemNext(1)"});
}

TEST_F(ProjectChoice, WithoutAListTheResultIsToCreate)
{
    const auto broken = host.Object("broken");
    broken->Children(L"orvoproject", host.List({}), E_FAIL)->Children(L"template", {}, E_ACCESSDENIED);
    EXPECT_EQ(ShowEx({}, 0, broken), (Outcome{S_OK, 0, 1, "untouched"}));
    EXPECT_TRACE(Calls{"broken.GetChildren(orvoproject)"});
    EXPECT_EQ(ShowEx({}, 1, broken), (Outcome{S_OK, 0, 1, "untouched"}));
    EXPECT_TRACE(Calls{"broken.GetChildren(template)"});
    EXPECT_EQ(ShowEx({}, 0, nullptr), (Outcome{S_OK, 0, 1, "untouched"}));
}

// A dialog that cannot be shown.

TEST_F(ProjectChoice, ADialogThatCannotBeShownIsCancelledOrCreate)
{
    const NoDialogs noDialogs;
    EXPECT_EQ(Show({}), (Outcome{S_OK, 1, kUnchanged, "null"}));
    EXPECT_TRACE(Calls{"root.GetChildren(orvoproject)"});
    EXPECT_EQ(ShowEx({}), (Outcome{S_OK, 0, 1, "null"}));
    EXPECT_EQ(ShowEx({}, 1), (Outcome{S_OK, 0, 1, "null"}));
    EXPECT_TRACE(Calls{"root.GetChildren(template)"});
}

// OK without a usable selection.

TEST_F(ProjectChoice, OkWithoutASelectionShowsAMessageAndStays)
{
    ExpectBox(L"Information", kNoProject);
    ExpectBox(L"Information", kNoProject);
    EXPECT_EQ(Show({Presses(IDOK), Presses(IDOK), Selects(0), Presses(IDOK)}),
              (Outcome{S_OK, 0, kUnchanged, "north"}));
    EXPECT_EQ(boxes.Shown()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes.Shown()[0].icon, 0u);
}

TEST_F(ProjectChoice, TheMessageNamesTheButtonLiterally)
{
    NameButton(L"%s %d %n 100%");
    ExpectBox(
        L"Information",
        L"You must either select a project and choose ok, \nor you must choose the '%s %d %n 100%' button!");
    EXPECT_EQ(Show({Sees(Shows(kCreateNew, L"%s %d %n 100%")), Presses(IDOK), Presses(kCreateNew)}),
              (Outcome{S_OK, 0, kUnchanged, "null"}));
}

TEST_F(ProjectChoice, AChosenObjectThatIsNoDataObjectKeepsTheDialogOpen)
{
    EXPECT_EQ(ShowEx({Selects(0), [&](DialogView&) { north->offersData = false; }, Presses(IDOK),
                      Sees(RowSelected(0)), Presses(IDCANCEL)}),
              (Outcome{S_OK, 1, kUnchanged, "null"}));
}

// The list.

TEST_F(ProjectChoice, ListsTheChildrenByTheirNamesAndReadsNothingElse)
{
    Show({Sees(InColumn(0, Texts{L"North", L"South"})), Presses(kCreateNew)});
    EXPECT_TRACE(Calls{"root.GetChildren(orvoproject)", "root.GetChildren(orvoproject)", "RemNext(1)",
                       "north.GetAttribute(name)", "RemNext(1)", "south.GetAttribute(name)", "RemNext(1)"});
}

TEST_F(ProjectChoice, NoRowIsSelectedAtFirst)
{
    Show({Sees(NoRowSelected()), Presses(kCreateNew)});
}

class ProjectList : public ProjectChoiceFixture
{
protected:
    Texts ShownFor(std::vector<ComPtr<MemoryObject>> children)
    {
        // One root for each list: a list that was set stays.
        const auto of = host.Object("of");
        of->Children(L"orvoproject", host.List(std::move(children)));
        Texts shown;
        Show({[&](DialogView& view) { shown = view.Column(view.List(), 0); }, Presses(kCreateNew)}, of);
        return shown;
    }
};

TEST_F(ProjectList, IsSortedCharacterByCharacter)
{
    EXPECT_EQ(ShownFor({Child("1", L"b"), Child("2", L"A10"), Child("3", L"a"), Child("4", L"B"),
                        Child("5", L""), Child("6", L"A2"), Child("7", L"\u00c4"), Child("8", L"_")}),
              (Texts{L"", L"A10", L"A2", L"B", L"_", L"a", L"b", L"\u00c4"}));
}

TEST_F(ProjectList, ShowsTwoOfOneNameBesideEachOtherInTheirOrder)
{
    Has({Child("first", L"Same"), Child("other", L"Other"), Child("second", L"Same"),
         Child("third", L"Same")});
    for (const auto& [row, name] : {std::pair(1, "first"), std::pair(2, "second"), std::pair(3, "third")})
        EXPECT_EQ(Show({Selects(row), Presses(IDOK)}).selected, name);
}

/// Ten of a name: sorted as numbers they stay in their order, as texts the tenth would come second.
TEST_F(ProjectList, KeepsMoreThanNineOfOneNameInTheirOrder)
{
    std::vector<ComPtr<MemoryObject>> children;
    for (int number = 0; number < 12; ++number)
        children.push_back(Child(("same" + std::to_string(number)).c_str(), L"Same"));
    Has(std::move(children));
    EXPECT_EQ(Show({Selects(10), Presses(IDOK)}).selected, "same10");
}

TEST_F(ProjectList, OfNoneOpensEmptyAndOnlyTheButtonOrCancelLeaves)
{
    Has({});
    NameButton(L"New");
    ExpectBox(L"Information", kNoProject);
    ExpectBox(L"Information", kNoProject);
    EXPECT_EQ(Show({Sees(RowCount(0)), Presses(IDOK), Presses(kCreateNew)}),
              (Outcome{S_OK, 0, kUnchanged, "null"}));
    EXPECT_EQ(ShowEx({Presses(IDOK), Presses(IDCANCEL)}), (Outcome{S_OK, 1, kUnchanged, "null"}));
}

TEST_F(ProjectList, LeavesAnUnreadableChildOutAfterAMessageForEach)
{
    const auto unreadable = host.Object("unreadable");
    unreadable->Fail(L"name", E_FAIL);
    const auto number = host.Object("number");
    number->Set(L"name", LONG{5});
    const auto nameless = host.Object("nameless");
    Has({unreadable, Child("a", L"A"), number, nameless, Child("b", L"B")});
    const std::wstring text = L"unexpected error reading projects.\nTrying next project ...";
    for (int times = 0; times < 3; ++times)
        ExpectBox(L"Error", text);
    EXPECT_EQ(Show({Sees(InColumn(0, Texts{L"A", L"B"})), Selects(1), Presses(IDOK)}),
              (Outcome{S_OK, 0, kUnchanged, "b"}));
    const std::string box = "box Error: unexpected error reading projects.\nTrying next project ...";
    EXPECT_TRACE(Calls{"root.GetChildren(orvoproject)", "root.GetChildren(orvoproject)", "RemNext(1)",
                       "unreadable.GetAttribute(name)", box, "RemNext(1)", "a.GetAttribute(name)",
                       "RemNext(1)", "number.GetAttribute(name)", box, "RemNext(1)",
                       "nameless.GetAttribute(name)", box, "RemNext(1)", "b.GetAttribute(name)",
                       "RemNext(1)"});
    EXPECT_EQ(boxes.Shown()[0].icon, static_cast<UINT>(MB_ICONERROR));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ProjectList, SpeaksOfTemplatesWhereTheyAreListed)
{
    const auto unreadable = host.Object("unreadable");
    unreadable->Fail(L"name", E_FAIL);
    Has({unreadable}, L"template");
    ExpectBox(L"Error", L"unexpected error reading templates.\nTrying next template ...");
    ShowEx({Presses(IDCANCEL)}, 1);
}

TEST_F(ProjectList, TakesANameThatCameWithAnotherPositiveStatus)
{
    const auto odd = host.Object("odd");
    odd->Answer(L"name", S_FALSE, XQPComVariant(L"Odd"));
    EXPECT_EQ(ShownFor({odd}), Texts{L"Odd"});
}

TEST_F(ProjectList, EndsAtANullChild)
{
    EXPECT_EQ(ShownFor({Child("a", L"A"), {}, Child("b", L"B")}), Texts{L"A"});
}

TEST_F(ProjectList, EndsWithTheFirstStatusThatIsNotSOk)
{
    Has({Child("a", L"A"), Child("b", L"B"), Child("c", L"C")});
    found->statuses[1] = E_FAIL;
    Show({Sees(InColumn(0, Texts{L"A"})), Presses(kCreateNew)});
}

TEST_F(ProjectList, IsEmptyIfTheDialogCannotListWhatTheComponentCould)
{
    Has({});
    const auto another = host.Object("another");
    another->Children(L"orvoproject", host.List({Child("a", L"A")}), S_FALSE);
    const auto none = host.Object("none");
    none->Children(L"orvoproject", {}, S_OK);
    for (const ComPtr<MemoryObject>& of : {another, none})
        EXPECT_EQ(Show({Sees(RowCount(0)), Presses(kCreateNew)}, of), (Outcome{S_OK, 0, kUnchanged, "null"}));
}

TEST_F(ProjectList, ShowsLongNamesAndThoseOfOtherScriptsWhole)
{
    const std::wstring longName(10'000, L'x');
    const Texts names = {L"\u05d0\u05d1\u05d2", L"\u5de5\u5382 \u5317", longName};
    std::vector<ComPtr<MemoryObject>> children;
    for (const std::wstring& name : names)
        children.push_back(Child("child", name.c_str()));
    EXPECT_EQ(ShownFor(children), (Texts{longName, names[0], names[1]}));
}

TEST_F(ProjectList, NamesThatAreLongOrInAnotherScriptCanBeChosen)
{
    const auto longNamed = Child("long", std::wstring(10'000, L'x').c_str());
    Has({longNamed, Child("hebrew", L"\u05d0\u05d1\u05d2"), Child("chinese", L"\u5de5\u5382")});
    EXPECT_EQ(Show({Selects(0), Presses(IDOK)}), (Outcome{S_OK, 0, kUnchanged, "long"}));
    EXPECT_EQ(Show({Selects(1), Presses(IDOK)}), (Outcome{S_OK, 0, kUnchanged, "hebrew"}));
    EXPECT_EQ(ShowEx({Selects(2), Presses(IDOK)}), (Outcome{S_OK, 0, 0, "chinese"}));
    XQPComVariant name;
    EXPECT_EQ(longNamed->GetAttribute(XQPComBSTR(L"name"), &name), S_OK);
    EXPECT_EQ(SysStringLen(name.Value().bstrVal), 10'000u);
}

// Bad arguments.

TEST_F(ProjectChoice, AnyResultMayBeOmitted)
{
    const ULONG before = References(south);
    dialogs.OnDialog({Selects(1), Presses(IDOK)});
    EXPECT_EQ(choice->ShowDialog(root.get(), nullptr, nullptr, nullptr, 0), S_OK);
    dialogs.OnDialog({Selects(1), Presses(IDOK)});
    EXPECT_EQ(choice->ShowDialogEx(root.get(), nullptr, 0, nullptr, nullptr, nullptr, 0), S_OK);
    EXPECT_EQ(choice->ShowDialog(nullptr, nullptr, nullptr, nullptr, 0), S_OK);
    EXPECT_EQ(choice->ShowDialogEx(nullptr, nullptr, 0, nullptr, nullptr, nullptr, 0), S_OK);
    EXPECT_EQ(References(south), before);
}

TEST_F(ProjectChoice, EverythingIsReleased)
{
    const ULONG held = References(root) + References(north) + References(south);
    Show({Selects(0), Presses(IDOK)});
    ShowEx({Selects(0), Presses(kCreateNew)});
    ShowEx({Presses(IDCANCEL)}, 1);
    EXPECT_EQ(References(root) + References(north) + References(south), held);
}
} // namespace
