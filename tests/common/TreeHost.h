// A host with a tree of very many objects, for walks and for writing to all of them.
//
//     TreeHost host({.objects = 100'000, .depth = 10});
//     dialog.GetAllParentChildDataObjects(host.Tops().get());
//     EXPECT_EQ(host.calls.getChildren, 100'000);
#pragma once

#include "MemoryHost.h"

#include "ComPtr.h"

#include "qpconfig.h"
#include "qpobjects.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// How often each method of the host's objects was called.
struct TreeCalls
{
    long long getAttribute = 0;
    long long getTypeName = 0;
    long long getType = 0;
    long long getCaption = 0; ///< Get of a type
    long long isDerivedFromClass = 0;
    long long getChildren = 0;
    long long setAttributes = 0;
    long long remNext = 0;
    long long getSingleNext = 0;
    long long reset = 0;
    long long unexpected = 0; ///< any other method of an object or enumerator

    /// All calls on objects and types, enumerators not among them.
    long long OnObjects() const
    {
        return getAttribute + getTypeName + getType + getCaption + isDerivedFromClass + getChildren +
               setAttributes;
    }

    bool operator==(const TreeCalls&) const = default;
};

/// The objects and types of a tree. They answer only the calls of walks over "nodes" and of SetAttributes,
/// from storage that the host owns, so that its end does not recurse. The host must outlive all references,
/// and everything must run on one thread.
class TreeHost
{
public:
    struct Shape
    {
        std::size_t objects = 0;
        /// The number of levels. The objects form objects / depth lines under the enumerator: one object at
        /// each level of a line. 1 for a flat list, `objects` for a single line.
        std::size_t depth = 1;
        /// If not 0, the objects form one tree instead, in which each object has this many children, as long
        /// as there are objects: the children of that of index i are those of fanOut * i + 1 and the
        /// following.
        std::size_t fanOut = 0;
        /// The objects have these many configured types in turn, "Type 1", "Type 2" ...
        std::size_t types = 1;
        /// Each type offers these many text attributes for an enhanced copy, "Attribute 1" ...
        std::size_t attributes = 0;
        /// Every n-th object, the n-th first, is a relationship, which leads to the object before it; 0 for
        /// none.
        std::size_t relationshipEvery = 0;
    };

    explicit TreeHost(const Shape& shape);
    ~TreeHost();
    TreeHost(const TreeHost&) = delete;
    TreeHost& operator=(const TreeHost&) = delete;

    /// A new enumerator over the objects of the first level.
    ComPtr<IEnumBaseDataObject> Tops();

    /// A new enumerator over all objects, in the order of their indexes: each line from its top, one line
    /// after the other.
    ComPtr<IEnumBaseDataObject> All();

    /// The object of that index, in the order of All. Borrowed.
    IQP_BaseDataObject* At(std::size_t index);

    /// The type of that index. Borrowed.
    IQPType* Type(std::size_t index);

    /// Adds `child` to the children of `parent`: an object may become its own descendant.
    void Link(std::size_t parent, std::size_t child);

    /// Calls since the start or since it was last assigned.
    TreeCalls calls;

    /// What SetAttributes returns, and whether it hands out an array (of no rows).
    HRESULT writeStatus = S_OK;
    bool givesResults = false;

    /// The array that the last SetAttributes was given: see ArrayLine. Kept if `keepsWritten`.
    std::string written;
    bool keepsWritten = false;

    /// References to objects and types that others hold, and enumerators alive: 0 when nothing was leaked.
    long long References() const noexcept { return m_references; }

private:
    template <class Interface>
    class Owned;
    class Object;
    class ConfigType;
    class Enumerator;

    void Grow(std::size_t index);
    ComPtr<IEnumBaseDataObject> ListOf(std::vector<Object*> objects);

    MemoryHost m_config; ///< the attributes of the types
    long long m_references = 0;
    std::vector<std::unique_ptr<ConfigType>> m_types;
    std::vector<std::unique_ptr<Object>> m_objects;
    const Shape m_shape;
};
