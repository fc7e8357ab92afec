// The script service when the host calls back: it releases its last reference, or calls the service again.
#include "ManagerFixture.h"

#include "Bstr.h"
#include "ComModule.h"

#include <utility>

namespace
{
class ScriptReentry : public ManagerFixture
{
protected:
    /// Runs `back` once, at the host's call `at`.
    void During(const std::string& at, std::function<void()> back)
    {
        host.onCall = [this, at, back](const std::string& call) {
            if (call == at && !std::exchange(wasCalledBack, true))
                back();
        };
    }

    /// Releases the last reference; the component must stay alive.
    void GiveUp()
    {
        const LONG before = ComModule::Get().LockCount();
        manager.reset();
        EXPECT_EQ(ComModule::Get().LockCount(), before) << "destroyed inside its own call";
    }

    HRESULT CallAgain(XQPComVariant& inner)
    {
        const Bstr type(L"machine");
        return manager->GetScriptsForAction(&query, set.get(), type.get(), nullptr, 7, 1, &inner);
    }

    bool wasCalledBack = false;
    const ComPtr<MemoryObject> weld = Script("weld");
};

TEST_F(ScriptReentry, TheHostMayReleaseTheServiceWhileItReadsActions)
{
    Finds({Action("a1", weld), Action("a2", weld)});
    const LONG without = ComModule::Get().LockCount() - 1;
    During("a1.GetAttribute(script)", [this] { GiveUp(); });
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}, {"<a2>", "<weld>"}}));
    EXPECT_EQ(ComModule::Get().LockCount(), without) << "it is destroyed at the end of the call";
}

TEST_F(ScriptReentry, TheHostMayReleaseTheServiceWhileItReadsCommands)
{
    Finds({ScriptCommand("c1", L"A", weld), ScriptCommand("c2", L"B", weld)});
    During("c1.GetAttribute(m_strPrompt)", [this] { GiveUp(); });
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"A", "<weld>", "1"}, {"B", "<weld>", "1"}}));
}

TEST_F(ScriptReentry, TheHostMayReleaseTheServiceWhileItSearches)
{
    Finds({Action("a1", weld)});
    During("ResetSearch(0)", [this] { GiveUp(); });
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
}

TEST_F(ScriptReentry, AnAddRefWhileTheArrayIsFilledMayCallAgain)
{
    // Three pairs from a call before, three of the outer call, three of the inner: the list grows while the
    // array is filled.
    Finds({Action("a1", weld), Action("a2", weld), Action("a3", weld)});
    ASSERT_EQ(GetActions(), S_OK);
    const TextRows three = Rows();
    TextRows six = three;
    six.insert(six.end(), three.begin(), three.end());

    XQPComVariant inner;
    std::vector<std::vector<char>> claimed;
    int fetched = 0;
    host.onCall = [&](const std::string& call) {
        fetched += call == "RemNext(1)" ? 1 : 0;
    };
    host.onReference = [&] {
        // After the last fetch of the walk, references are added for the array.
        if (fetched != 4 || std::exchange(wasCalledBack, true))
            return;
        Finds({Action("b1", weld), Action("b2", weld), Action("b3", weld)});
        EXPECT_EQ(CallAgain(inner), S_OK);
        // Memory freed by the call is allocated again and overwritten.
        for (int block = 0; block < 256; ++block)
            claimed.emplace_back(128, 'x');
    };
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), six) << "the inner call's pairs are not in the outer array";
    const TextRows nine = RowsOf(inner.Value(), [this](IUnknown* object) { return host.NameOf(object); });
    ASSERT_EQ(nine.size(), 9u);
    EXPECT_EQ(nine[8], (Row{"<b3>", "<weld>"}));
}

TEST_F(ScriptReentry, AReadOfAScriptMayCallAgain)
{
    Finds({Action("a1", weld), Action("a2", weld)});
    XQPComVariant inner;
    During("a1.GetAttribute(script)", [&] {
        const ComPtr<MemoryEnum> outer = query.result;
        Finds({Action("b1", weld)});
        EXPECT_EQ(CallAgain(inner), S_OK);
        query.result = outer;
    });
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<b1>", "<weld>"}, {"<a1>", "<weld>"}, {"<a2>", "<weld>"}}));
    EXPECT_EQ(RowsOf(inner.Value(), [this](IUnknown* object) { return host.NameOf(object); }),
              (TextRows{{"<b1>", "<weld>"}}));
}
} // namespace
