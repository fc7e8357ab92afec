// The navigator of the reference host: bookmarks, views and the tree expander.
#include "NavigatorView.h"
#include "PlantFixture.h"
#include "RegisteredProgId.h"
#include "TreeExpander.h"
#include "Utf8.h"

namespace
{
constexpr GUID kDataManagerClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};
constexpr wchar_t kNamesKey[] = L"QPR-Navigator/BrowserConfiguration1/gotoitemname/";
constexpr wchar_t kTreesKey[] = L"QPR-Navigator/BrowserConfiguration1/GotoItemTree/";
constexpr LONG kBookmarks = 2;

class Navigator : public SamplePlant
{
protected:
    template <class Interface>
    ComPtr<Interface> Service(REFCLSID clsid)
    {
        ComPtr<IQPFObject> object;
        EXPECT_EQ(manager->GetObject(clsid, 1, object.put()), S_OK);
        ComPtr<Interface> service;
        EXPECT_EQ(service.queryFrom(object.get()), S_OK);
        return service;
    }

    /// "name=value" of each entry of a list of the key store.
    Names List(const std::wstring& key)
    {
        ULONG count = 0;
        tagSTRINGPAIR* list = nullptr;
        store->GetStringList(Text(key.c_str()), &count, &list, kBookmarks);
        Names entries;
        for (ULONG entry = 0; entry < count; ++entry)
            entries.push_back(list[entry].bstrName + (L"=" + std::wstring(list[entry].bstrValue)));
        return entries;
    }

    ComPtr<IEnumQPFObject> Views()
    {
        ComPtr<IEnumQPFObject> views;
        EXPECT_EQ(manager->GetRunningObjects(refhost::kNavigatorViewClass, views.put()), S_OK);
        return views;
    }

    /// For each view, which of these projects it shows, by their places in the list.
    Lines Shown(const Names& projects)
    {
        Lines shown;
        const ComPtr<IEnumQPFObject> views = Views();
        ComPtr<IQPFObject> object;
        ULONG fetched = 0;
        while (views->RemNext(1, object.put(), &fetched) == S_OK)
        {
            ComPtr<IQPExplorerView> view;
            EXPECT_EQ(view.queryFrom(object.get()), S_OK);
            std::string line;
            for (const std::wstring& project : projects)
                line +=
                    view->IsProjectShown(Text(IdOf(L"project", project.c_str()).c_str())) == S_OK ? "x" : "-";
            shown.push_back(line);
        }
        return shown;
    }

    std::wstring IdOf(const wchar_t* table, const wchar_t* name) const
    {
        return plant->IdOf(Find(table, name));
    }

    void Bookmark(const wchar_t* node, const wchar_t* name, const wchar_t* project = L"Body Plant North")
    {
        plant->AddBookmark(project, Find(L"plannode", node), name);
    }

    const ComPtr<IQPFObjectManager> manager = plant->ObjectManager();
    const ComPtr<IQPSessionDataManager> store = Service<IQPSessionDataManager>(kDataManagerClass);
    const std::wstring project = IdOf(L"project", L"Body Plant North");
};

TEST_F(Navigator, an_identifier_finds_its_object)
{
    const std::wstring id = IdOf(L"plannode", L"Door line");
    ASSERT_EQ(id.front(), L'$');
    ASSERT_EQ(id.back(), L')');
    for (const wchar_t* const more : {L"", L";", L";$7);"})
    {
        ComPtr<IUnknown> object;
        ASSERT_EQ(plant->NewQuery()->GetObjectById(Text((id + more).c_str()), object.put()), S_OK);
        ComPtr<IQP_BaseDataObject> data;
        ASSERT_EQ(data.queryFrom(object.get()), S_OK);
        EXPECT_EQ(ReadText(data.get(), L"configured_name"), L"Door line");
    }
    EXPECT_THROW(plant->IdOf(nullptr), refhost::PlantError);
}

TEST_F(Navigator, a_bookmark_is_an_entry_of_two_lists)
{
    Bookmark(L"Door line", L"The doors");
    Bookmark(L"Hinge robot", L"");
    EXPECT_EQ(List(kNamesKey + project), (Names{L"gotoitemname0=The doors", L"gotoitemname1="}));
    const Names trees = List(kTreesKey + project);
    ASSERT_EQ(trees.size(), 2U);
    EXPECT_EQ(trees[0].substr(0, 2), L"0=");
    EXPECT_EQ(trees[1].substr(0, 2), L"1=");
    const std::wstring id = IdOf(L"plannode", L"Door line");
    EXPECT_EQ(trees[0].substr(2 + 12, id.size() + 1), id + L";");
    EXPECT_EQ(trees[0].find(L')'), trees[0].find(id) + id.size() - 1) << "the identifier has the first )";
    ULONG count = 0;
    BSTR* keys = nullptr;
    EXPECT_EQ(store->GetSubKeys(Text(L"QPR-Navigator/BrowserConfiguration1/gotoitemname"), 1, &count, &keys,
                                kBookmarks),
              S_OK);
    ASSERT_EQ(count, 1U);
    EXPECT_EQ(keys[0], project);
}

TEST_F(Navigator, a_bookmark_is_added_behind_the_highest_number)
{
    for (const wchar_t* const name : {L"a", L"b", L"c"})
        Bookmark(L"Door line", name);
    ULONG count = 0;
    tagSTRINGPAIR* list = nullptr;
    for (const wchar_t* const key : {kNamesKey, kTreesKey})
    {
        const std::wstring whole = key + project;
        ASSERT_EQ(store->GetStringList(Text(whole.c_str()), &count, &list, kBookmarks), S_OK);
        std::swap(list[1], list[2]);
        ASSERT_EQ(store->WriteStringList(Text(whole.c_str()), 2, list, kBookmarks), S_OK);
    }
    Bookmark(L"Hinge robot", L"d");
    EXPECT_EQ(List(kNamesKey + project), (Names{L"gotoitemname0=a", L"gotoitemname2=c", L"gotoitemname3=d"}));
    EXPECT_EQ(List(kTreesKey + project).back().substr(0, 2), L"3=");
}

TEST_F(Navigator, projects_have_bookmarks_of_their_own)
{
    Bookmark(L"Door line", L"north");
    Bookmark(L"Door line", L"east", L"Final Assembly East");
    EXPECT_EQ(List(kNamesKey + project), Names{L"gotoitemname0=north"});
    EXPECT_EQ(List(kNamesKey + IdOf(L"project", L"Final Assembly East")), Names{L"gotoitemname0=east"});
    EXPECT_THROW(Bookmark(L"Door line", L"x", L"No such project"), refhost::PlantError);
    const auto other = refhost::Plant::OpenMemory();
    EXPECT_THROW(plant->AddBookmark(L"Body Plant North", other->Add(L"plannode", L"far"), L"x"),
                 refhost::PlantError);
}

TEST_F(Navigator, there_is_a_view_for_each_project_shown)
{
    const Names projects = {L"Body Plant North", L"Final Assembly East"};
    EXPECT_EQ(Shown(projects), Lines{});
    plant->ShowProject(L"Final Assembly East", true);
    plant->ShowProject(L"Body Plant North", true);
    EXPECT_EQ(Shown(projects), (Lines{"-x", "x-"}));
    plant->ShowProject(L"Final Assembly East", true);
    EXPECT_EQ(Shown(projects), (Lines{"x-", "-x"})) << "the one opened last is the last";
    plant->ShowProject(L"Body Plant North", false);
    EXPECT_EQ(Shown(projects), Lines{"-x"});
    EXPECT_THROW(plant->ShowProject(L"No such project", true), refhost::PlantError);
}

TEST_F(Navigator, a_view_shows_no_other_text)
{
    plant->ShowProject(L"Body Plant North", true);
    ComPtr<IQPFObject> object;
    ASSERT_EQ(Views()->GetSingleNext(object.put()), S_OK);
    ComPtr<IQPExplorerView> view;
    ASSERT_EQ(view.queryFrom(object.get()), S_OK);
    for (const wchar_t* const text : {L"", L"x", L"$0)", L"$99999)", L"Body Plant North"})
        EXPECT_EQ(view->IsProjectShown(Text(text)), S_FALSE);
    EXPECT_EQ(view->IsProjectShown(nullptr), S_FALSE);
    EXPECT_EQ(view->Reserved1(), E_NOTIMPL);
}

TEST_F(Navigator, the_expander_remembers_what_it_expanded)
{
    Bookmark(L"Door line", L"doors");
    const std::wstring tree = List(kTreesKey + project).front().substr(2);
    const auto expander = Service<IQPBrowserTreeExpander>(refhost::kTreeExpanderClass);
    EXPECT_TRUE(plant->Expanded().empty());
    EXPECT_EQ(expander->ExpandTree(Text(tree.c_str()), Text(project.c_str())), S_OK);
    ASSERT_EQ(plant->Expanded().size(), 1U);
    EXPECT_EQ(plant->Expanded()[0].tree, tree);
    EXPECT_EQ(plant->Expanded()[0].project, project);
    EXPECT_EQ(expander->Reserved1(), E_NOTIMPL);
    EXPECT_EQ(expander->Reserved2(), E_NOTIMPL);
}

TEST_F(Navigator, the_expander_refuses_what_it_cannot_find)
{
    const auto expander = Service<IQPBrowserTreeExpander>(refhost::kTreeExpanderClass);
    for (const wchar_t* const tree :
         {L"", L"BrowserTree:", L"BrowserTree:$99999);", L"Elsewhere!!:$1);", L"$1)"})
        EXPECT_EQ(expander->ExpandTree(Text(tree), Text(project.c_str())), E_INVALIDARG);
    EXPECT_EQ(expander->ExpandTree(nullptr, nullptr), E_INVALIDARG);
    EXPECT_TRUE(plant->Expanded().empty());
}

TEST_F(Navigator, the_expander_knows_the_projects_shown)
{
    const auto expander = Service<IQPExplorerView>(refhost::kTreeExpanderClass);
    EXPECT_EQ(expander->IsProjectShown(Text(project.c_str())), S_FALSE);
    plant->ShowProject(L"Body Plant North", true);
    EXPECT_EQ(expander->IsProjectShown(Text(project.c_str())), S_OK);
    EXPECT_EQ(expander->IsProjectShown(nullptr), S_FALSE);
}

TEST_F(Navigator, a_removed_object_is_not_found_and_its_bookmark_stays)
{
    plant->Add(L"plannode", L"lonely");
    Bookmark(L"lonely", L"gone soon");
    const std::wstring id = IdOf(L"plannode", L"lonely");
    const std::wstring tree = List(kTreesKey + project).front().substr(2);
    const ComPtr<IQP_BaseDataObject> held = Find(L"plannode", L"lonely");
    plant->Remove(L"plannode", L"lonely");
    ComPtr<IUnknown> object;
    EXPECT_EQ(plant->NewQuery()->GetObjectById(Text(id.c_str()), object.put()), S_FALSE);
    EXPECT_FALSE(object);
    Value value;
    EXPECT_LT(Read(held.get(), L"name", value), 0);
    const auto expander = Service<IQPBrowserTreeExpander>(refhost::kTreeExpanderClass);
    EXPECT_EQ(expander->ExpandTree(Text(tree.c_str()), Text(project.c_str())), E_INVALIDARG);
    EXPECT_EQ(List(kNamesKey + project), Names{L"gotoitemname0=gone soon"});
    EXPECT_THROW(plant->Remove(L"plannode", L"lonely"), refhost::PlantError);
    EXPECT_THROW(plant->Remove(L"project", L"Body Plant North"), refhost::PlantError);
    EXPECT_TRUE(plant->Find(L"project", L"Body Plant North")) << "others refer to it";
}

TEST_F(Navigator, its_calls_pass_the_gate)
{
    plant->ShowProject(L"Body Plant North", true);
    plant->Calls().Clear();
    plant->Calls().Record(true);
    ComPtr<IQPFObject> object;
    ULONG fetched = 0;
    Views()->RemNext(1, object.put(), &fetched);
    ComPtr<IQPExplorerView> view;
    view.queryFrom(object.get());
    view->IsProjectShown(Text(L"$1)"));
    Service<IQPBrowserTreeExpander>(refhost::kTreeExpanderClass)->ExpandTree(Text(L"t"), Text(L"$1)"));
    EXPECT_EQ(plant->Calls().Calls(),
              (Lines{"IQPFObjectManager::GetRunningObjects({94D1E7A6-3B58-4E2C-8F60-1AC742D905BE})",
                     "IEnumQPFObject::RemNext(1)", "IQPExplorerView::IsProjectShown(\"$1)\")",
                     "IQPFObjectManager::GetObject({1F86C03B-E94D-47A1-B27E-6058AD13C9F4}, 1)",
                     "IQPBrowserTreeExpander::ExpandTree(\"t\", \"$1)\")"}));
    plant->Calls().Clear();
    plant->Calls().FailCall(1, refhost::Fault::NullObject);
    ComPtr<IEnumQPFObject> views;
    EXPECT_EQ(manager->GetRunningObjects(refhost::kNavigatorViewClass, views.put()), S_OK);
    EXPECT_FALSE(views);
}

TEST_F(Navigator, its_classes_are_found_by_their_prog_ids)
{
    const RegisteredProgId view(refhost::kNavigatorViewProgId, refhost::kNavigatorViewClass);
    const RegisteredProgId expander(refhost::kTreeExpanderProgId, refhost::kTreeExpanderClass);
    CLSID found{};
    EXPECT_EQ(CLSIDFromProgID(L"ORVOEXPLORER.ORVOEXPLORERView", &found), S_OK);
    EXPECT_TRUE(found == refhost::kNavigatorViewClass);
    EXPECT_EQ(CLSIDFromProgID(L"QPBrowserTreeExpanderStarter.QPBrowserTreeExpanderStarterManager", &found),
              S_OK);
    EXPECT_TRUE(found == refhost::kTreeExpanderClass);
}

TEST(NavigatorInAFile, bookmarks_and_options_last)
{
    const AllReleased released;
    const Folder folder;
    const auto file = folder.Path() / "plant.db";
    Lines content;
    {
        const auto plant = refhost::Plant::Open(file);
        plant->Add(L"project", L"P");
        for (const wchar_t* const name : {L"one", L"two \u00FC", L""})
            plant->AddBookmark(L"P", plant->Find(L"project", L"P"), name);
        plant->ShowProject(L"P", true);
        ComPtr<IQPFObject> object;
        ASSERT_EQ(plant->ObjectManager()->GetObject(kDataManagerClass, 1, object.put()), S_OK);
        ComPtr<IQPSessionDataManager> store;
        ASSERT_EQ(store.queryFrom(object.get()), S_OK);
        Value on(L"1");
        EXPECT_EQ(store->SetValue(Text(L"common"), Text(L"expandbrowser"), &on.get(), 4), S_OK);
        EXPECT_EQ(store->WriteStringList(Text(L"empty"), 0, nullptr, kBookmarks), S_OK);
        content = plant->StoreContent();
    }
    const auto plant = refhost::Plant::Open(file);
    EXPECT_EQ(plant->StoreContent(), content);
    const std::string id = Utf8FromWide(plant->IdOf(plant->Find(L"project", L"P")));
    const std::string browser = "2 QPR-Navigator/BrowserConfiguration1/";
    const std::string tree = "=BrowserTree:" + id + ";" + id + ";";
    EXPECT_EQ(content, (Lines{"2 empty:", browser + "gotoitemname/" + id + ": gotoitemname0=one",
                              browser + "gotoitemname/" + id + ": gotoitemname1=two \xC3\xBC",
                              browser + "gotoitemname/" + id + ": gotoitemname2=",
                              browser + "gotoitemtree/" + id + ": 0" + tree,
                              browser + "gotoitemtree/" + id + ": 1" + tree,
                              browser + "gotoitemtree/" + id + ": 2" + tree, "4 common: expandbrowser=1"}));
    plant->AddBookmark(L"P", plant->Find(L"project", L"P"), L"four");
    EXPECT_EQ(plant->StoreContent()[4], browser + "gotoitemname/" + id + ": gotoitemname3=four");
}
} // namespace
