#include "CopyCandidates.h"

#include "HostConstants.h"
#include "ObjectValue.h"

#include "Bstr.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace qptools
{
namespace
{
constexpr FixedText kChildrenNodes = L"nodes";
constexpr FixedText kAttributeTarget = L"relationobjecttarget";

/// The text of a value in place, for an in argument: null if it has no text form.
BSTR TextOf(Variant& value)
{
    return ConvertToText(value) ? value->bstrVal : nullptr;
}

/// Adds one object to the record of its type. An object without a type is left out. Only the type counts: the
/// statuses of the four calls do not.
void Record(const ComPtr<IQP_BaseDataObject>& object, CopyCandidates& candidates)
{
    Variant configName;
    Bstr typeName;
    ComPtr<IQPType> type;
    Variant caption;
    object->GetAttribute(kAttributeConfigTypeName, configName.put());
    object->GetTypeName(typeName.put());
    object->GetType(typeName.get(), TextOf(configName), type.put());
    if (!type)
        return;
    type->Get(kKeyCaptionSingular, caption.put());
    CopyCandidateRecord& record = candidates[std::move(type)];
    if (record.objects.empty() && ConvertToText(caption))
        record.caption = std::move(caption);
    record.objects.push_back(object);
}

/// The objects above the current level: a stack with a hash table for the look-up. The table uses linear
/// probing; Pop can empty a slot without breaking a probe sequence, because it removes the last insertion.
class Path
{
public:
    /// Returns false if the object is there already.
    bool Push(const void* object)
    {
        if (2 * (m_objects.size() + 1) > m_slots.size())
            Grow();
        const void*& slot = Find(object);
        if (slot)
            return false;
        m_objects.push_back(object);
        slot = object;
        return true;
    }

    /// Removes the last one.
    void Pop() noexcept
    {
        Find(m_objects.back()) = nullptr;
        m_objects.pop_back();
    }

private:
    /// The slot of the object, or the empty one where it belongs.
    const void*& Find(const void* object) noexcept
    {
        // Objects that were allocated together stay together, as far as they are no pages apart.
        const auto address = reinterpret_cast<std::uintptr_t>(object);
        std::size_t slot = ((address >> 4) ^ (address >> 12)) & (m_slots.size() - 1);
        while (m_slots[slot] && m_slots[slot] != object)
            slot = (slot + 1) & (m_slots.size() - 1);
        return m_slots[slot];
    }

    void Grow()
    {
        std::vector<const void*>(std::max(kLeast, 2 * m_slots.size())).swap(m_slots);
        for (const void* object : m_objects)
            Find(object) = object;
    }

    static constexpr std::size_t kLeast = 64;

    std::vector<const void*> m_objects; ///< in the order of Push
    std::vector<const void*> m_slots;   ///< a power of two, at most half of them taken
};

/// One walk, depth first. It keeps its own stack of levels, because trees may be deeper than that of the
/// thread.
class Walk
{
public:
    Walk(CopyRoute route, CopyCandidates& candidates) : m_route(route), m_candidates(candidates) {}

    void Run(IEnumBaseDataObject* objects)
    {
        m_levels.push_back({ComPtr(objects), nullptr});
        while (!m_levels.empty())
        {
            ComPtr<IQP_BaseDataObject> object = Next(m_levels.back().objects.get());
            if (!object || !Visit(object))
                Leave();
            else if (m_route == CopyRoute::ParentsAndChildren)
                Enter(std::move(object));
        }
    }

private:
    /// A list of children, and the object that they belong to; null for the objects of the walk itself.
    struct Level
    {
        ComPtr<IEnumBaseDataObject> objects;
        ComPtr<IQP_BaseDataObject> parent;
    };

    /// The next object of a level; null at its end. The two routes call different methods, on purpose.
    ComPtr<IQP_BaseDataObject> Next(IEnumBaseDataObject* objects) const
    {
        ComPtr<IQP_BaseDataObject> object;
        ULONG fetched = 0;
        const HRESULT status = m_route == CopyRoute::Parents ? objects->GetSingleNext(object.put())
                                                             : objects->RemNext(1, object.put(), &fetched);
        return status == S_OK ? object : nullptr;
    }

    /// Records the object, or what a relationship relates to. Returns false if a relationship has no object
    /// to relate to: the rest of its level is dropped then, on purpose.
    bool Visit(const ComPtr<IQP_BaseDataObject>& object)
    {
        if (m_route == CopyRoute::Parents || object->IsDerivedFromClass(kClassRelationship) != S_OK)
        {
            Record(object, m_candidates);
            return true;
        }
        Variant value;
        ComPtr<IQP_BaseDataObject> target;
        if (object->GetAttribute(kAttributeTarget, value.put()) != S_OK ||
            target.queryFrom(ObjectOf(value.get())) < 0)
            return false;
        Record(target, m_candidates);
        return true;
    }

    /// Goes on with the children of the object, also of a relationship, unless the walk is below it already.
    void Enter(ComPtr<IQP_BaseDataObject> object)
    {
        if (!m_path.Push(object.get()))
            return;
        ComPtr<IEnumBaseDataObject> children;
        if (object->GetChildren(kChildrenNodes, children.put()) != S_OK || !children)
            m_path.Pop();
        else
            m_levels.push_back({std::move(children), std::move(object)});
    }

    /// Ends a level. The objects of the walk itself are below none.
    void Leave()
    {
        if (m_levels.size() > 1)
            m_path.Pop();
        m_levels.pop_back();
    }

    const CopyRoute m_route;
    CopyCandidates& m_candidates;
    std::vector<Level> m_levels;
    Path m_path; ///< the parents of the levels
};
} // namespace

void CollectCandidates(IEnumBaseDataObject* objects, CopyRoute route, CopyCandidates& candidates)
{
    Walk(route, candidates).Run(objects);
}
} // namespace qptools
