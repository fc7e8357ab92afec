// ApplyEnhanceCopy on hosts that refuse, fail, throw or call back: it always returns S_OK, and the log book
// has the line.
#include "BareList.h"
#include "ValuesFixture.h"

#include <functional>
#include <new>
#include <stdexcept>
#include <utility>

namespace
{
using namespace copy_dialog;

/// An object, for arrays whose end is to be seen.
class Counted final : public OwnedObject<IUnknown>
{
};

/// A copy that answers SetAttributes with a status and an array, which holds a reference.
class AnsweringCopy final : public BareObject
{
public:
    AnsweringCopy(MemoryType* type, HRESULT status) : m_type(type), m_status(status) {}

    Counted held;
    SAFEARRAY* result = nullptr;

    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType** type) override
    {
        return ComPtr<IQPType>(m_type).copyTo(type);
    }
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY**, SAFEARRAY** results) override
    {
        result = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
        LONG index = 0;
        EXPECT_EQ(SafeArrayPutElement(result, &index, &held), S_OK);
        *results = result;
        return m_status;
    }

private:
    MemoryType* const m_type;
    const HRESULT m_status;
};

class ApplyFailures : public ValuesFixture
{
protected:
    void SetUp() override { EnterForStations(Sets(kOrder, L"next")); }

    bool Got(const ComPtr<MemoryObject>& object) const
    {
        return object->ValueText(L"Order") == "BSTR 'next'";
    }

    /// Applies the values to one copy that answers so, which is gone at the end.
    ULONG ReferencesLeftBy(HRESULT status)
    {
        AnsweringCopy answering(host.Config().Find(L"Station"), status);
        BareList copies({&answering});
        EXPECT_EQ(copy->ApplyEnhanceCopy(&copies), S_OK);
        EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
        EXPECT_EQ(answering.Count(), 0u);
        const ULONG left = answering.held.Count();
        if (left > 0)
            SafeArrayDestroy(answering.result);
        return left;
    }

    const ComPtr<MemoryObject> drill = host.Node(L"drill", L"Station");
    const std::string refusedLine =
        "note\tOrvoexplorer\tCEnhancedCopyDialog::ApplyAttributeSettings\t705\t-\t-\t"
        "pDBO->SetAttributes(pNameValuePairs,&pSafeArrayResult";
    const std::string thrownLine =
        "error\tQPTools\tApplyEnhanceCopy()\t688\t0x8000FFFF\t-\tUnExpected Behaviour";
};

TEST_F(ApplyFailures, ASuccessIsNotReported)
{
    Apply({press});
    press->givesArrays = false;
    Apply({press});
    EXPECT_TRUE(Got(press));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ApplyFailures, AnyOtherStatusIsReportedAndTheNextCopyServed)
{
    press->givesArrays = false; // it would be left alone
    for (const HRESULT status : {E_FAIL, E_INVALIDARG, S_FALSE, HRESULT{2}})
    {
        press->writeStatus = status;
        Apply({press, lathe});
        EXPECT_EQ(host.calls.back(), "lathe.SetAttributes(Order = BSTR 'next')");
    }
    EXPECT_EQ(logBook.Entries(), Entries(4, refusedLine));
}

TEST_F(ApplyFailures, EachCopyThatFailsHasALine)
{
    press->writeStatus = lathe->writeStatus = E_FAIL;
    Apply({press, lathe, press});
    EXPECT_EQ(logBook.Entries(), Entries(3, refusedLine));
}

TEST_F(ApplyFailures, WhatASuccessReportsInItsArrayIsNotRead)
{
    press->RefuseWrite(L"Order", E_ACCESSDENIED);
    Apply({press});
    EXPECT_EQ(press->ValueText(L"Order"), "EMPTY");
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ApplyFailures, TheResultsOfASuccessAreDestroyed)
{
    EXPECT_EQ(ReferencesLeftBy(S_OK), 0u);
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ApplyFailures, TheResultsOfAnyOtherStatusAreLeftAlone)
{
    for (const HRESULT status : {E_FAIL, S_FALSE})
        EXPECT_EQ(ReferencesLeftBy(status), 1u) << status;
    EXPECT_EQ(logBook.Entries(), Entries(2, refusedLine));
}

TEST_F(ApplyFailures, AnExceptionOfAWriteEndsTheRest)
{
    struct Own
    {
    };
    for (const std::function<void()>& thrower : std::initializer_list<std::function<void()>>{
             [] { throw 7; }, [] { throw std::bad_alloc(); }, [] { throw std::runtime_error("broken"); },
             [] {
                 throw Own();
             }})
    {
        press->Fail(L"Order", S_FALSE);
        drill->Fail(L"Order", S_FALSE);
        lathe->onWrite = thrower;
        Apply({press, lathe, drill});
        EXPECT_TRUE(Got(press)) << "what was written stays";
        EXPECT_EQ(drill->ValueText(L"Order"), "EMPTY");
    }
    EXPECT_EQ(logBook.Entries(), Entries(4, thrownLine));
}

TEST_F(ApplyFailures, AnExceptionOfAnyCallIsOneLine)
{
    Apply({press, lathe});
    const Calls whole = host.calls;
    for (std::size_t failing = 0; failing < whole.size(); ++failing)
    {
        std::size_t count = 0;
        host.onCall = [&](const std::string&) {
            if (count++ == failing)
                throw 7;
        };
        Apply({press, lathe});
        host.onCall = nullptr;
        EXPECT_EQ(host.calls, Calls(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(failing) + 1));
    }
    EXPECT_EQ(logBook.Entries(), Entries(whole.size(), thrownLine));
    EXPECT_EQ(host.calls, whole) << "the last one throws after all others";
}

TEST_F(ApplyFailures, AfterAnExceptionTheNextCallIsWhole)
{
    const ULONG before = References(drill);
    lathe->onWrite = [] {
        throw 7;
    };
    Apply({drill, lathe});
    lathe->onWrite = nullptr;
    EXPECT_TRUE(Got(drill));
    Apply({press});
    EXPECT_TRUE(Got(press));
    EXPECT_EQ(References(drill), before);
    EXPECT_EQ(logBook.Entries(), Entries{thrownLine});
}

// Hosts that call back.

TEST_F(ApplyFailures, TheObjectsMayBeDeletedMeanwhile)
{
    press->onWrite = [this] {
        EXPECT_EQ(copy->DeleteObjects(), S_OK);
    };
    Apply({press, lathe});
    EXPECT_TRUE(Got(press) && Got(lathe));
}

TEST_F(ApplyFailures, TheComponentMayBeReleasedMeanwhile)
{
    press->onWrite = [this] {
        copy->DeleteObjects();
        copy.reset();
    };
    const auto copies = host.List({press, lathe}, "copies");
    EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
    EXPECT_TRUE(Got(press) && Got(lathe));
}

TEST_F(ApplyFailures, ItMayBeCalledForOtherCopiesMeanwhile)
{
    press->onWrite = [this] {
        press->onWrite = nullptr;
        EXPECT_EQ(copy->ApplyEnhanceCopy(host.List({drill}, "others").get()), S_OK);
    };
    Apply({press, lathe});
    EXPECT_TRUE(Got(press) && Got(drill) && Got(lathe));
}

TEST_F(ApplyFailures, ItMayBeCalledForNoCopiesDuringAWalk)
{
    bool isFirst = true;
    host.onCall = [&](const std::string& call) {
        if (call == "press.GetTypeName()" && std::exchange(isFirst, false))
        {
            EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
        }
    };
    Apply({press, lathe});
    host.onCall = nullptr;
    EXPECT_TRUE(Got(press) && Got(lathe));
}
} // namespace
