// The settings service created by its class identifier.
#include "PlantFixture.h"
#include "SettingsClass.h"

#include <objbase.h>

#include <optional>

namespace
{
constexpr GUID kSettingsClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};
/// In this process, its handlers, on this machine and on others.
constexpr DWORD kAnywhere = 0x17;

class Apartment
{
public:
    Apartment() { EXPECT_GE(CoInitialize(nullptr), 0); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

class CreatedSettings : public ::testing::Test
{
protected:
    HRESULT Create(REFIID iid, void** object)
    {
        return CoCreateInstance(kSettingsClass, nullptr, kAnywhere, iid, object);
    }

    const Apartment apartment;
    const AllReleased released;
    const std::unique_ptr<refhost::Plant> plant = refhost::Plant::OpenMemory();
};

TEST_F(CreatedSettings, answer_from_the_plant_while_the_class_is_offered)
{
    plant->Load(refhost::SampleFolder());
    std::optional<refhost::SettingsClass> offered;
    offered.emplace(*plant);
    ComPtr<IQPHostSettings> settings;
    ASSERT_EQ(Create(__uuidof(IQPHostSettings), settings.putVoid()), S_OK);
    Value value;
    EXPECT_EQ(
        settings->GetValue(Text(L"properties"), Text(L"enablemcmscriptactions"), VT_BOOL, &value.get(), 1),
        S_OK);
    EXPECT_EQ(value->boolVal, VARIANT_TRUE);
    EXPECT_EQ(plant->Calls().Count("IQPSessionDataManager::GetValue"), 1);
    offered.reset();
    ComPtr<IQPHostSettings> later;
    EXPECT_LT(Create(__uuidof(IQPHostSettings), later.putVoid()), 0);
    EXPECT_FALSE(later);
}

TEST_F(CreatedSettings, follow_the_plants_own_switch)
{
    const refhost::SettingsClass offered(*plant);
    ComPtr<IQPHostSettings> settings;
    ASSERT_EQ(Create(__uuidof(IQPHostSettings), settings.putVoid()), S_OK);
    for (const bool on : {true, false})
    {
        plant->SetSetting(L"properties", L"enablemcmscriptactions", on);
        Value value;
        EXPECT_EQ(settings->GetValue(Text(L"properties"), Text(L"enablemcmscriptactions"), VT_BOOL,
                                     &value.get(), 1),
                  S_OK);
        EXPECT_EQ(value->boolVal, on ? VARIANT_TRUE : VARIANT_FALSE);
    }
}

TEST_F(CreatedSettings, are_the_same_store_as_the_object_managers)
{
    const refhost::SettingsClass offered(*plant);
    ComPtr<IQPFObject> object;
    ASSERT_EQ(plant->ObjectManager()->GetObject(kSettingsClass, 1, object.put()), S_OK);
    ComPtr<IQPSessionDataManager> managed;
    ASSERT_EQ(managed.queryFrom(object.get()), S_OK);
    Value value(L"1");
    ASSERT_EQ(managed->SetValue(Text(L"k"), Text(L"v"), &value.get(), 4), S_OK);
    ComPtr<IQPHostSettings> created;
    ASSERT_EQ(Create(__uuidof(IQPHostSettings), created.putVoid()), S_OK);
    Value read;
    EXPECT_EQ(created->GetValue(Text(L"k"), Text(L"v"), VT_BSTR, &read.get(), 0), S_OK);
    EXPECT_STREQ(read->bstrVal, L"1");
}

TEST_F(CreatedSettings, offer_no_other_interface_and_no_aggregation)
{
    const refhost::SettingsClass offered(*plant);
    ComPtr<IQP_Query> other;
    EXPECT_EQ(Create(__uuidof(IQP_Query), other.putVoid()), E_NOINTERFACE);
    ComPtr<IUnknown> unknown;
    ASSERT_EQ(Create(IID_IUnknown, unknown.putVoid()), S_OK);
    ComPtr<IUnknown> inner;
    EXPECT_EQ(CoCreateInstance(kSettingsClass, unknown.get(), kAnywhere, IID_IUnknown, inner.putVoid()),
              CLASS_E_NOAGGREGATION);
    EXPECT_FALSE(inner);
}
} // namespace
