// Every call of the bookmark dialog on the manager, the gateway, the query and the key store fails once, in
// each way a call can: the dialog can be left, no reference to the host is kept, and no bookmark is lost but
// by a failure that says so. The other calls: navigator_faults_test.cpp.
#include "BookmarkUser.h"
#include "LogFolder.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "RegisteredProgId.h"
#include "StoreWords.h"

#include "qptools.h"

#include <gtest/gtest.h>

namespace
{
bool Has(const std::string& line, const char* part)
{
    return line.find(part) != std::string::npos;
}

/// The ways begin with different calls, so that most calls fail in one of them.
struct FaultWay
{
    const char* name;
    std::size_t first;
    ScriptedCall call;
};
const FaultWay kFaultWays[] = {{"Failure", 0, Failed()},
                               {"FailureAfterAll", 1, {.status = E_FAIL}},
                               {"PositiveStatus", 2, {.status = S_FALSE}},
                               {"Null", 3, {.givesNull = true}}};

std::ostream& operator<<(std::ostream& stream, const FaultWay& way)
{
    return stream << way.name;
}

class BookmarkFaults : public testing::TestWithParam<FaultWay>
{
protected:
    BookmarkFaults()
    {
        EXPECT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
        view->Show(L"$7)");
        host.Views({view});
    }

    ULONG Held()
    {
        return host.Manager().References() + host.Gateway().References() + host.Query().References() +
               host.Store().References() + host.Expander().References();
    }

    /// Opens, does each action once, and leaves. Then nothing is kept but the five pointers, and they go with
    /// the next dialog. Returns the content of the store.
    Calls Run()
    {
        host.Store().Clear();
        for (const wchar_t* project : {L"$7)", L"$8)"})
            for (int number = 0; number < 3; ++number)
                host.Store().Bookmark(project, number, (L"b" + std::to_wstring(number)).c_str(),
                                      MemoryHost::TreeString(kObjects[number]).c_str());
        host.calls.clear();
        const int objects = host.LiveObjects();
        {
            const PatientUser user(bookmark_user::kAll);
            EXPECT_EQ(bookmarks->ShowDialog(&host.Manager()), S_OK);
        }
        EXPECT_EQ(host.LiveObjects(), objects);
        EXPECT_LE(Held(), 5u);
        const Calls content = ShortKeys(host.Store().Content());
        const Calls calls = host.calls;
        {
            const PatientUser user({&bookmark_user::Leave});
            EXPECT_EQ(bookmarks->ShowDialog(nullptr), S_OK);
        }
        EXPECT_EQ(Held(), 0u);
        host.calls = calls;
        return content;
    }

    /// The double that a call of the record is on; null for those without a script.
    CallScript* ScriptOf(const std::string& call)
    {
        if (call.starts_with("manager."))
            return &host.Manager().script;
        if (call.starts_with("gateway."))
            return &host.Gateway().script;
        if (call.starts_with("store."))
            return &host.Store().script;
        return call.starts_with("GetObjectById") ? &host.Query().script : nullptr;
    }

    /// A project whose tree strings cannot be read is looked for a million times: tested elsewhere.
    static bool IsEndless(const std::string& call)
    {
        return Has(call, "store.GetValue") && Has(call, "gotoitemtree");
    }

    /// The content after a run in which `call` failed; `whole` is that after one without failures.
    static void CheckStore(const std::string& call, const Calls& content, const Calls& whole)
    {
        // Without one of the services the dialog is empty, and nothing was done.
        const bool isService = call.starts_with("manager.") || call.starts_with("gateway.");
        EXPECT_TRUE(!isService || content == whole || content.size() == 12)
            << testing::PrintToString(content);
        // The other project is not touched by any action.
        const bool concernsIt = Has(call, "$8)") || Has(call, "GetObjectById") || Has(call, "GetSubKeys");
        const auto left = std::count_if(content.begin(), content.end(),
                                        [](const std::string& line) { return Has(line, "$8)"); });
        EXPECT_TRUE(concernsIt || left == 6) << testing::PrintToString(content);
    }

    void ClearScripts()
    {
        for (CallScript* script :
             {&host.Manager().script, &host.Gateway().script, &host.Store().script, &host.Query().script})
            script->Clear();
    }

    static constexpr const wchar_t* kObjects[] = {L"$71)", L"$72)", L"$73)"};

    LogFolder folder;
    MemoryHost host;
    ModuleUnderTest module;
    const RegisteredProgId viewClass{MemoryView::kProgId, MemoryView::kClass};
    const RegisteredProgId expanderClass{MemoryExpander::kProgId, MemoryExpander::kClass};
    const ComPtr<MemoryView> view = host.View("view");
    const ComPtr<MemoryObject> objects[5] = {host.Known(L"$7)", L"North"), host.Known(L"$8)", L"South"),
                                             host.Known(L"$71)", L"a"), host.Known(L"$72)", L"b"),
                                             host.Known(L"$73)", L"c")};
    ComPtr<IXBookMark> bookmarks;
};

TEST_P(BookmarkFaults, LeaveADialogThatEndsAndAStoreAsItWas)
{
    ClearScripts();
    const Calls whole = Run();
    const Calls calls = host.calls;
    for (const char* action : {"ExpandTree", "PrepareScope", "SetValue", "WriteStringList"})
        ASSERT_TRUE(std::any_of(calls.begin(), calls.end(), [&](const std::string& call) {
            return Has(call, action);
        })) << action;
    std::map<CallScript*, std::size_t> numbers;
    std::size_t swept = 0;
    for (const std::string& call : calls)
    {
        CallScript* const script = ScriptOf(call);
        if (!script)
            continue;
        const std::size_t number = numbers[script]++;
        if (IsEndless(call) ||
            number % bookmark_user::kEachFails != GetParam().first % bookmark_user::kEachFails)
            continue;
        SCOPED_TRACE("call " + std::to_string(number) + ": " + call);
        ClearScripts();
        script->Set("", number, GetParam().call);
        const Calls content = Run();
        ++swept;
        CheckStore(call, content, whole);
    }
    EXPECT_GT(swept, 40 / bookmark_user::kEachFails);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, BookmarkFaults, testing::ValuesIn(kFaultWays),
                         [](const auto& info) { return std::string(info.param.name); });
} // namespace
