#include "InModule.h"

#include "CountedObject.h"
#include "TestComponents.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace
{
/// Runs the test's own `s_body` in its method.
class Called final : public ComObject<Called, ITestNumber>
{
public:
    Called() { ++s_alive; }
    ~Called()
    {
        --s_alive;
        s_depthAtEnd = CUiState::Depth();
    }
    HRESULT STDMETHODCALLTYPE GetNumber(LONG* /*number*/) override { return InModule(*this, s_body); }

    static int s_alive;
    static int s_depthAtEnd;
    static std::function<HRESULT()> s_body;
};

int Called::s_alive = 0;
int Called::s_depthAtEnd = -1;
std::function<HRESULT()> Called::s_body;

ITestNumber* MakeCalled()
{
    ComPtr<ITestNumber> made;
    CreateComObject<Called>(nullptr, __uuidof(ITestNumber), made.putVoid());
    return made.detach();
}

HRESULT CallWith(std::function<HRESULT()> body)
{
    Called::s_body = std::move(body);
    ComPtr<ITestNumber> object;
    object.attach(MakeCalled());
    return object->GetNumber(nullptr);
}

/// An outer object that a single reference keeps, and that has its inner object answer.
class Outer final : public CountedObject<IUnknown>
{
public:
    explicit Outer(bool& ended) : m_ended(ended)
    {
        AddRef(); // the creator's own, which outlives those of the inner object's creation
        CreateComObject<Called>(this, __uuidof(IUnknown), m_inner.putVoid());
    }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        return m_inner->QueryInterface(iid, result);
    }

private:
    ~Outer() override
    {
        AddRef(); // the end of the inner object must not end this one again
        m_ended = true;
    }

    bool& m_ended;
    ComPtr<IUnknown> m_inner;
};
} // namespace

TEST(InModule, RunsTheBodyInsideTheStateAndReturnsItsStatus)
{
    int depth = 0;
    EXPECT_EQ(CallWith([&] {
                  depth = CUiState::Depth();
                  return S_FALSE;
              }),
              S_FALSE);
    EXPECT_EQ(depth, 1);
    EXPECT_EQ(CUiState::Depth(), 0);
}

TEST(InModule, EveryExceptionBecomesAStatus)
{
    EXPECT_EQ(CallWith([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(CallWith([]() -> HRESULT { throw ComException(E_ABORT); }), E_ABORT);
    EXPECT_EQ(CallWith([]() -> HRESULT { throw std::runtime_error("x"); }), E_FAIL);
    EXPECT_EQ(CUiState::Depth(), 0);
}

TEST(InModule, TheComponentOutlivesItsLastReferenceInsideACall)
{
    ITestNumber* const object = MakeCalled();
    int aliveAfterRelease = 0;
    ULONG left = 0;
    Called::s_body = [&] {
        left = object->Release();
        aliveAfterRelease = Called::s_alive;
        return S_OK;
    };
    EXPECT_EQ(object->GetNumber(nullptr), S_OK);
    EXPECT_EQ(left, 1u) << "the one of the call";
    EXPECT_EQ(aliveAfterRelease, 1);
    EXPECT_EQ(Called::s_alive, 0);
    EXPECT_EQ(Called::s_depthAtEnd, 0) << "destroyed outside the state";
}

TEST(InModule, AnAggregateOutlivesItsLastReferenceInsideACall)
{
    bool ended = false;
    auto* const outer = new Outer(ended);
    ComPtr<ITestNumber> inner;
    ASSERT_EQ(inner.queryFrom(outer), S_OK);
    outer->Release();
    ITestNumber* const last = inner.detach();
    bool endedInside = true;
    int aliveInside = 0;
    Called::s_body = [&] {
        last->Release();
        endedInside = ended;
        aliveInside = Called::s_alive;
        return S_OK;
    };
    EXPECT_EQ(last->GetNumber(nullptr), S_OK);
    EXPECT_FALSE(endedInside);
    EXPECT_EQ(aliveInside, 1);
    EXPECT_TRUE(ended);
    EXPECT_EQ(Called::s_alive, 0);
}

TEST(InModule, AFailedCallReleasesTheComponentToo)
{
    ITestNumber* const object = MakeCalled();
    Called::s_body = [&]() -> HRESULT {
        object->Release();
        throw std::bad_alloc();
    };
    EXPECT_EQ(object->GetNumber(nullptr), E_OUTOFMEMORY);
    EXPECT_EQ(Called::s_alive, 0);
}

TEST(InModule, CallsNestAndEachHoldsTheComponent)
{
    ITestNumber* const object = MakeCalled();
    int depth = 0;
    Called::s_body = [&] {
        Called::s_body = [&] {
            object->Release();
            depth = CUiState::Depth();
            return S_OK;
        };
        return object->GetNumber(nullptr);
    };
    EXPECT_EQ(object->GetNumber(nullptr), S_OK);
    EXPECT_EQ(depth, 2);
    EXPECT_EQ(Called::s_alive, 0);
}
