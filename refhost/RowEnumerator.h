// The host's enumerators: the rows of a search or a list, object by object.
#pragma once

#include "EnumMethods.h"
#include "HostCall.h"
#include "HostObject.h"
#include "PlantCore.h"

#include "ComPtr.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace refhost
{
/// Implements the interface `Enum` over objects of `Element`. Holds the numbers of the rows; `MakeElement`
/// (core, kind, number) creates an object when it is fetched.
template <class Enum, class Element, auto MakeElement>
class RowEnumerator final : public HostObject<RowEnumerator<Enum, Element, MakeElement>, Enum>
{
public:
    /// Takes column 0 of all rows of `rows`, which are objects of that kind.
    static ComPtr<Enum> Make(const Core& core, const Kind& kind, Statement& rows)
    {
        std::vector<long long> ids;
        while (rows.Step())
            ids.push_back(rows.Integer(0));
        return Make(core, kind, std::move(ids));
    }

    /// Over the objects of these numbers.
    static ComPtr<Enum> Make(const Core& core, const Kind& kind, std::vector<long long> ids)
    {
        auto shared = std::make_shared<const std::vector<long long>>(std::move(ids));
        return ComPtr<Enum>(new RowEnumerator(core, kind, std::move(shared), 0));
    }

    /// S_OK with as many objects as wanted, S_FALSE with fewer.
    HRESULT STDMETHODCALLTYPE RemNext(ULONG wanted, Element** elements, ULONG* fetched) override
    {
        return Call(
            kMethods.remNext, std::tuple(Batch{wanted, elements, fetched}),
            [&] {
                const auto count = static_cast<ULONG>(std::min<std::size_t>(wanted, Left()));
                std::vector<ComPtr<Element>> batch;
                for (ULONG i = 0; i < count; ++i)
                    batch.push_back(ElementAt(m_next + i));
                std::transform(batch.begin(), batch.end(), elements,
                               [](auto& object) { return object.detach(); });
                m_next += count;
                *fetched = count;
                return count == wanted ? S_OK : S_FALSE;
            },
            wanted);
    }

    /// S_FALSE if there were fewer to skip.
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override
    {
        return Call(
            kMethods.skip, std::tuple(),
            [&] {
                const std::size_t skipped = std::min<std::size_t>(count, Left());
                m_next += skipped;
                return skipped == count ? S_OK : S_FALSE;
            },
            count);
    }

    HRESULT STDMETHODCALLTYPE Reset() override
    {
        return Call(kMethods.reset, std::tuple(), [&] {
            m_next = 0;
            return S_OK;
        });
    }

    /// A second enumerator at the same position.
    HRESULT STDMETHODCALLTYPE Clone(Enum** clone) override
    {
        return Call(kMethods.clone, std::tuple(Out{clone}), [&] {
            *clone = ComPtr<Enum>(new RowEnumerator(m_core, m_kind, m_ids, m_next)).detach();
            return S_OK;
        });
    }

    /// S_FALSE and null behind the last object.
    HRESULT STDMETHODCALLTYPE GetSingleNext(Element** element) override
    {
        return Call(kMethods.getSingleNext, std::tuple(Out{element}), [&] {
            if (Left() == 0)
                return S_FALSE;
            *element = ElementAt(m_next).detach();
            ++m_next;
            return S_OK;
        });
    }

private:
    friend class HostObject<RowEnumerator, Enum>;
    using Ids = std::shared_ptr<const std::vector<long long>>;
    static constexpr const EnumMethods& kMethods = kEnumMethods<Enum>;

    RowEnumerator(Core core, const Kind& kind, Ids ids, std::size_t next)
        : m_core(std::move(core)), m_kind(kind), m_ids(std::move(ids)), m_next(next)
    {
    }
    ~RowEnumerator() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept
    {
        return HostCall(
            *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
    }
    ComPtr<Element> ElementAt(std::size_t index) const
    {
        return MakeElement(m_core, m_kind, (*m_ids)[index]);
    }
    std::size_t Left() const { return m_ids->size() - m_next; }

    const Core m_core;
    const Kind& m_kind;
    const Ids m_ids;
    std::size_t m_next;
};
} // namespace refhost
