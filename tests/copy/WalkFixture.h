// The walks over the objects of a copy, called directly on a host in memory.
#pragma once

#include "Calls.h"
#include "MemoryHost.h"
#include "Untouched.h"

#include "CopyCandidates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

class WalkFixture : public ::testing::Test
{
protected:
    using CopyCandidates = qptools::CopyCandidates;
    static constexpr auto kParents = qptools::CopyRoute::Parents;
    static constexpr auto kAll = qptools::CopyRoute::ParentsAndChildren;

    /// Walks over the list and adds to `candidates`. Returns all records; the record of calls is that of the
    /// walk.
    Calls Walk(qptools::CopyRoute route, const ComPtr<MemoryEnum>& list)
    {
        host.calls.clear();
        qptools::CollectCandidates(list.get(), route, candidates);
        return Records();
    }
    Calls Walk(qptools::CopyRoute route, const MemoryObjects& objects)
    {
        return Walk(route, host.List(objects, "selection"));
    }

    /// One line for each record, "BSTR 'Station': press lathe", in the order of the texts: that of the
    /// records follows addresses.
    Calls Records() const
    {
        Calls records;
        for (const auto& [type, record] : candidates)
        {
            std::string line = host.Describe(record.caption.get()) + ":";
            for (const auto& object : record.objects)
                line += " " + host.NameOf(object.get());
            records.push_back(line);
        }
        std::sort(records.begin(), records.end());
        return records;
    }

    MemoryType* Type(const wchar_t* name) { return host.Config().Find(name); }

    /// Puts another list in place of the object's children.
    static void SetChildren(const ComPtr<MemoryObject>& object, const ComPtr<MemoryEnum>& list,
                            HRESULT status = S_OK)
    {
        object->ForgetChildren();
        object->Children(L"nodes", list, status);
    }
    static void SetChildren(const ComPtr<MemoryObject>& object, const MemoryObjects& children)
    {
        object->ForgetChildren();
        object->FreshChildren(L"nodes", children);
    }

    MemoryHost host;
    CopyCandidates candidates;
};

/// The calls that record an object.
inline Calls Recording(const std::string& name, const std::string& type)
{
    return {name + ".GetAttribute(configtypename)", name + ".GetTypeName()",
            name + ".GetType(node, " + type + ")", type + ".Get(captionsingular)"};
}

/// The calls on an object in a walk with children, up to the list of its children.
inline Calls Visiting(const std::string& name, const std::string& type)
{
    return Calls{name + ".IsDerivedFromClass(XDORelationship)"} + Recording(name, type) +
           Calls{name + ".GetChildren(nodes)"};
}

/// The same for an object without children.
inline Calls VisitingLeaf(const std::string& name, const std::string& type)
{
    return Visiting(name, type) + Calls{name + " nodes.RemNext(1)"};
}

/// The calls of the last walk.
#define EXPECT_CALLS(...) EXPECT_EQ(host.calls, (__VA_ARGS__))
