// The object manager and the gateway to server-side objects.
#include "SearchSteps.h"

namespace
{
constexpr GUID kDataManagerClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};
constexpr GUID kGatewayClass = {0xD7C07373, 0x29C3, 0x43A4, {0x87, 0xCF, 0xF6, 0xD5, 0xE9, 0x47, 0xD6, 0xE6}};
constexpr GUID kQueryClass = {0xABF23E6F, 0x1714, 0x4A08, {0x85, 0xA3, 0x8E, 0x8A, 0x8D, 0xB5, 0x16, 0x6F}};
constexpr GUID kLoaderClass = {0x7B1C94E2, 0x60D8, 0x4F57, {0xA3, 0x29, 0xC5, 0x18, 0x4E, 0x93, 0x0D, 0x6F}};
constexpr GUID kExpanderClass = {
    0x1F86C03B, 0xE94D, 0x47A1, {0xB2, 0x7E, 0x60, 0x58, 0xAD, 0x13, 0xC9, 0xF4}};
constexpr GUID kUnknownClass = {0x12345678, 0x1714, 0x4A08, {0x85, 0xA3, 0x8E, 0x8A, 0x8D, 0xB5, 0x16, 0x6F}};

class ObjectManager : public SamplePlant
{
protected:
    HRESULT Get(const GUID& clsid, LONG create = 1)
    {
        return manager->GetObject(clsid, create, object.put());
    }

    ComPtr<IQPIPDClient> Gateway()
    {
        ComPtr<IQPIPDClient> gateway;
        EXPECT_EQ(Get(kGatewayClass), S_OK);
        EXPECT_EQ(gateway.queryFrom(object.get()), S_OK);
        return gateway;
    }

    const ComPtr<IQPFObjectManager> manager = plant->ObjectManager();
    ComPtr<IQPFObject> object;
};

TEST_F(ObjectManager, gives_the_settings_service)
{
    ASSERT_EQ(Get(kDataManagerClass), S_OK);
    ComPtr<IQPSessionDataManager> store;
    ASSERT_EQ(store.queryFrom(object.get()), S_OK);
    Value value;
    EXPECT_EQ(store->GetValue(Text(L"properties"), Text(L"enablemcmscriptactions"), VT_BOOL, &value.get(), 1),
              S_OK);
    EXPECT_EQ(value->boolVal, VARIANT_TRUE);
}

TEST_F(ObjectManager, gives_the_same_service_again)
{
    for (const GUID& clsid : {kDataManagerClass, kGatewayClass, kLoaderClass, kExpanderClass})
    {
        ASSERT_EQ(Get(clsid), S_OK);
        const ComPtr<IQPFObject> first = object;
        ASSERT_EQ(Get(clsid), S_OK);
        EXPECT_EQ(object.get(), first.get());
    }
}

TEST_F(ObjectManager, creates_a_service_only_on_request)
{
    EXPECT_EQ(Get(kDataManagerClass, 0), S_FALSE);
    EXPECT_FALSE(object);
    EXPECT_EQ(Get(kDataManagerClass, 1), S_OK);
    EXPECT_EQ(Get(kDataManagerClass, 0), S_OK);
    EXPECT_TRUE(object);
}

TEST_F(ObjectManager, refuses_any_other_class)
{
    EXPECT_EQ(Get(kUnknownClass), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_FALSE(object);
    EXPECT_EQ(manager->GetObject(kGatewayClass, 1, nullptr), E_POINTER);
}

TEST_F(ObjectManager, lists_no_service_as_a_running_object)
{
    ComPtr<IEnumQPFObject> objects;
    EXPECT_EQ(Get(kExpanderClass), S_OK);
    EXPECT_EQ(manager->GetRunningObjects(kExpanderClass, objects.put()), S_OK);
    ASSERT_TRUE(objects);
    EXPECT_EQ(objects->GetSingleNext(object.put()), S_FALSE);
    EXPECT_EQ(manager->GetRunningObjects(kUnknownClass, objects.put()), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_FALSE(objects);
}

TEST_F(ObjectManager, the_gateway_gives_the_query_object)
{
    const ComPtr<IQPIPDClient> gateway = Gateway();
    LONG client = 0;
    ASSERT_EQ(gateway->GetClientIdByName(Text(L"XBookmarkManager"), &client), S_OK);
    ComPtr<IQP_Query> query;
    ASSERT_EQ(gateway->GetServerCOMObject(client, kQueryClass, __uuidof(IQP_Query), query.putVoid()), S_OK);
    ASSERT_EQ(query->SetSearchTable(Text(L"project")), S_OK);
    ComPtr<IEnumBaseDataObject> found;
    EXPECT_EQ(query->GetSearchResult(found.put()), S_OK);
    EXPECT_EQ(NamesOf(found.get()).size(), 4U);
}

TEST_F(ObjectManager, clients_are_numbered_by_name)
{
    const ComPtr<IQPIPDClient> gateway = Gateway();
    LONG first = 0;
    LONG second = 0;
    LONG again = 0;
    EXPECT_EQ(gateway->GetClientIdByName(Text(L"XBookmarkManager"), &first), S_OK);
    EXPECT_EQ(gateway->GetClientIdByName(Text(L"XOpenBookmarkDlg"), &second), S_OK);
    EXPECT_EQ(gateway->GetClientIdByName(Text(L"XBookmarkManager"), &again), S_OK);
    EXPECT_GT(first, 0);
    EXPECT_NE(second, first);
    EXPECT_EQ(again, first);
    EXPECT_EQ(gateway->GetClientIdByName(nullptr, &again), E_INVALIDARG);
    EXPECT_EQ(again, 0);
    EXPECT_EQ(gateway->GetClientIdByName(Text(L""), &again), E_INVALIDARG);
    EXPECT_EQ(gateway->GetClientIdByName(Text(L"X"), nullptr), E_POINTER);
}

TEST_F(ObjectManager, the_gateway_needs_a_known_client_and_class)
{
    const ComPtr<IQPIPDClient> gateway = Gateway();
    LONG client = 0;
    ASSERT_EQ(gateway->GetClientIdByName(Text(L"me"), &client), S_OK);
    ComPtr<IQP_Query> query;
    for (const LONG other : {LONG{0}, LONG{-1}, client + 1})
        EXPECT_EQ(gateway->GetServerCOMObject(other, kQueryClass, __uuidof(IQP_Query), query.putVoid()),
                  E_INVALIDARG);
    EXPECT_EQ(gateway->GetServerCOMObject(client, kUnknownClass, __uuidof(IQP_Query), query.putVoid()),
              CLASS_E_CLASSNOTAVAILABLE);
    ComPtr<IQPIPDClient> other;
    EXPECT_EQ(gateway->GetServerCOMObject(client, kQueryClass, __uuidof(IQPIPDClient), other.putVoid()),
              E_NOINTERFACE);
    EXPECT_FALSE(query);
    EXPECT_FALSE(other);
    EXPECT_EQ(gateway->GetServerCOMObject(client, kQueryClass, __uuidof(IQP_Query), nullptr), E_POINTER);
    EXPECT_EQ(gateway->Reserved1(), E_NOTIMPL);
}

TEST_F(ObjectManager, its_calls_pass_the_gate)
{
    plant->Calls().Record(true);
    const ComPtr<IQPIPDClient> gateway = Gateway();
    LONG client = 0;
    gateway->GetClientIdByName(Text(L"me"), &client);
    ComPtr<IQP_Query> query;
    gateway->GetServerCOMObject(client, kQueryClass, __uuidof(IQP_Query), query.putVoid());
    EXPECT_EQ(plant->Calls().Calls(),
              (Lines{
                  "IQPFObjectManager::GetObject({D7C07373-29C3-43A4-87CF-F6D5E947D6E6}, 1)",
                  "IQPIPDClient::GetClientIdByName(\"me\")",
                  "IQPIPDClient::GetServerCOMObject(1, {ABF23E6F-1714-4A08-85A3-8E8A8DB5166F}, "
                  "{CDB6FD2E-17F3-40AF-9051-68983F77DBE2})",
              }));
    plant->Calls().Clear();
    plant->Calls().FailCall(1, refhost::Fault::NullObject);
    EXPECT_EQ(Get(kGatewayClass), S_OK);
    EXPECT_FALSE(object);
}
} // namespace
