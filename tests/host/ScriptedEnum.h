// An enumerator that answers as its script says, for tests of walks.
#pragma once

#include "EnumWalk.h"

#include <cstddef>
#include <utility>
#include <vector>

/// An element that counts its references; the test itself holds the first.
template <class Element>
class CCountedElement final : public Element
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override
    {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }

    ULONG m_references = 1;
};

/// One call's answer. `reported` is the fetched count written, by default the number of objects.
template <class Element>
struct Answer
{
    static constexpr ULONG kAsGiven = 0xFFFFFFFF;

    HRESULT status = S_OK;
    std::vector<Element*> objects;
    ULONG reported = kAsGiven;
};

/// Returns one answer for each call, and the last one for all further calls. Every object that it returns is
/// counted.
template <class Enumerator>
class CScriptedEnum final : public Enumerator
{
public:
    using Element = qptools::EnumElement<Enumerator>;
    using Script = std::vector<Answer<Element>>;

    explicit CScriptedEnum(Script script) : m_script(std::move(script)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override
    {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }

    HRESULT STDMETHODCALLTYPE RemNext(ULONG count, Element** objects, ULONG* fetched) override
    {
        const Answer<Element>& answer = NextAnswer();
        m_counts.push_back(count);
        for (ULONG i = 0; i < count; ++i)
            m_bufferWasZeroed = m_bufferWasZeroed && objects[i] == nullptr;
        for (std::size_t i = 0; i < answer.objects.size(); ++i)
            HandOut(answer.objects[i], &objects[i]);
        *fetched = answer.reported == Answer<Element>::kAsGiven ? static_cast<ULONG>(answer.objects.size())
                                                                : answer.reported;
        return answer.status;
    }
    HRESULT STDMETHODCALLTYPE GetSingleNext(Element** object) override
    {
        const Answer<Element>& answer = NextAnswer();
        ++m_singleCalls;
        m_bufferWasZeroed = m_bufferWasZeroed && *object == nullptr;
        if (!answer.objects.empty())
            HandOut(answer.objects[0], object);
        return answer.status;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE Reset() override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE Clone(Enumerator**) override { return Unexpected(); }

    std::size_t Calls() const { return m_next; }

    std::vector<ULONG> m_counts; ///< the first argument of every RemNext
    int m_singleCalls = 0;
    int m_unexpectedCalls = 0;
    bool m_bufferWasZeroed = true;
    ULONG m_references = 1;

private:
    const Answer<Element>& NextAnswer()
    {
        const std::size_t index = m_next < m_script.size() ? m_next : m_script.size() - 1;
        ++m_next;
        return m_script[index];
    }
    static void HandOut(Element* object, Element** target)
    {
        if (object)
            object->AddRef();
        *target = object;
    }
    HRESULT Unexpected()
    {
        ++m_unexpectedCalls;
        return E_NOTIMPL;
    }

    Script m_script;
    std::size_t m_next = 0;
};
