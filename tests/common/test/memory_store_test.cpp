// The key store of a host in memory.
#include "MemoryHost.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
using Lines = std::vector<std::string>;

constexpr wchar_t kKey[] = L"a/b";

class MemoryKeys : public ::testing::Test
{
protected:
    std::string Get(const wchar_t* key, const wchar_t* name, LONG scope, VARTYPE type = VT_BSTR)
    {
        XQPComVariant value;
        const HRESULT status = keys->GetValue(XQPComBSTR(key), XQPComBSTR(name), type, &value, scope);
        return std::to_string(status) + " " + host.Describe(value.Value());
    }

    HRESULT Set(const wchar_t* key, const wchar_t* name, const MemoryValue& value, LONG scope)
    {
        return keys->SetValue(XQPComBSTR(key), XQPComBSTR(name), const_cast<VARIANT*>(&value.Value()), scope);
    }

    HRESULT ReadList(const wchar_t* key, LONG scope)
    {
        count = 99;
        list = nullptr;
        return keys->GetStringList(XQPComBSTR(key), &count, &list, scope);
    }

    /// "status", and "name=value" of each entry.
    Lines List(const wchar_t* key, LONG scope)
    {
        const HRESULT status = ReadList(key, scope);
        Lines lines{std::to_string(status) + (list ? "" : " null")};
        for (ULONG entry = 0; list && entry < count; ++entry)
            lines.push_back(Utf8OrNull(list[entry].bstrName) + "=" + Utf8OrNull(list[entry].bstrValue));
        return lines;
    }

    /// "status", and the names.
    Lines SubKeys(const wchar_t* key, LONG scope)
    {
        count = 99;
        BSTR* names = nullptr;
        const HRESULT status = keys->GetSubKeys(XQPComBSTR(key), 1, &count, &names, scope);
        Lines lines{std::to_string(status) + (names ? "" : " null")};
        for (ULONG entry = 0; names && entry < count; ++entry)
            lines.push_back(Utf8OrNull(names[entry]));
        return lines;
    }

    MemoryHost host;
    IQPSessionDataManager* const keys = &host.Store();
    ULONG count = 0;
    tagSTRINGPAIR* list = nullptr;
};

TEST_F(MemoryKeys, a_value_is_read_back_in_the_wanted_type)
{
    EXPECT_EQ(Get(kKey, L"v", 1), "1 EMPTY");
    EXPECT_EQ(Set(kKey, L"v", L"1", 1), S_OK);
    EXPECT_EQ(Get(kKey, L"v", 1), "0 BSTR '1'");
    EXPECT_EQ(Get(kKey, L"v", 1, VT_BOOL), "0 BOOL true");
    EXPECT_EQ(Get(kKey, L"v", 1, VT_EMPTY), "0 BSTR '1'");
    Set(kKey, L"v", 25, 1);
    EXPECT_EQ(Get(kKey, L"v", 1), "0 BSTR '25'");
    EXPECT_EQ(Get(kKey, L"v", 1, VT_EMPTY), "0 I4 25");
    Set(kKey, L"v", L"grey", 1);
    EXPECT_EQ(Get(kKey, L"v", 1, VT_I4), std::to_string(DISP_E_TYPEMISMATCH) + " EMPTY");
}

TEST_F(MemoryKeys, a_value_that_is_not_there_clears_the_variant)
{
    XQPComVariant value(L"old");
    EXPECT_EQ(keys->GetValue(XQPComBSTR(kKey), XQPComBSTR(L"v"), VT_BSTR, &value.Value(), 2), S_FALSE);
    EXPECT_EQ(value.Type(), VT_EMPTY);
}

TEST_F(MemoryKeys, case_does_not_count_and_slashes_at_the_ends_neither)
{
    Set(L"Nav/GotoItemTree/$12)", L"Name", L"x", 2);
    EXPECT_EQ(Get(L"nav/gotoitemtree/$12)", L"nAME", 2), "0 BSTR 'x'");
    EXPECT_EQ(Get(L"/nav/gotoitemtree/$12)/", L"name", 2), "0 BSTR 'x'");
    Set(L"NAV/gotoitemtree/$12)", L"name", L"y", 2);
    EXPECT_EQ(host.Store().Content(), Lines{"2 nav/gotoitemtree/$12): Name=y"});
}

TEST_F(MemoryKeys, scopes_are_apart)
{
    for (LONG scope = 1; scope <= 3; ++scope)
        Set(kKey, L"v", scope, scope);
    EXPECT_EQ(Get(kKey, L"v", 2), "0 BSTR '2'");
    EXPECT_EQ(Get(kKey, L"v", 0), "1 EMPTY");
    EXPECT_EQ(Get(kKey, L"v", 4), "1 EMPTY");
    EXPECT_EQ(keys->DeleteKey(XQPComBSTR(kKey), 2), S_OK);
    EXPECT_EQ(host.Store().Content(), (Lines{"1 a/b: v=1", "3 a/b: v=3"}));
}

TEST_F(MemoryKeys, scope_0_reads_what_4_wrote)
{
    Set(kKey, L"own", L"zero", 0);
    Set(kKey, L"v", L"zero", 0);
    Set(kKey, L"v", L"user", 4);
    EXPECT_EQ(Get(kKey, L"v", 0), "0 BSTR 'user'");
    EXPECT_EQ(Get(kKey, L"own", 0), "0 BSTR 'zero'");
    EXPECT_EQ(Get(kKey, L"own", 4), "1 EMPTY");
    EXPECT_EQ(SubKeys(L"a", 0), (Lines{"0", "b"}));
    EXPECT_EQ(keys->DeleteKey(XQPComBSTR(kKey), 0), S_OK);
    EXPECT_EQ(host.Store().Content(), Lines{"4 a/b: v=user"});
}

TEST_F(MemoryKeys, sub_keys_are_the_direct_ones_in_their_order)
{
    Set(L"n/b/deep/er", L"v", L"x", 2);
    Set(L"n/a", L"v", L"x", 2);
    Set(L"N/B/other", L"v", L"x", 2);
    Set(L"nb/c", L"v", L"x", 2);
    EXPECT_EQ(SubKeys(L"n", 2), (Lines{"0", "b", "a"}));
    EXPECT_EQ(SubKeys(L"n/b/", 2), (Lines{"0", "deep", "other"}));
    EXPECT_EQ(SubKeys(L"", 2), (Lines{"0", "n", "nb"}));
    EXPECT_EQ(SubKeys(L"n/a", 2), Lines{"0"}) << "a key without any";
    EXPECT_EQ(SubKeys(L"m", 2), Lines{"1 null"});
    EXPECT_EQ(count, 0U);
}

TEST_F(MemoryKeys, a_list_replaces_the_values)
{
    Set(kKey, L"old", L"x", 2);
    const XQPComBSTR names[] = {L"n1", L"n0"};
    tagSTRINGPAIR pairs[] = {{names[0], names[1]}, {names[1], nullptr}};
    EXPECT_EQ(keys->WriteStringList(XQPComBSTR(kKey), 2, pairs, 2), S_OK);
    EXPECT_EQ(List(kKey, 2), (Lines{"0", "n1=n0", "n0="}));
    EXPECT_EQ(host.Store().Content(), (Lines{"2 a/b: n1=n0", "2 a/b: n0="}));
    EXPECT_EQ(keys->WriteStringList(XQPComBSTR(kKey), 1, nullptr, 2), E_POINTER);
    EXPECT_EQ(keys->WriteStringList(XQPComBSTR(kKey), 0, nullptr, 2), S_OK);
    EXPECT_EQ(List(kKey, 2), Lines{"0"});
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(host.Store().Content(), Lines{"2 a/b:"}) << "the key is left";
    EXPECT_EQ(List(L"m", 2), Lines{"1 null"});
    EXPECT_EQ(count, 0U);
}

TEST_F(MemoryKeys, a_list_holds_every_value_as_text)
{
    Set(kKey, L"v", 5, 2);
    Set(kKey, L"", L"nameless", 2);
    EXPECT_EQ(List(kKey, 2), (Lines{"0", "v=5", "=nameless"}));
}

TEST_F(MemoryKeys, a_list_is_valid_as_long_as_the_store)
{
    Set(kKey, L"v", L"kept", 2);
    ASSERT_EQ(ReadList(kKey, 2), S_OK);
    tagSTRINGPAIR* const first = list;
    ULONG names = 0;
    BSTR* subKeys = nullptr;
    ASSERT_EQ(keys->GetSubKeys(XQPComBSTR(L"a"), 1, &names, &subKeys, 2), S_OK);
    for (int more = 0; more < 100; ++more)
    {
        Set((kKey + std::to_wstring(more)).c_str(), L"v", L"x", 2);
        ReadList(kKey, 2);
        SubKeys(L"a", 2);
    }
    keys->DeleteKey(XQPComBSTR(L"a"), 2);
    EXPECT_EQ(Utf8OrNull(first->bstrName) + "=" + Utf8OrNull(first->bstrValue), "v=kept");
    EXPECT_EQ(Utf8OrNull(*subKeys), "b");
}

TEST_F(MemoryKeys, the_pointers_of_a_list_may_be_exchanged)
{
    Set(kKey, L"0", L"zero", 2);
    Set(kKey, L"1", L"one", 2);
    const XQPComBSTR mine = L"mine";
    {
        ASSERT_EQ(ReadList(kKey, 2), S_OK);
        list[0].bstrValue = list[1].bstrValue;
        list[1].bstrValue = mine;
        keys->DeleteKey(XQPComBSTR(kKey), 2);
        EXPECT_EQ(keys->WriteStringList(XQPComBSTR(kKey), count, list, 2), S_OK);
    }
    EXPECT_EQ(host.Store().Content(), (Lines{"2 a/b: 0=one", "2 a/b: 1=mine"}));
}

TEST_F(MemoryKeys, a_key_is_deleted_with_its_sub_keys)
{
    for (const wchar_t* const key : {L"k", L"k/sub/deep", L"kk", L"K/other"})
        Set(key, L"v", L"x", 2);
    EXPECT_EQ(keys->DeleteKey(XQPComBSTR(L"k/"), 2), S_OK);
    EXPECT_EQ(host.Store().Content(), Lines{"2 kk: v=x"});
    EXPECT_EQ(keys->DeleteKey(XQPComBSTR(L"k/"), 2), S_FALSE);
}

TEST_F(MemoryKeys, a_bookmark_is_an_entry_of_two_lists)
{
    host.Store()
        .Bookmark(L"$7)", 0, L"Press", L"BrowserTree:$12);")
        ->Bookmark(L"$7)", 3, L"Oven", L"BrowserTree:$13);");
    EXPECT_EQ(host.Store().Content(),
              (Lines{"2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname0=Press",
                     "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname3=Oven",
                     "2 qpr-navigator/browserconfiguration1/gotoitemtree/$7): 0=BrowserTree:$12);",
                     "2 qpr-navigator/browserconfiguration1/gotoitemtree/$7): 3=BrowserTree:$13);"}));
    EXPECT_EQ(SubKeys(L"QPR-Navigator/BrowserConfiguration1/gotoitemname", 2), (Lines{"0", "$7)"}));
    host.Store().Clear();
    EXPECT_EQ(host.Store().Content(), Lines{});
    EXPECT_EQ(host.calls.size(), 1U) << "only calls are recorded";
}

TEST_F(MemoryKeys, single_calls_fail_or_give_no_list)
{
    Set(kKey, L"v", L"x", 2);
    host.Store().script.Set("DeleteKey", 0, Failed(E_ACCESSDENIED));
    EXPECT_EQ(keys->DeleteKey(XQPComBSTR(kKey), 2), E_ACCESSDENIED);
    EXPECT_EQ(List(kKey, 2), (Lines{"0", "v=x"})) << "nothing was deleted";
    host.Store().script.Set("DeleteKey", 1, {.status = E_FAIL});
    EXPECT_EQ(keys->DeleteKey(XQPComBSTR(kKey), 2), E_FAIL);
    EXPECT_EQ(List(kKey, 2), Lines{"1 null"}) << "it was deleted all the same";

    Set(kKey, L"v", L"x", 2);
    host.Store().script.Clear();
    host.Store().script.Set("GetStringList", 0, {.status = S_FALSE});
    host.Store().script.Set("GetStringList", 1, {.givesNull = true});
    host.Store().script.Set("GetStringList", 2, Failed());
    host.Store().script.Set("GetSubKeys", 0, {.givesNull = true});
    EXPECT_EQ(List(kKey, 2), (Lines{"1", "v=x"}));
    EXPECT_EQ(List(kKey, 2), Lines{"0 null"});
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(ReadList(kKey, 2), E_FAIL);
    EXPECT_EQ(count, 99U) << "a failed call leaves its outputs";
    EXPECT_EQ(SubKeys(L"a", 2), Lines{"0 null"});
    EXPECT_EQ(count, 1U);
}

TEST_F(MemoryKeys, a_list_has_the_count_that_was_set)
{
    Set(kKey, L"v", L"x", 2);
    host.Store().script.Set("GetStringList", 0, {.count = 3});
    host.Store().script.Set("GetStringList", 1, {.count = 0});
    EXPECT_EQ(List(kKey, 2), (Lines{"0", "v=x", "null=null", "null=null"}));
    EXPECT_EQ(List(kKey, 2), Lines{"0"});
}

TEST_F(MemoryKeys, the_n_th_call_of_all_differs)
{
    host.Store().script.Set("", 1, Failed());
    EXPECT_EQ(Set(kKey, L"v", L"x", 2), S_OK);
    EXPECT_EQ(Set(kKey, L"v", L"y", 2), E_FAIL);
    EXPECT_EQ(keys->PrepareScope(2), S_OK);
    EXPECT_EQ(host.Store().Content(), Lines{"2 a/b: v=x"});
}

TEST_F(MemoryKeys, every_call_is_recorded)
{
    const XQPComBSTR key(L"k");
    tagSTRINGPAIR pairs[] = {{key, nullptr}, {key, key}};
    keys->WriteStringList(key, 2, pairs, 2);
    keys->WriteStringList(key, 0, nullptr, 2);
    Set(L"k", L"v", L"x", 4);
    Get(L"k", L"v", 0);
    List(L"k", 2);
    SubKeys(L"k", 2);
    keys->DeleteKey(key, 2);
    keys->PrepareScope(2);
    keys->Reserved3();
    EXPECT_EQ(host.calls,
              (Lines{"store.WriteStringList(k, 2, {k = null, k = k}, 2)",
                     "store.WriteStringList(k, 0, null, 2)", "store.SetValue(k, v, BSTR 'x', 4)",
                     "store.GetValue(k, v, 8, 0)", "store.GetStringList(k, 2)", "store.GetSubKeys(k, 1, 2)",
                     "store.DeleteKey(k, 2)", "store.PrepareScope(2)", "store.Reserved3()"}));
}
} // namespace
