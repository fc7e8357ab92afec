// Trees of objects of a host in memory, their types, and what is written to them.
#include "MemoryHost.h"
#include "Untouched.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace
{
using Lines = std::vector<std::string>;

class MemoryTree : public ::testing::Test
{
protected:
    /// The next object of a list by RemNext; its name, "null" or the end.
    std::string Next(IEnumBaseDataObject* list)
    {
        ComPtr<IQP_BaseDataObject> object;
        fetched = 7;
        if (list->RemNext(1, object.put(), &fetched) != S_OK)
            return "end";
        return host.NameOf(object.get());
    }

    static ComPtr<IEnumBaseDataObject> Nodes(const ComPtr<MemoryObject>& object)
    {
        ComPtr<IEnumBaseDataObject> nodes;
        EXPECT_EQ(object->GetChildren(XQPComBSTR(L"nodes"), nodes.put()), S_OK);
        return nodes;
    }

    ComPtr<IQPType> TypeOf(const ComPtr<MemoryObject>& object) const
    {
        XQPComVariant config;
        EXPECT_EQ(object->GetAttribute(XQPComBSTR(L"configtypename"), &config), S_OK);
        BSTR name = nullptr;
        EXPECT_EQ(object->GetTypeName(&name), S_OK);
        ComPtr<IQPType> type;
        status = object->GetType(name, config.Value().bstrVal, type.put());
        SysFreeString(name);
        return type;
    }

    std::string Caption(const ComPtr<IQPType>& type) const
    {
        XQPComVariant caption;
        EXPECT_EQ(type->Get(XQPComBSTR(L"captionsingular"), &caption), S_OK);
        return host.Describe(caption.Value());
    }

    MemoryHost host;
    ULONG fetched = 0;
    mutable HRESULT status = S_OK;
};

TEST_F(MemoryTree, each_level_of_a_walk_is_named_in_the_record)
{
    const auto station = host.Node(L"station", L"workplace");
    const auto cell = host.Node(L"cell", L"workcell", {station});
    const auto list = host.List({cell}, "selection");
    EXPECT_EQ(Next(list.get()), "cell");
    const auto nodes = Nodes(cell);
    EXPECT_EQ(Next(nodes.get()), "station");
    EXPECT_EQ(Next(nodes.get()), "end");
    EXPECT_EQ(list->Reset(), S_OK);
    EXPECT_EQ(host.calls, (Lines{"selection.RemNext(1)", "cell.GetChildren(nodes)", "cell nodes.RemNext(1)",
                                 "cell nodes.RemNext(1)", "selection.Reset()"}));
    EXPECT_EQ(Next(list.get()), "cell") << "it began again";
}

TEST_F(MemoryTree, each_call_for_children_gives_a_list_of_its_own)
{
    const auto station = host.Node(L"station", L"workplace");
    const auto cell = host.Node(L"cell", L"workcell", {station});
    const auto first = Nodes(cell);
    EXPECT_EQ(Next(first.get()), "station");
    EXPECT_EQ(Next(Nodes(cell).get()), "station");
    EXPECT_EQ(Next(first.get()), "end") << "another list does not rewind it";
}

TEST_F(MemoryTree, lists_give_null_objects_counts_and_statuses_of_choice)
{
    const auto cell = host.Node(L"cell", L"workcell");
    const auto list = host.List({{}, {}, cell, cell});
    list->counts = {{1, 0}, {2, 0}};
    list->statuses = {{3, E_FAIL}};
    EXPECT_EQ(Next(list.get()), "null");
    EXPECT_EQ(fetched, 1U);
    EXPECT_EQ(Next(list.get()), "null");
    EXPECT_EQ(fetched, 0U);
    EXPECT_EQ(Next(list.get()), "cell");
    EXPECT_EQ(fetched, 0U);
    EXPECT_EQ(Next(list.get()), "end");
    list->resetStatus = E_FAIL;
    EXPECT_EQ(list->Reset(), E_FAIL);
    EXPECT_EQ(Next(list.get()), "null");
}

TEST_F(MemoryTree, an_object_may_have_no_list_with_success)
{
    const auto cell = host.Object("cell");
    cell->Children(L"nodes", ComPtr<MemoryEnum>());
    EXPECT_FALSE(Nodes(cell));
}

TEST_F(MemoryTree, what_is_set_again_replaces_what_was_set)
{
    const auto cell = host.Node(L"cell", L"workcell");
    const auto station = host.Node(L"station", L"workplace");
    cell->Children(L"nodes", host.List({station}, "broken"))
        ->Is(L"XDORelationship")
        ->Is(L"XDORelationship", E_FAIL);
    EXPECT_EQ(Next(Nodes(cell).get()), "station");
    EXPECT_EQ(host.calls.back(), "broken.RemNext(1)");
    EXPECT_EQ(cell->IsDerivedFromClass(XQPComBSTR(L"XDORelationship")), E_FAIL);
    cell->FreshChildren(L"nodes", {});
    EXPECT_EQ(Next(Nodes(cell).get()), "end");
}

TEST_F(MemoryTree, an_object_may_be_its_own_descendant)
{
    const int before = host.LiveObjects();
    {
        const auto cell = host.Node(L"cell", L"workcell");
        const auto station = host.Node(L"station", L"workplace", {cell});
        cell->ForgetChildren();
        cell->FreshChildren(L"nodes", {station, cell});
        EXPECT_EQ(Next(Nodes(station).get()), "cell");
        EXPECT_EQ(Next(Nodes(cell).get()), "station");
    }
    EXPECT_EQ(host.LiveObjects(), before + 4) << "two objects and their types";
    host.CutTrees();
    EXPECT_EQ(host.LiveObjects(), before + 2);
}

TEST_F(MemoryTree, a_relationship_leads_to_its_target)
{
    const auto robot = host.Node(L"robot", L"machine");
    const auto use = host.Relationship(L"use", L"usage", robot);
    EXPECT_EQ(use->IsDerivedFromClass(XQPComBSTR(L"XDORelationship")), S_OK);
    EXPECT_EQ(robot->IsDerivedFromClass(XQPComBSTR(L"XDORelationship")), S_FALSE);
    EXPECT_EQ(use->ValueText(L"relationobjecttarget"), "UNKNOWN robot");
    EXPECT_EQ(host.Relationship(L"loose", L"usage", {})->ValueText(L"relationobjecttarget"), "UNKNOWN null");
}

TEST_F(MemoryTree, the_type_of_an_object_follows_the_names_given)
{
    const auto cell = host.Node(L"cell", L"workcell");
    const auto other = host.Node(L"other", L"workcell");
    const auto station = host.Node(L"station", L"workplace");
    EXPECT_EQ(TypeOf(cell).get(), TypeOf(other).get());
    EXPECT_NE(TypeOf(cell).get(), TypeOf(station).get());
    EXPECT_EQ(Caption(TypeOf(station)), "BSTR 'workplace'");
    cell->Set(L"configtypename", L"workplace");
    EXPECT_EQ(TypeOf(cell).get(), TypeOf(station).get());
    cell->Set(L"configtypename", L"unknown");
    EXPECT_FALSE(TypeOf(cell));
    EXPECT_EQ(status, E_INVALIDARG);
    EXPECT_EQ(host.calls.back(), "cell.GetType(node, unknown)");
}

TEST_F(MemoryTree, types_may_be_another_pointer_each_time_or_null_or_fail)
{
    const auto cell = host.Node(L"cell", L"workcell");
    host.Config().typeCopies = true;
    const ComPtr<IQPType> first = TypeOf(cell);
    const ComPtr<IQPType> second = TypeOf(cell);
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(Caption(first), Caption(second));
    EXPECT_EQ(host.calls.back(), "workcell.Get(captionsingular)");
    host.Config().typeNull = true;
    EXPECT_FALSE(TypeOf(cell));
    EXPECT_EQ(status, S_OK);
    host.Config().typeStatus = E_FAIL;
    EXPECT_FALSE(TypeOf(cell));
    EXPECT_EQ(status, E_FAIL);
}

TEST_F(MemoryTree, the_array_that_was_written_reads_back_as_it_is)
{
    const auto cell = host.Node(L"cell", L"workcell");
    std::array<SAFEARRAYBOUND, 2> bounds{{{2, 0}, {2, 0}}};
    SAFEARRAY* pairs = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
    std::array<LONG, 2> index{};
    SafeArrayPutElement(pairs, index.data(), const_cast<VARIANT*>(&MemoryValue(L"Name").Value()));
    index[1] = 1;
    SafeArrayPutElement(pairs, index.data(), const_cast<VARIANT*>(&MemoryValue(L"x").Value()));
    SAFEARRAY* results = nullptr;
    cell->givesArrays = false;
    EXPECT_EQ(cell->SetAttributes(&pairs, &results), S_OK);
    EXPECT_EQ(cell->written, "VARIANT 0..1, 0..1: BSTR 'Name' = BSTR 'x'; EMPTY = EMPTY");
    EXPECT_FALSE(results);
    SafeArrayDestroy(pairs);
    pairs = SafeArrayCreateVector(VT_BSTR, 3, 4);
    EXPECT_EQ(cell->SetAttributes(&pairs, &results), E_INVALIDARG);
    EXPECT_EQ(cell->written, "type 8 3..6");
    SafeArrayDestroy(pairs);
    EXPECT_EQ(cell->SetAttributes(nullptr, &results), E_INVALIDARG);
    EXPECT_EQ(cell->written, "null");
}

TEST_F(MemoryTree, writing_may_throw)
{
    const auto cell = host.Node(L"cell", L"workcell");
    cell->onWrite = [] {
        throw std::runtime_error("broken");
    };
    SAFEARRAY* results = nullptr;
    EXPECT_THROW(cell->SetAttributes(nullptr, &results), std::runtime_error);
    EXPECT_FALSE(MemoryRecord::InCall());
}
} // namespace
