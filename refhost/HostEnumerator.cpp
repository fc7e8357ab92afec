#include "HostEnumerator.h"

#include "HostCall.h"
#include "HostDataObject.h"

#include <algorithm>

namespace refhost
{
HostEnumerator::HostEnumerator(Core core, const Kind& kind, Ids ids, std::size_t next)
    : m_core(std::move(core)), m_kind(kind), m_ids(std::move(ids)), m_next(next)
{
}

ComPtr<IEnumBaseDataObject> HostEnumerator::Make(const Core& core, const Kind& kind, Statement& rows)
{
    auto ids = std::make_shared<std::vector<long long>>();
    while (rows.Step())
        ids->push_back(rows.Integer(0));
    return ComPtr<IEnumBaseDataObject>(new HostEnumerator(core, kind, std::move(ids), 0));
}

template <class Outputs, class Body, class... Arguments>
HRESULT HostEnumerator::Call(const char* method, const Outputs& outputs, Body&& body,
                             const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

HRESULT HostEnumerator::RemNext(ULONG wanted, IQP_BaseDataObject** elements, ULONG* fetched)
{
    return Call(
        "IEnumBaseDataObject::RemNext", std::tuple(Batch{wanted, elements, fetched}),
        [&] {
            const auto count = static_cast<ULONG>(std::min<std::size_t>(wanted, Left()));
            std::vector<ComPtr<IQP_BaseDataObject>> batch;
            for (ULONG i = 0; i < count; ++i)
                batch.push_back(HostDataObject::Make(m_core, m_kind, (*m_ids)[m_next + i]));
            std::transform(batch.begin(), batch.end(), elements,
                           [](auto& object) { return object.detach(); });
            m_next += count;
            *fetched = count;
            return count == wanted ? S_OK : S_FALSE;
        },
        wanted);
}

HRESULT HostEnumerator::Skip(ULONG count)
{
    return Call(
        "IEnumBaseDataObject::Skip", std::tuple(),
        [&] {
            const std::size_t skipped = std::min<std::size_t>(count, Left());
            m_next += skipped;
            return skipped == count ? S_OK : S_FALSE;
        },
        count);
}

HRESULT HostEnumerator::Reset()
{
    return Call("IEnumBaseDataObject::Reset", std::tuple(), [&] {
        m_next = 0;
        return S_OK;
    });
}

HRESULT HostEnumerator::Clone(IEnumBaseDataObject** clone)
{
    return Call("IEnumBaseDataObject::Clone", std::tuple(Out{clone}), [&] {
        *clone = ComPtr<IEnumBaseDataObject>(new HostEnumerator(m_core, m_kind, m_ids, m_next)).detach();
        return S_OK;
    });
}

HRESULT HostEnumerator::GetSingleNext(IQP_BaseDataObject** element)
{
    return Call("IEnumBaseDataObject::GetSingleNext", std::tuple(Out{element}), [&] {
        if (Left() == 0)
            return S_FALSE;
        *element = HostDataObject::Make(m_core, m_kind, (*m_ids)[m_next]).detach();
        ++m_next;
        return S_OK;
    });
}
} // namespace refhost
