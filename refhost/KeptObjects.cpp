#include "KeptObjects.h"

#include <algorithm>
#include <utility>

namespace refhost
{
KeptObjects::KeptObjects(std::string_view table) : m_table(table)
{
    s_current = this;
}

KeptObjects::~KeptObjects()
{
    s_current = nullptr;
    for (IUnknown* object : std::exchange(m_objects, {}))
        object->Release();
}

void KeptObjects::Remove(IUnknown* object) noexcept
{
    m_objects.erase(std::remove(m_objects.begin(), m_objects.end(), object), m_objects.end());
}
} // namespace refhost
