// What a host in memory offers for bookmarks: the gateway, objects by identifier, running views, the tree
// expander and the calls that differ.
#include "MemoryHost.h"
#include "RegisteredProgId.h"
#include "Untouched.h"

#include <gtest/gtest.h>

#include <objbase.h>

namespace
{
using Lines = std::vector<std::string>;

constexpr CLSID kStoreClass = {0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};
constexpr CLSID kGatewayClass = {
    0xD7C07373, 0x29C3, 0x43A4, {0x87, 0xCF, 0xF6, 0xD5, 0xE9, 0x47, 0xD6, 0xE6}};
constexpr CLSID kQueryClass = {0xABF23E6F, 0x1714, 0x4A08, {0x85, 0xA3, 0x8E, 0x8A, 0x8D, 0xB5, 0x16, 0x6F}};

class MemoryBookmarks : public ::testing::Test
{
protected:
    /// The class's object with that interface; null if it has none.
    template <class Interface>
    ComPtr<Interface> Get(REFCLSID clsid)
    {
        ComPtr<IQPFObject> object;
        EXPECT_EQ(host.Manager().GetObject(clsid, 1, object.put()), S_OK);
        ComPtr<Interface> found;
        found.queryFrom(object.get());
        return found;
    }

    HRESULT GetQuery(LONG client, ComPtr<IQP_Query>& query)
    {
        return Get<IQPIPDClient>(kGatewayClass)
            ->GetServerCOMObject(client, kQueryClass, __uuidof(IQP_Query), query.putVoid());
    }

    /// "status object" of an identifier.
    std::string ObjectOf(const wchar_t* id)
    {
        ComPtr<IUnknown> object;
        const HRESULT status = host.Query().GetObjectById(XQPComBSTR(id), object.put());
        ComPtr<IQP_BaseDataObject> data;
        data.queryFrom(object.get());
        XQPComVariant name;
        if (data)
            data->GetAttribute(XQPComBSTR(L"name"), &name);
        return std::to_string(status) + (!object ? " null" : !data ? " no data" : " " + Name(name));
    }

    static std::string Name(XQPComVariant& name) { return Utf8Of(XQPComBSTR(name.GetString())); }

    MemoryHost host;
};

TEST_F(MemoryBookmarks, the_manager_knows_the_services_by_class)
{
    EXPECT_EQ(Get<IQPSessionDataManager>(kStoreClass).get(), &host.Store());
    EXPECT_EQ(Get<IQPIPDClient>(kGatewayClass).get(), &host.Gateway());
    EXPECT_EQ(Get<IQPBrowserTreeExpander>(MemoryExpander::kClass).get(), &host.Expander());
    EXPECT_TRUE(Get<IQPExplorerView>(MemoryExpander::kClass));
    EXPECT_TRUE(Get<IVBALoaderManager>(CLSID{}));
    EXPECT_EQ(host.Store().References() + host.Gateway().References() + host.Expander().References() +
                  host.Query().References(),
              0U);
}

TEST_F(MemoryBookmarks, a_service_without_its_interface)
{
    host.Store().offersStore = false;
    host.Gateway().offersGateway = false;
    host.Expander().offersExpander = false;
    EXPECT_FALSE(Get<IQPSessionDataManager>(kStoreClass));
    EXPECT_FALSE(Get<IQPIPDClient>(kGatewayClass));
    EXPECT_FALSE(Get<IQPBrowserTreeExpander>(MemoryExpander::kClass));
    EXPECT_TRUE(Get<IQPExplorerView>(MemoryExpander::kClass));
    host.Expander().offersView = false;
    EXPECT_FALSE(Get<IQPExplorerView>(MemoryExpander::kClass));
}

TEST_F(MemoryBookmarks, a_class_answers_what_was_set)
{
    ComPtr<IQPFObject> object;
    host.Manager().Set(kStoreClass, nullptr)->Set(kGatewayClass, &host.Store(), E_ACCESSDENIED);
    EXPECT_EQ(host.Manager().GetObject(kStoreClass, 1, object.put()), S_OK);
    EXPECT_FALSE(object);
    EXPECT_EQ(host.Manager().GetObject(kGatewayClass, 1, object.put()), E_ACCESSDENIED);
    EXPECT_EQ(object.get(), static_cast<IQPFObject*>(&host.Store()));
}

TEST_F(MemoryBookmarks, the_gateway_gives_the_query)
{
    const ComPtr<IQPIPDClient> gateway = Get<IQPIPDClient>(kGatewayClass);
    LONG client = 0;
    EXPECT_EQ(gateway->GetClientIdByName(XQPComBSTR(L"XBookmarkManager"), &client), S_OK);
    EXPECT_EQ(client, 1);
    host.calls.clear();
    ComPtr<IQP_Query> query;
    EXPECT_EQ(gateway->GetServerCOMObject(client, kQueryClass, __uuidof(IQP_Query), query.putVoid()), S_OK);
    EXPECT_EQ(query.get(), &host.Query());
    EXPECT_EQ(host.calls, Lines{"gateway.GetServerCOMObject(1, {ABF23E6F-1714-4A08-85A3-8E8A8DB5166F}, "
                                "IQP_Query)"});
    host.Gateway().object.queryFrom(&host.Config());
    EXPECT_EQ(GetQuery(1, query), E_NOINTERFACE);
    EXPECT_FALSE(query);
}

TEST_F(MemoryBookmarks, single_calls_of_the_gateway_differ)
{
    host.Gateway().script.Set("GetClientIdByName", 1, Failed(E_ACCESSDENIED));
    host.Gateway().script.Set("GetServerCOMObject", 0, {.givesNull = true});
    host.Gateway().script.Set("", 3, Failed());
    const ComPtr<IQPIPDClient> gateway = Get<IQPIPDClient>(kGatewayClass);
    LONG client = 7;
    EXPECT_EQ(gateway->GetClientIdByName(nullptr, &client), S_OK);
    client = 7;
    EXPECT_EQ(gateway->GetClientIdByName(nullptr, &client), E_ACCESSDENIED);
    EXPECT_EQ(client, 7) << "a failed call leaves its outputs";
    ComPtr<IQP_Query> query;
    EXPECT_EQ(GetQuery(1, query), S_OK);
    EXPECT_FALSE(query);
    EXPECT_EQ(GetQuery(1, query), E_FAIL) << "the fourth call of all";
    EXPECT_EQ(GetQuery(1, query), S_OK);
    EXPECT_TRUE(query);
    EXPECT_EQ(host.Gateway().script.Count("GetServerCOMObject"), 3U);
    host.Gateway().script.Clear();
    EXPECT_EQ(gateway->GetClientIdByName(nullptr, &client), S_OK);
    EXPECT_EQ(gateway->GetClientIdByName(nullptr, &client), S_OK);
}

TEST_F(MemoryBookmarks, an_object_is_found_by_its_identifier)
{
    host.Known(L"$12)", L"Line 3");
    host.Named(L"another");
    for (const wchar_t* const id : {L"$12)", L"$12);", L"$12", L"$12;)", L"$12);$7)"})
        EXPECT_EQ(ObjectOf(id), "0 Line 3");
    for (const wchar_t* const id : {L"$13)", L"$1)", L"$123)", L"", L")"})
        EXPECT_EQ(ObjectOf(id), "1 null");
    host.calls.clear();
    ObjectOf(L"$12);");
    EXPECT_EQ(host.calls.front(), "GetObjectById($12);)");
}

TEST_F(MemoryBookmarks, an_object_that_is_gone_or_no_data_object)
{
    const ComPtr<MemoryObject> object = host.Known(L"$12)", L"Line 3");
    host.Query().Set(L"$12)", object, S_FALSE)->Set(L"$13)", nullptr, S_OK)->Set(L"$14)", nullptr, E_FAIL);
    host.Known(L"$15)", L"no data")->offersData = false;
    EXPECT_EQ(ObjectOf(L"$12)"), "1 Line 3");
    EXPECT_EQ(ObjectOf(L"$13)"), "0 null");
    EXPECT_EQ(ObjectOf(L"$14)"), std::to_string(E_FAIL) + " null");
    EXPECT_EQ(ObjectOf(L"$15)"), "0 no data");
    host.Query().script.Set("GetObjectById", 4, {.givesNull = true});
    host.Query().script.Set("GetObjectById", 5, Failed());
    EXPECT_EQ(ObjectOf(L"$12)"), "1 null");
    EXPECT_EQ(ObjectOf(L"$12)"), std::to_string(E_FAIL) + " null");
    EXPECT_EQ(ObjectOf(L"$12)"), "1 Line 3");
}

TEST_F(MemoryBookmarks, views_are_listed_from_the_first)
{
    const ComPtr<MemoryView> first = host.View("first");
    const ComPtr<MemoryView> last = host.View("last");
    last->Show(L"$7)")->Show(L"$8)", E_FAIL);
    host.Views({first, nullptr, last});
    for (int round = 0; round < 2; ++round)
    {
        ComPtr<IEnumQPFObject> views;
        ASSERT_EQ(host.Manager().GetRunningObjects(MemoryView::kClass, views.put()), S_OK);
        std::string shown;
        ComPtr<IQPFObject> object;
        ULONG fetched = 0;
        while (views->RemNext(1, object.put(), &fetched) == S_OK)
        {
            ComPtr<IQPExplorerView> view;
            view.queryFrom(object.get());
            shown += !view ? "-" : view->IsProjectShown(XQPComBSTR(L"$7)")) == S_OK ? "x" : "o";
        }
        EXPECT_EQ(shown, "o-x");
    }
    EXPECT_EQ(last->IsProjectShown(XQPComBSTR(L"$8)")), E_FAIL);
    EXPECT_EQ(host.calls.back(), "last.IsProjectShown($8))");
    last->offersView = false;
    ComPtr<IQPExplorerView> view;
    EXPECT_EQ(view.queryFrom(static_cast<IQPFObject*>(last.get())), E_NOINTERFACE);
}

TEST_F(MemoryBookmarks, running_objects_answer_what_was_set)
{
    ComPtr<IEnumQPFObject> views;
    EXPECT_EQ(host.Manager().GetRunningObjects(MemoryView::kClass, views.put()), E_NOTIMPL);
    const ComPtr<MemoryRunning> list = host.Views({});
    host.Manager().Running(MemoryView::kClass, list, S_FALSE);
    EXPECT_EQ(host.Manager().GetRunningObjects(MemoryView::kClass, views.put()), S_FALSE);
    EXPECT_EQ(views.get(), list.get());
    EXPECT_EQ(host.Manager().GetRunningObjects(MemoryExpander::kClass, views.put()), E_NOTIMPL);
    host.Manager().Running(MemoryView::kClass, nullptr);
    EXPECT_EQ(host.Manager().GetRunningObjects(MemoryView::kClass, views.put()), S_OK);
    EXPECT_FALSE(views);
}

TEST_F(MemoryBookmarks, the_expander_calls_back_while_it_expands)
{
    const ComPtr<IQPBrowserTreeExpander> expander = Get<IQPBrowserTreeExpander>(MemoryExpander::kClass);
    host.Store().Set(4, L"common", L"expandbrowser", L"1");
    Lines during;
    host.Expander().onExpand = [&] {
        during = host.Store().Content();
    };
    host.Expander().status = E_ABORT;
    EXPECT_EQ(expander->ExpandTree(XQPComBSTR(MemoryHost::TreeString(L"$12)").c_str()), XQPComBSTR(L"$7)")),
              E_ABORT);
    EXPECT_EQ(during, Lines{"4 common: expandbrowser=1"});
    EXPECT_EQ(host.calls.back(), "expander.ExpandTree(BrowserTree:$12);, $7))");
}

TEST_F(MemoryBookmarks, a_tree_string_has_the_identifier_at_12)
{
    EXPECT_EQ(MemoryHost::TreeString(L"$12)").substr(12), L"$12);");
}

TEST_F(MemoryBookmarks, both_prog_ids_can_be_registered_at_once)
{
    const RegisteredProgId view(MemoryView::kProgId, MemoryView::kClass);
    const RegisteredProgId expander(MemoryExpander::kProgId, MemoryExpander::kClass);
    CLSID found{};
    EXPECT_EQ(CLSIDFromProgID(MemoryView::kProgId, &found), S_OK);
    EXPECT_TRUE(found == MemoryView::kClass);
    EXPECT_EQ(CLSIDFromProgID(MemoryExpander::kProgId, &found), S_OK);
    EXPECT_TRUE(found == MemoryExpander::kClass);
}
} // namespace
