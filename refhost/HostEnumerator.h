// The result of a search or a child list, object by object.
#pragma once

#include "HostObject.h"
#include "PlantCore.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <memory>
#include <vector>

namespace refhost
{
/// Holds the numbers of the objects found; an object is made when it is fetched.
class HostEnumerator final : public HostObject<HostEnumerator, IEnumBaseDataObject>
{
public:
    /// Takes column 0 of all rows of `rows`, which are objects of that kind.
    static ComPtr<IEnumBaseDataObject> Make(const Core& core, const Kind& kind, Statement& rows);

    /// S_OK with as many objects as wanted, S_FALSE with fewer.
    HRESULT STDMETHODCALLTYPE RemNext(ULONG wanted, IQP_BaseDataObject** elements, ULONG* fetched) override;

    /// S_FALSE if there were fewer to skip.
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;

    /// A second enumerator that stands where this one does.
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject** clone) override;

    /// S_FALSE and null behind the last object.
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject** element) override;

private:
    friend class HostObject<HostEnumerator, IEnumBaseDataObject>;
    using Ids = std::shared_ptr<const std::vector<long long>>;
    HostEnumerator(Core core, const Kind& kind, Ids ids, std::size_t next);
    ~HostEnumerator() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;
    std::size_t Left() const { return m_ids->size() - m_next; }

    const Core m_core;
    const Kind& m_kind;
    const Ids m_ids;
    std::size_t m_next;
};
} // namespace refhost
