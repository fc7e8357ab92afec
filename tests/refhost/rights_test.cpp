// The user's rights on objects.
#include "PlantFixture.h"

#include <optional>

namespace
{
class Rights : public EmptyPlant
{
protected:
    HRESULT Has(const wchar_t* table, const wchar_t* name, int right)
    {
        const ComPtr<IQP_BaseDataObject> object = plant->Find(table, name);
        ComPtr<IQPObjectRights> rights;
        const HRESULT status = rights.queryFrom(object.get());
        return status < 0 ? status : rights->HasRight(static_cast<QPRightType>(right));
    }
};

TEST_F(Rights, a_new_object_may_be_used_in_every_way)
{
    plant->Add(L"script", L"S");
    for (int right = QPRT_read; right <= QPRT_remove_child; right *= 2)
        EXPECT_EQ(Has(L"script", L"S", right), S_OK) << right;
}

TEST_F(Rights, each_right_is_held_or_not_by_itself)
{
    plant->Add(L"script", L"S");
    plant->SetRights(L"script", L"S", QPRT_execute | QPRT_create);
    for (int right = QPRT_read; right <= QPRT_remove_child; right *= 2)
        EXPECT_EQ(Has(L"script", L"S", right), right == QPRT_execute || right == QPRT_create ? S_OK : S_FALSE)
            << right;
}

TEST_F(Rights, all_rights_of_a_mask_are_needed)
{
    plant->Add(L"script", L"S");
    plant->SetRights(L"script", L"S", QPRT_read | QPRT_execute);
    EXPECT_EQ(Has(L"script", L"S", QPRT_read | QPRT_execute), S_OK);
    EXPECT_EQ(Has(L"script", L"S", QPRT_read | QPRT_change), S_FALSE);
}

TEST_F(Rights, no_right_is_an_answer_but_no_service_is_none)
{
    plant->Add(L"scriptcommand", L"C");
    plant->SetRights(L"scriptcommand", L"C", 0);
    EXPECT_EQ(Has(L"scriptcommand", L"C", QPRT_execute), S_FALSE);
    plant->SetRights(L"scriptcommand", L"C", std::nullopt);
    EXPECT_EQ(Has(L"scriptcommand", L"C", QPRT_execute), E_NOINTERFACE);
    plant->SetRights(L"scriptcommand", L"C", QPRT_execute);
    EXPECT_EQ(Has(L"scriptcommand", L"C", QPRT_execute), S_OK);
}

TEST_F(Rights, kinds_with_and_without_a_rights_service)
{
    for (const wchar_t* table :
         {L"script", L"scriptaction", L"scriptcommand", L"plantype", L"plantypeset", L"project"})
    {
        plant->Add(table, L"X");
        EXPECT_EQ(Has(table, L"X", QPRT_execute), S_OK) << table;
    }
    plant->Add(L"configtype", L"X");
    EXPECT_EQ(Has(L"configtype", L"X", QPRT_execute), E_NOINTERFACE);
    EXPECT_EQ(Has(L"root", L"root", QPRT_execute), E_NOINTERFACE);
}

TEST_F(Rights, the_service_and_the_object_are_one)
{
    const ComPtr<IQP_BaseDataObject> object = plant->Add(L"script", L"S");
    ComPtr<IQPObjectRights> rights;
    ASSERT_EQ(rights.queryFrom(object.get()), S_OK);
    ComPtr<IUnknown> first;
    ComPtr<IUnknown> second;
    ASSERT_EQ(first.queryFrom(object.get()), S_OK);
    ASSERT_EQ(second.queryFrom(rights.get()), S_OK);
    EXPECT_EQ(first.get(), second.get());
    ComPtr<IQP_BaseDataObject> back;
    EXPECT_EQ(back.queryFrom(rights.get()), S_OK);
    EXPECT_EQ(back.get(), object.get());
}

TEST_F(Rights, querying_the_service_is_no_host_call_but_the_right_is_one)
{
    const ComPtr<IQP_BaseDataObject> object = plant->Add(L"script", L"S");
    plant->Calls().Clear();
    ComPtr<IQPObjectRights> rights;
    ASSERT_EQ(rights.queryFrom(object.get()), S_OK);
    EXPECT_EQ(plant->Calls().Count(), 0);
    EXPECT_EQ(rights->HasRight(QPRT_execute), S_OK);
    EXPECT_EQ(plant->Calls().Count("IQPObjectRights::HasRight"), 1);
}

TEST_F(Rights, an_object_that_is_not_there_has_no_rights_to_set)
{
    EXPECT_THROW(plant->SetRights(L"script", L"nobody", 4), refhost::PlantError);
}
} // namespace
