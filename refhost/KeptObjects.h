// The references to data objects that a caller keeps on purpose.
#pragma once

#include <unknwn.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refhost
{
/// Notes each data object of one table that is created during its lifetime, and releases one reference of
/// each that still exists at its end: for callers that never release what an enumerator handed out. One at a
/// time.
class KeptObjects
{
public:
    explicit KeptObjects(std::string_view table);
    ~KeptObjects();
    KeptObjects(const KeptObjects&) = delete;
    KeptObjects& operator=(const KeptObjects&) = delete;

    /// How many of them exist.
    std::size_t Count() const noexcept { return m_objects.size(); }

    // For the data objects.

    static void Created(IUnknown* object, std::string_view table)
    {
        if (s_current && table == s_current->m_table)
            s_current->m_objects.push_back(object);
    }
    static void Destroyed(IUnknown* object) noexcept
    {
        if (s_current)
            s_current->Remove(object);
    }

private:
    void Remove(IUnknown* object) noexcept;

    static inline KeptObjects* s_current = nullptr;

    const std::string m_table;
    std::vector<IUnknown*> m_objects; ///< borrowed
};
} // namespace refhost
