// The key store: scopes, keys, typed values and lists.
#include "PlantFixture.h"

#include <memory>
#include <utility>

namespace
{
using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

constexpr GUID kDataManagerClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};

class KeyStore : public EmptyPlant
{
protected:
    KeyStore()
    {
        ComPtr<IQPFObject> object;
        EXPECT_EQ(plant->ObjectManager()->GetObject(kDataManagerClass, 1, object.put()), S_OK);
        EXPECT_EQ(store.queryFrom(object.get()), S_OK);
    }

    void Set(const wchar_t* key, const wchar_t* name, const Value& value, LONG scope)
    {
        EXPECT_EQ(store->SetValue(Text(key), Text(name), const_cast<VARIANT*>(&value.get()), scope), S_OK);
    }

    /// The value as text; "<none>" if there is none.
    std::wstring Get(const wchar_t* key, const wchar_t* name, LONG scope)
    {
        Value value;
        const HRESULT status = store->GetValue(Text(key), Text(name), VT_BSTR, &value.get(), scope);
        EXPECT_GE(status, 0);
        EXPECT_EQ(value->vt, status == S_OK ? VT_BSTR : VT_EMPTY);
        return status == S_OK ? value->bstrVal : L"<none>";
    }

    Names SubKeys(const wchar_t* key, LONG scope, HRESULT expected = S_OK)
    {
        ULONG count = 99;
        BSTR* keys = nullptr;
        EXPECT_EQ(store->GetSubKeys(Text(key), 1, &count, &keys, scope), expected);
        EXPECT_EQ(keys != nullptr, expected == S_OK);
        return Names(keys, keys + count);
    }

    Pairs List(const wchar_t* key, LONG scope, HRESULT expected = S_OK)
    {
        ULONG count = 99;
        tagSTRINGPAIR* list = nullptr;
        EXPECT_EQ(store->GetStringList(Text(key), &count, &list, scope), expected);
        EXPECT_EQ(list != nullptr, expected == S_OK);
        Pairs pairs;
        for (ULONG i = 0; i < count; ++i)
            pairs.emplace_back(list[i].bstrName, list[i].bstrValue);
        return pairs;
    }

    ComPtr<IQPSessionDataManager> store;
};

TEST_F(KeyStore, a_value_is_read_back)
{
    Set(L"a/b", L"v", Value(L"text \u00FC"), 1);
    EXPECT_EQ(Get(L"a/b", L"v", 1), L"text \u00FC");
    Set(L"a/b", L"v", Value(L"other"), 1);
    EXPECT_EQ(Get(L"a/b", L"v", 1), L"other");
}

TEST_F(KeyStore, a_value_that_is_not_there_is_s_false_and_empty)
{
    Set(L"a/b", L"v", Value(L"x"), 1);
    EXPECT_EQ(Get(L"a/b", L"w", 1), L"<none>");
    EXPECT_EQ(Get(L"a", L"v", 1), L"<none>");
    Value old(L"old");
    EXPECT_EQ(store->GetValue(Text(L"a"), Text(L"v"), VT_BSTR, &old.get(), 1), S_FALSE);
    EXPECT_EQ(old->vt, VT_EMPTY) << "what the caller's variant held is freed";
}

TEST_F(KeyStore, scopes_are_stores_of_their_own)
{
    for (LONG scope = 1; scope <= 4; ++scope)
        Set(L"k", L"v", Value((L"s" + std::to_wstring(scope)).c_str()), scope);
    for (LONG scope = 1; scope <= 4; ++scope)
        EXPECT_EQ(Get(L"k", L"v", scope), L"s" + std::to_wstring(scope));
    EXPECT_EQ(Get(L"k", L"v", 5), L"<none>");
}

TEST_F(KeyStore, scope_0_reads_what_scope_4_wrote)
{
    Set(L"k", L"v", Value(L"user"), 4);
    EXPECT_EQ(Get(L"k", L"v", 0), L"user");
    EXPECT_EQ(SubKeys(L"", 0), (Names{L"k"}));
    EXPECT_EQ(List(L"k", 0), (Pairs{{L"v", L"user"}}));
    Set(L"k", L"own", Value(L"zero"), 0);
    EXPECT_EQ(Get(L"k", L"own", 0), L"zero");
    EXPECT_EQ(Get(L"k", L"own", 4), L"<none>") << "not the other way round";
    Set(L"k", L"v", Value(L"zero"), 0);
    EXPECT_EQ(Get(L"k", L"v", 0), L"user") << "what the user wrote counts first";
}

TEST_F(KeyStore, scope_0_reads_no_other_scope)
{
    for (const LONG scope : {1, 2, 3})
        Set(L"k", L"v", Value(L"x"), scope);
    EXPECT_EQ(Get(L"k", L"v", 0), L"<none>");
}

TEST_F(KeyStore, keys_and_names_compare_without_regard_to_case)
{
    Set(L"Nav/GotoItemTree/$12)", L"Name", Value(L"x"), 2);
    EXPECT_EQ(Get(L"nav/gotoitemtree/$12)", L"nAME", 2), L"x");
    Set(L"NAV/gotoitemtree/$12)", L"name", Value(L"y"), 2);
    EXPECT_EQ(Get(L"Nav/GotoItemTree/$12)", L"Name", 2), L"y");
    EXPECT_EQ(SubKeys(L"nav", 2).size(), 1U);
    EXPECT_EQ(store->DeleteKey(Text(L"NAV/GOTOITEMTREE/$12)"), 2), S_OK);
    EXPECT_EQ(Get(L"Nav/GotoItemTree/$12)", L"Name", 2), L"<none>");
}

TEST_F(KeyStore, slashes_at_the_ends_do_not_count)
{
    Set(L"/a/b/", L"v", Value(L"x"), 2);
    EXPECT_EQ(Get(L"a/b", L"v", 2), L"x");
    EXPECT_EQ(SubKeys(L"a/", 2), (Names{L"b"}));
}

TEST_F(KeyStore, a_value_is_delivered_in_the_type_asked_for)
{
    Set(L"k", L"text", Value(L"1"), 1);
    Set(L"k", L"zero", Value(L"0"), 1);
    Set(L"k", L"flag", Value(true), 1);
    Set(L"k", L"number", Value(25), 1);
    const auto as = [&](const wchar_t* name, VARTYPE type) {
        auto value = std::make_unique<Value>();
        EXPECT_EQ(store->GetValue(Text(L"k"), Text(name), type, &value->get(), 1), S_OK) << name;
        return value;
    };
    EXPECT_EQ((*as(L"text", VT_BOOL))->boolVal, VARIANT_TRUE);
    EXPECT_EQ((*as(L"zero", VT_BOOL))->boolVal, VARIANT_FALSE);
    EXPECT_EQ((*as(L"flag", VT_BOOL))->boolVal, VARIANT_TRUE);
    EXPECT_EQ((*as(L"text", VT_I4))->lVal, 1);
    EXPECT_EQ((*as(L"number", VT_I4))->lVal, 25);
    EXPECT_STREQ((*as(L"number", VT_BSTR))->bstrVal, L"25");
    EXPECT_EQ((*as(L"flag", VT_EMPTY))->vt, VT_BOOL) << "as it was written";
    EXPECT_EQ((*as(L"number", VT_EMPTY))->vt, VT_I4);
    EXPECT_EQ((*as(L"text", VT_EMPTY))->vt, VT_BSTR);
}

TEST_F(KeyStore, a_value_that_cannot_be_converted_fails)
{
    Set(L"k", L"v", Value(L"grey"), 1);
    Value value;
    EXPECT_LT(store->GetValue(Text(L"k"), Text(L"v"), VT_I4, &value.get(), 1), 0);
    EXPECT_EQ(value->vt, VT_EMPTY);
    EXPECT_EQ(store->GetValue(Text(L"k"), Text(L"v"), VT_BSTR, nullptr, 1), E_POINTER);
    EXPECT_EQ(store->SetValue(Text(L"k"), Text(L"v"), nullptr, 1), E_POINTER);
}

TEST_F(KeyStore, other_values_are_stored_as_text)
{
    Value number;
    number->vt = VT_R8;
    number->dblVal = 3;
    Set(L"k", L"v", number, 1);
    EXPECT_EQ(Get(L"k", L"v", 1), L"3");
}

TEST_F(KeyStore, sub_keys_are_the_direct_names_in_order_of_creation)
{
    Set(L"n/b/deep/er", L"v", Value(L"x"), 2);
    Set(L"n/a", L"v", Value(L"x"), 2);
    Set(L"n/B/other", L"v", Value(L"x"), 2);
    Set(L"nb/c", L"v", Value(L"x"), 2);
    Set(L"n/%_", L"v", Value(L"x"), 2);
    EXPECT_EQ(SubKeys(L"n", 2), (Names{L"b", L"a", L"%_"}));
    EXPECT_EQ(SubKeys(L"n/b/deep", 2), (Names{L"er"}));
    EXPECT_EQ(SubKeys(L"n/a", 2), Names{});
    EXPECT_EQ(SubKeys(L"", 2), (Names{L"n", L"nb"}));
}

TEST_F(KeyStore, a_key_that_is_not_there_has_neither_sub_keys_nor_list)
{
    Set(L"n/a", L"v", Value(L"x"), 2);
    EXPECT_EQ(SubKeys(L"m", 2, S_FALSE), Names{});
    EXPECT_EQ(SubKeys(L"n", 3, S_FALSE), Names{});
    EXPECT_EQ(List(L"m", 2, S_FALSE), Pairs{});
    EXPECT_EQ(List(L"n", 2), Pairs{}) << "a key without values of its own";
}

TEST_F(KeyStore, a_list_is_read_back_in_its_order)
{
    const Text names[] = {L"n1", L"n0", L"n2"};
    const Text values[] = {L"one", L"", L"two"};
    tagSTRINGPAIR pairs[] = {{names[0], values[0]}, {names[1], values[1]}, {names[2], values[2]}};
    EXPECT_EQ(store->WriteStringList(Text(L"k"), 3, pairs, 2), S_OK);
    EXPECT_EQ(List(L"k", 2), (Pairs{{L"n1", L"one"}, {L"n0", L""}, {L"n2", L"two"}}));
    EXPECT_EQ(Get(L"k", L"n2", 2), L"two");
}

TEST_F(KeyStore, writing_a_list_replaces_the_values_and_keeps_the_sub_keys)
{
    Set(L"k", L"old", Value(L"x"), 2);
    Set(L"k/sub", L"v", Value(L"x"), 2);
    const Text name = L"new";
    tagSTRINGPAIR pair = {name, nullptr};
    EXPECT_EQ(store->WriteStringList(Text(L"k"), 1, &pair, 2), S_OK);
    EXPECT_EQ(List(L"k", 2), (Pairs{{L"new", L""}}));
    EXPECT_EQ(SubKeys(L"k", 2), (Names{L"sub"}));
    EXPECT_EQ(store->WriteStringList(Text(L"k"), 0, nullptr, 2), S_OK);
    EXPECT_EQ(List(L"k", 2), Pairs{});
    EXPECT_EQ(store->WriteStringList(Text(L"fresh"), 0, nullptr, 2), S_OK);
    EXPECT_EQ(List(L"fresh", 2), Pairs{}) << "the key is there";
    EXPECT_EQ(store->WriteStringList(Text(L"k"), 1, nullptr, 2), E_POINTER);
}

TEST_F(KeyStore, the_pointers_of_a_list_may_be_exchanged_and_written_back)
{
    Set(L"k", L"0", Value(L"zero"), 2);
    Set(L"k", L"1", Value(L"one"), 2);
    ULONG count = 0;
    tagSTRINGPAIR* list = nullptr;
    ASSERT_EQ(store->GetStringList(Text(L"k"), &count, &list, 2), S_OK);
    ASSERT_EQ(count, 2U);
    const Text mine = L"mine";
    list[0].bstrValue = list[1].bstrValue;
    list[1].bstrValue = mine;
    EXPECT_EQ(store->DeleteKey(Text(L"k"), 2), S_OK);
    EXPECT_EQ(store->WriteStringList(Text(L"k"), count, list, 2), S_OK);
    EXPECT_EQ(List(L"k", 2), (Pairs{{L"0", L"one"}, {L"1", L"mine"}}));
}

TEST_F(KeyStore, a_list_is_valid_after_its_key_is_deleted)
{
    Set(L"k/sub", L"v", Value(L"kept"), 2);
    ULONG count = 0;
    tagSTRINGPAIR* list = nullptr;
    BSTR* keys = nullptr;
    ASSERT_EQ(store->GetStringList(Text(L"k/sub"), &count, &list, 2), S_OK);
    ASSERT_EQ(store->GetSubKeys(Text(L"k"), 1, &count, &keys, 2), S_OK);
    EXPECT_EQ(store->DeleteKey(Text(L"k"), 2), S_OK);
    for (int more = 0; more < 100; ++more)
    {
        Set((L"k/" + std::to_wstring(more)).c_str(), L"v", Value(L"other"), 2);
        SubKeys(L"k", 2);
        List(L"k/0", 2);
    }
    EXPECT_STREQ(list->bstrName, L"v");
    EXPECT_STREQ(list->bstrValue, L"kept");
    EXPECT_STREQ(*keys, L"sub");
}

TEST_F(KeyStore, its_content_is_told_line_by_line)
{
    EXPECT_EQ(plant->StoreContent(), Lines{});
    Set(L"b/x", L"two", Value(2), 2);
    Set(L"b/x", L"", Value(L"nameless"), 2);
    Set(L"A", L"v", Value(L"a"), 2);
    Set(L"z", L"v", Value(true), 1);
    EXPECT_EQ(store->WriteStringList(Text(L"empty"), 0, nullptr, 2), S_OK);
    EXPECT_EQ(plant->StoreContent(),
              (Lines{"1 z: v=1", "2 A: v=a", "2 b/x: two=2", "2 b/x: =nameless", "2 empty:"}));
}

TEST_F(KeyStore, a_key_is_deleted_with_all_below_it_in_its_scope_alone)
{
    Set(L"k", L"v", Value(L"x"), 2);
    Set(L"k/sub/deep", L"v", Value(L"x"), 2);
    Set(L"kk", L"v", Value(L"x"), 2);
    Set(L"k", L"v", Value(L"x"), 3);
    EXPECT_EQ(store->DeleteKey(Text(L"k"), 2), S_OK);
    EXPECT_EQ(Get(L"k", L"v", 2), L"<none>");
    EXPECT_EQ(Get(L"k/sub/deep", L"v", 2), L"<none>");
    EXPECT_EQ(Get(L"kk", L"v", 2), L"x");
    EXPECT_EQ(Get(L"k", L"v", 3), L"x");
    EXPECT_EQ(store->DeleteKey(Text(L"k"), 2), S_FALSE);
}

TEST_F(KeyStore, deleting_in_scope_0_leaves_what_scope_4_wrote)
{
    Set(L"k", L"v", Value(L"x"), 4);
    EXPECT_EQ(store->DeleteKey(Text(L"k"), 0), S_FALSE);
    EXPECT_EQ(Get(L"k", L"v", 0), L"x");
}

TEST_F(KeyStore, a_scope_needs_no_preparing)
{
    for (LONG scope = 0; scope <= 4; ++scope)
        EXPECT_EQ(store->PrepareScope(scope), S_OK);
}

TEST_F(KeyStore, missing_outputs_are_refused)
{
    ULONG count = 0;
    BSTR* keys = nullptr;
    tagSTRINGPAIR* list = nullptr;
    EXPECT_EQ(store->GetSubKeys(Text(L"k"), 1, nullptr, &keys, 2), E_POINTER);
    EXPECT_EQ(store->GetSubKeys(Text(L"k"), 1, &count, nullptr, 2), E_POINTER);
    EXPECT_EQ(store->GetStringList(Text(L"k"), nullptr, &list, 2), E_POINTER);
    EXPECT_EQ(store->GetStringList(Text(L"k"), &count, nullptr, 2), E_POINTER);
}

TEST_F(KeyStore, the_reserved_entries_do_nothing)
{
    EXPECT_EQ(store->Reserved1(), E_NOTIMPL);
    EXPECT_EQ(store->Reserved2(), E_NOTIMPL);
    EXPECT_EQ(store->Reserved3(), E_NOTIMPL);
    EXPECT_EQ(store->Reserved4(), E_NOTIMPL);
    EXPECT_EQ(store->Reserved5(), E_NOTIMPL);
}

TEST_F(KeyStore, its_calls_pass_the_gate)
{
    plant->Calls().Clear();
    plant->Calls().Record(true);
    Set(L"k", L"v", Value(L"x"), 1);
    Get(L"k", L"v", 1);
    SubKeys(L"k", 1);
    List(L"k", 1);
    store->WriteStringList(Text(L"k"), 0, nullptr, 1);
    store->DeleteKey(Text(L"k"), 1);
    store->PrepareScope(1);
    store->SetValue(Text(L"k"), Text(L"v"), nullptr, 1);
    EXPECT_EQ(plant->Calls().Calls(), (Lines{
                                          R"(IQPSessionDataManager::SetValue("k", "v", "x", 1))",
                                          R"(IQPSessionDataManager::GetValue("k", "v", 8, 1))",
                                          R"(IQPSessionDataManager::GetSubKeys("k", 1, 1))",
                                          R"(IQPSessionDataManager::GetStringList("k", 1))",
                                          R"(IQPSessionDataManager::WriteStringList("k", 0, 1))",
                                          R"(IQPSessionDataManager::DeleteKey("k", 1))",
                                          R"(IQPSessionDataManager::PrepareScope(1))",
                                          R"(IQPSessionDataManager::SetValue("k", "v", <empty>, 1))",
                                      }));
    plant->Calls().Clear();
    plant->Calls().FailCall(1, refhost::Fault::Status, S_FALSE);
    EXPECT_EQ(Get(L"k", L"v", 1), L"<none>");
}
} // namespace
