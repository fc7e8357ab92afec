// Walking the result of a search.
#include "SearchSteps.h"

#include <array>

namespace
{
class Enumerator : public EmptyPlant
{
protected:
    Enumerator()
    {
        for (const wchar_t* name : {L"a", L"b", L"c", L"d", L"e"})
            plant->Add(L"script", name);
        Search search(*plant, L"script");
        EXPECT_EQ(search.Run(objects), S_OK);
    }

    HRESULT Next(ULONG wanted)
    {
        std::array<IQP_BaseDataObject*, 8> batch;
        batch.fill(reinterpret_cast<IQP_BaseDataObject*>(1));
        ULONG count = 77;
        const HRESULT status = objects->RemNext(wanted, batch.data(), &count);
        fetched.clear();
        for (ULONG i = 0; i < wanted; ++i)
        {
            EXPECT_EQ(batch[i] != nullptr, i < count) << i;
            if (!batch[i])
                continue;
            fetched.push_back(ReadText(batch[i], L"name"));
            batch[i]->Release();
        }
        EXPECT_EQ(count, fetched.size());
        return status;
    }

    ComPtr<IEnumBaseDataObject> objects;
    Names fetched;
};

TEST_F(Enumerator, delivers_as_many_as_wanted)
{
    EXPECT_EQ(Next(2), S_OK);
    EXPECT_EQ(fetched, (Names{L"a", L"b"}));
    EXPECT_EQ(Next(3), S_OK);
    EXPECT_EQ(fetched, (Names{L"c", L"d", L"e"}));
}

TEST_F(Enumerator, the_last_batch_is_short_and_s_false)
{
    EXPECT_EQ(Next(4), S_OK);
    EXPECT_EQ(Next(4), S_FALSE);
    EXPECT_EQ(fetched, (Names{L"e"}));
    EXPECT_EQ(Next(4), S_FALSE);
    EXPECT_TRUE(fetched.empty());
}

TEST_F(Enumerator, zero_wanted_is_zero_delivered)
{
    EXPECT_EQ(Next(0), S_OK);
    EXPECT_TRUE(fetched.empty());
    EXPECT_EQ(Next(1), S_OK);
    EXPECT_EQ(fetched, (Names{L"a"}));
}

TEST_F(Enumerator, one_at_a_time)
{
    ComPtr<IQP_BaseDataObject> object;
    for (const wchar_t* name : {L"a", L"b", L"c", L"d", L"e"})
    {
        ASSERT_EQ(objects->GetSingleNext(object.put()), S_OK);
        EXPECT_EQ(ReadText(object.get(), L"name"), name);
    }
    EXPECT_EQ(objects->GetSingleNext(object.put()), S_FALSE);
    EXPECT_FALSE(object);
}

TEST_F(Enumerator, skip_continues_and_reports_the_end)
{
    EXPECT_EQ(objects->Skip(3), S_OK);
    EXPECT_EQ(Next(1), S_OK);
    EXPECT_EQ(fetched, (Names{L"d"}));
    EXPECT_EQ(objects->Skip(0), S_OK);
    EXPECT_EQ(objects->Skip(2), S_FALSE);
    EXPECT_EQ(Next(1), S_FALSE);
}

TEST_F(Enumerator, reset_starts_again)
{
    EXPECT_EQ(Next(5), S_OK);
    EXPECT_EQ(objects->Reset(), S_OK);
    EXPECT_EQ(Next(2), S_OK);
    EXPECT_EQ(fetched, (Names{L"a", L"b"}));
}

TEST_F(Enumerator, a_clone_starts_at_the_position_of_its_source)
{
    EXPECT_EQ(objects->Skip(2), S_OK);
    ComPtr<IEnumBaseDataObject> clone;
    ASSERT_EQ(objects->Clone(clone.put()), S_OK);
    EXPECT_EQ(NamesOf(clone.get()), (Names{L"c", L"d", L"e"}));
    EXPECT_EQ(NamesOf(objects.get()), (Names{L"c", L"d", L"e"}));
    EXPECT_EQ(clone->Reset(), S_OK);
    EXPECT_EQ(NamesOf(clone.get()).size(), 5U);
}

TEST_F(Enumerator, missing_outputs_are_refused)
{
    ULONG count = 0;
    ComPtr<IQP_BaseDataObject> object;
    EXPECT_EQ(objects->RemNext(1, nullptr, &count), E_POINTER);
    EXPECT_EQ(objects->RemNext(1, object.put(), nullptr), E_POINTER);
    EXPECT_EQ(objects->GetSingleNext(nullptr), E_POINTER);
    EXPECT_EQ(objects->Clone(nullptr), E_POINTER);
    EXPECT_EQ(Next(5), S_OK);
}

TEST_F(Enumerator, objects_are_made_when_they_are_fetched)
{
    const long before = refhost::Plant::LiveObjects();
    {
        ComPtr<IQP_BaseDataObject> object;
        ASSERT_EQ(objects->GetSingleNext(object.put()), S_OK);
        EXPECT_EQ(refhost::Plant::LiveObjects(), before + 1);
    }
    EXPECT_EQ(refhost::Plant::LiveObjects(), before);
}

TEST_F(Enumerator, answers_the_two_interfaces_it_has)
{
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(unknown.queryFrom(objects.get()), S_OK);
    ComPtr<IEnumBaseDataObject> same;
    EXPECT_EQ(same.queryFrom(unknown.get()), S_OK);
    ComPtr<IQP_Query> other;
    EXPECT_EQ(other.queryFrom(objects.get()), E_NOINTERFACE);
    EXPECT_FALSE(other);
    EXPECT_EQ(objects->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}
} // namespace
