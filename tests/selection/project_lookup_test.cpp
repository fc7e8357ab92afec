// From any data object to its project.
#include "LookupFixture.h"
#include "XSelectOrvoitemDlg.h"

namespace
{
const std::vector<std::string> kItemClasses = {"XDOOrvoItem", "XDOOrvoCompBase", "XDOSubCompItem",
                                               "XDOOrvoPlanType", "XDOOrvoPlanTypeSet"};
const std::vector<std::string> kProjectAndItemClasses = {"XDOOrvoProject",  "XDOOrvoItem",
                                                         "XDOOrvoCompBase", "XDOSubCompItem",
                                                         "XDOOrvoPlanType", "XDOOrvoPlanTypeSet"};

class ProjectLookup : public LookupFixture
{
protected:
    ComPtr<MemoryObject> Of(const wchar_t* className, const char* name = "object")
    {
        ComPtr<MemoryObject> object = host.Object(name);
        object->Is(className);
        return object;
    }

    static std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }

    /// The class tests of an object up to the chain's end.
    const Calls wholeChain = ClassTests("object", kProjectAndItemClasses) +
                             ClassTests("object", {"XDORelationship", "XDOScriptAction"});

    const ComPtr<MemoryObject> project = host.Object("project");
};

TEST_F(ProjectLookup, AProjectIsItsOwnAfterOneClassTestWithoutAnyRead)
{
    const auto object = Of(L"XDOOrvoProject");
    const ULONG before = References(object);
    IQP_BaseDataObject* result = nullptr;
    EXPECT_EQ(item->GetProject(object.get(), &result), S_OK);
    EXPECT_EQ(result, object.get());
    EXPECT_EQ(References(object), before + 1);
    result->Release();
    EXPECT_CALLS(ClassTests("object", {"XDOOrvoProject"}));
}

TEST_F(ProjectLookup, AProjectThatIsAnItemAndARelationshipTooIsItsOwn)
{
    const auto object = Of(L"XDOOrvoProject");
    object->Is(L"XDOOrvoItem")->Is(L"XDOWorkSystemComponent")->Is(L"XDORelationship");
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "object"}));
    EXPECT_CALLS(ClassTests("object", {"XDOOrvoProject"}));
}

TEST_F(ProjectLookup, ItemsHaveTheirOwnProjectAndTheFirstMatchDecides)
{
    for (std::size_t match = 0; match < kItemClasses.size(); ++match)
    {
        const auto object = Of(Wide(kItemClasses[match]).c_str());
        object->Set(L"orvoproject", project);
        EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "project"})) << kItemClasses[match];
        std::vector<std::string> tested(kProjectAndItemClasses.begin(),
                                        kProjectAndItemClasses.begin() + static_cast<std::ptrdiff_t>(match) +
                                            2);
        tested.emplace_back("XDOWorkSystemComponent");
        EXPECT_CALLS(ClassTests("object", tested) + Calls{"object.GetAttribute(orvoproject)"});
    }
}

TEST_F(ProjectLookup, AnItemThatIsARelationshipTooIsTreatedAsAnItem)
{
    const auto object = Of(L"XDOOrvoPlanTypeSet");
    object->Is(L"XDORelationship")->Is(L"XDOScriptAction")->Set(L"orvoproject", project);
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "project"}));
}

TEST_F(ProjectLookup, AWorkSystemComponentHasNoProjectAndReturnsFalse)
{
    for (const std::string& name : kItemClasses)
    {
        const auto object = Of(Wide(name).c_str());
        object->Is(L"XDOWorkSystemComponent")->Set(L"orvoproject", project);
        EXPECT_EQ(ProjectOf(object), (Answer{S_FALSE, "untouched"})) << name;
        EXPECT_EQ(host.calls.back(), "object.IsDerivedFromClass(XDOWorkSystemComponent)");
    }
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ProjectLookup, AComponentThatIsNoItemIsTestedForOtherClasses)
{
    const auto object = Of(L"XDOWorkSystemComponent");
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "null"}));
    EXPECT_CALLS(wholeChain);

    const auto related = host.Object("related");
    related->Set(L"orvoproject", project);
    object->Is(L"XDORelationship")->Set(L"relationobject1", related);
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "project"}));
}

TEST_F(ProjectLookup, AnAnswerThatIsNotSOkIsNoMatch)
{
    for (const HRESULT answer : {S_FALSE, HRESULT{2}, E_FAIL, E_NOTIMPL})
    {
        const auto object = host.Object("object");
        for (const std::string& name : kProjectAndItemClasses)
            object->Is(Wide(name).c_str(), answer);
        object->Is(L"XDORelationship", answer)->Is(L"XDOScriptAction", answer);
        EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "null"})) << answer;
        EXPECT_CALLS(wholeChain);
    }
}

TEST_F(ProjectLookup, AnItemWhoseLastTestFailsIsNoWorkSystemComponent)
{
    const auto object = Of(L"XDOOrvoItem");
    object->Is(L"XDOWorkSystemComponent", E_FAIL)->Set(L"orvoproject", project);
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "project"}));
}

TEST_F(ProjectLookup, ARelationshipHasTheProjectOfItsFirstObject)
{
    const auto related = host.Object("related");
    related->Set(L"orvoproject", project);
    const auto object = Of(L"XDORelationship");
    object->Set(L"relationobject1", related)->Set(L"orvoproject", host.Object("another"));
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "project"}));
    EXPECT_CALLS(ClassTests("object", kProjectAndItemClasses) + ClassTests("object", {"XDORelationship"}) +
                 Calls{"object.GetAttribute(relationobject1)", "related.GetAttribute(orvoproject)"});
}

TEST_F(ProjectLookup, AScriptActionHasTheProjectOfItsPlanTypeSet)
{
    const auto set = host.Object("set");
    set->Set(L"orvoproject", project);
    const auto object = Of(L"XDOScriptAction");
    object->Set(L"m_pOrvoPlanTypeSet", set)->Set(L"orvoproject", host.Object("another"));
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "project"}));
    EXPECT_CALLS(wholeChain +
                 Calls{"object.GetAttribute(m_pOrvoPlanTypeSet)", "set.GetAttribute(orvoproject)"});
}

TEST_F(ProjectLookup, ARelationshipAndScriptActionIsARelationship)
{
    const auto object = Of(L"XDORelationship");
    object->Is(L"XDOScriptAction")->Set(L"relationobject1", static_cast<IUnknown*>(nullptr));
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "null"}));
    EXPECT_EQ(host.calls.back(), "object.GetAttribute(relationobject1)");
}

/// What is behind a reference is read for its project whatever its own class is.
TEST_F(ProjectLookup, ARelatedObjectWithoutAProjectDecidesTheResult)
{
    const auto related = Of(L"XDOOrvoProject", "related");
    const auto object = Of(L"XDORelationship");
    object->Set(L"relationobject1", related);
    EXPECT_EQ(ProjectOf(object), (Answer{S_FALSE, "untouched"}));
    EXPECT_EQ(host.calls.back(), "related.GetAttribute(orvoproject)");
    related->Fail(L"orvoproject", E_ACCESSDENIED);
    EXPECT_EQ(ProjectOf(object), (Answer{E_ACCESSDENIED, "untouched"}));
    related->Set(L"orvoproject", static_cast<IUnknown*>(nullptr));
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "null"}));
}

TEST_F(ProjectLookup, AnObjectOutsideTheChainHasNoneAndThatIsNoFailure)
{
    const auto object = Of(L"XDOConfigType");
    object->Set(L"orvoproject", project);
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "null"}));
    EXPECT_CALLS(wholeChain);
}

TEST_F(ProjectLookup, TheLookupLeavesItsOutputWhereTheComponentWritesNull)
{
    const auto object = Of(L"XDOConfigType");
    const qptools::XSelectOrvoitemDlg lookups(nullptr, nullptr, object.get(), nullptr);
    EXPECT_EQ(Ask([&](Data** result) { return lookups.GetProjectFromDO(object.get(), result); }),
              (Answer{S_OK, "untouched"}));
}

TEST_F(ProjectLookup, ANullObjectIsRefusedWithoutAHostCall)
{
    EXPECT_EQ(ProjectOf(nullptr), (Answer{E_INVALIDARG, "untouched"}));
    EXPECT_CALLS(Calls{});
}

TEST_F(ProjectLookup, NoResultAddressChangesNothingButTheWriting)
{
    const auto object = Of(L"XDOOrvoItem");
    object->Set(L"orvoproject", project);
    const ULONG before = References(project);
    EXPECT_EQ(item->GetProject(object.get(), nullptr), S_OK);
    EXPECT_EQ(host.calls.size(), 4u);
    EXPECT_EQ(References(project), before);
    EXPECT_EQ(item->GetProject(nullptr, nullptr), E_INVALIDARG);
}

/// The ways in which the attribute with the project can answer, through each of the three roads to it.
class ProjectAttribute : public ProjectLookup, public ::testing::WithParamInterface<const wchar_t*>
{
protected:
    ProjectAttribute()
    {
        const std::wstring className = GetParam();
        object->Is(GetParam());
        if (className == L"XDORelationship")
            object->Set(L"relationobject1", holder);
        else if (className == L"XDOScriptAction")
            object->Set(L"m_pOrvoPlanTypeSet", holder);
        else
            holder = object;
    }

    Answer With(HRESULT status, const VARIANT& value)
    {
        holder->Answer(L"orvoproject", status, value);
        return ProjectOf(object);
    }

    const ComPtr<MemoryObject> object = host.Object("object");
    ComPtr<MemoryObject> holder = host.Object("holder");
};

TEST_P(ProjectAttribute, AReferenceIsFollowedAndTheResultIsAddRefed)
{
    EXPECT_EQ(With(S_OK, Reference(VT_UNKNOWN, static_cast<Data*>(project.get()))),
              (Answer{S_OK, "project"}));
    const ULONG before = References(project);
    IQP_BaseDataObject* result = nullptr;
    EXPECT_EQ(item->GetProject(object.get(), &result), S_OK);
    EXPECT_EQ(References(project), before + 1);
    result->Release();
}

TEST_P(ProjectAttribute, AnObjectThatLeadsToTheProjectIsAsGood)
{
    const auto reference = host.ReferenceTo("reference", project);
    EXPECT_EQ(With(S_OK, Reference(VT_UNKNOWN, reference.get())), (Answer{S_OK, "project"}));
}

TEST_P(ProjectAttribute, ADispatchReferenceIsAsGood)
{
    EXPECT_EQ(With(S_OK, Reference(VT_DISPATCH, static_cast<Data*>(project.get()))),
              (Answer{S_OK, "project"}));
}

TEST_P(ProjectAttribute, AReferenceToNothingIsNoProjectAndNoFailure)
{
    EXPECT_EQ(With(S_OK, Reference(VT_UNKNOWN, nullptr)), (Answer{S_OK, "null"}));
    EXPECT_EQ(With(S_OK, Reference(VT_DISPATCH, nullptr)), (Answer{S_OK, "null"}));
}

TEST_P(ProjectAttribute, AValueThatIsNoReferenceIsNoProjectAndNoFailure)
{
    EXPECT_EQ(With(S_OK, XQPComVariant()), (Answer{S_OK, "null"}));
    EXPECT_EQ(With(S_OK, XQPComVariant(L"project")), (Answer{S_OK, "null"}));
    VARIANT number;
    VariantInit(&number);
    number.vt = VT_I8;
    number.llVal = 0x1234567890;
    EXPECT_EQ(With(S_OK, number), (Answer{S_OK, "null"}));
}

TEST_P(ProjectAttribute, AReferenceToWhatIsNoDataObjectIsRefused)
{
    EXPECT_EQ(With(S_OK, Reference(VT_UNKNOWN, noDataObject.get())), (Answer{E_NOINTERFACE, "untouched"}));
}

TEST_P(ProjectAttribute, AnyOtherStatusIsTheResult)
{
    const VARIANT value = Reference(VT_UNKNOWN, static_cast<Data*>(project.get()));
    for (const HRESULT status : {S_FALSE, HRESULT{2}, E_FAIL, E_ACCESSDENIED})
        EXPECT_EQ(With(status, value), (Answer{status, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{}) << "this look-up reports nothing";
}

INSTANTIATE_TEST_SUITE_P(Roads, ProjectAttribute,
                         ::testing::Values(L"XDOOrvoItem", L"XDOSubCompItem", L"XDORelationship",
                                           L"XDOScriptAction"),
                         [](const auto& info) {
                             const std::wstring name = info.param;
                             return std::string(name.begin(), name.end());
                         });

/// The ways in which the first of two attributes can answer.
class FirstReference : public ProjectLookup,
                       public ::testing::WithParamInterface<std::pair<const wchar_t*, const wchar_t*>>
{
protected:
    Answer With(HRESULT status, const VARIANT& value)
    {
        object->Answer(GetParam().second, status, value);
        return ProjectOf(object);
    }

    const ComPtr<MemoryObject> object = Of(GetParam().first);
};

TEST_P(FirstReference, AReferenceToNothingIsNoProjectAndNoFailure)
{
    EXPECT_EQ(With(S_OK, Reference(VT_UNKNOWN, nullptr)), (Answer{S_OK, "null"}));
    EXPECT_EQ(With(S_OK, XQPComVariant(L"text")), (Answer{S_OK, "null"}));
}

TEST_P(FirstReference, AReferenceToWhatIsNoDataObjectIsRefused)
{
    EXPECT_EQ(With(S_OK, Reference(VT_UNKNOWN, noDataObject.get())), (Answer{E_NOINTERFACE, "untouched"}));
}

TEST_P(FirstReference, AnyOtherStatusIsTheResultAndNothingElseIsRead)
{
    const auto related = host.Object("related");
    related->Set(L"orvoproject", project);
    for (const HRESULT status : {S_FALSE, HRESULT{2}, E_FAIL})
    {
        EXPECT_EQ(With(status, Reference(VT_UNKNOWN, static_cast<Data*>(related.get()))),
                  (Answer{status, "untouched"}));
        EXPECT_EQ(host.calls.back().substr(0, 20), "object.GetAttribute(");
    }
    EXPECT_EQ(logBook.Entries(), Entries{});
}

INSTANTIATE_TEST_SUITE_P(Roads, FirstReference,
                         ::testing::Values(std::pair(L"XDORelationship", L"relationobject1"),
                                           std::pair(L"XDOScriptAction", L"m_pOrvoPlanTypeSet")),
                         [](const auto& info) {
                             return std::string(info.index == 0 ? "Relationship" : "ScriptAction");
                         });
} // namespace
