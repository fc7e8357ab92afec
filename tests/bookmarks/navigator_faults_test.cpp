// Every call of the bookmark dialog on objects, on the views of the navigator and on its tree expander fails
// once, in each way a call can: the dialog can be left, no reference to the host is kept, and no bookmark is
// lost. The calls on the host's services: bookmark_faults_test.cpp.
#include "BookmarkUser.h"
#include "GateSweep.h"
#include "LogFolder.h"
#include "ModuleUnderTest.h"
#include "NavigatorView.h"
#include "RegisteredProgId.h"
#include "StoreWords.h"
#include "TreeExpander.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace
{
using Lines = GateSweep::Lines;

bool Has(const std::string& line, const char* part)
{
    return line.find(part) != std::string::npos;
}

class NavigatorFaults : public testing::TestWithParam<Way>
{
protected:
    NavigatorFaults()
    {
        EXPECT_EQ(m_module.Create(CLSID_XBookMark, m_bookmarks), S_OK);
        for (const wchar_t* project : {L"North", L"South"})
        {
            m_plant->Add(L"project", project);
            m_plant->ShowProject(project, true);
        }
        for (const wchar_t* cell : kCells)
            m_plant->Add(L"plannode", cell);
        Run(); // the host creates its services once and keeps them
    }

    /// Does each action once in a dialog where the n-th call fails. Returns the calls.
    Lines Run(long long n)
    {
        return GateSweep(*m_plant).Run(n, GetParam(), [this] { Run(); });
    }

    /// The bookmarks that are left.
    Lines Left() const
    {
        Lines left;
        std::copy_if(content.begin(), content.end(), std::back_inserter(left),
                     [](const std::string& line) { return Has(line, "gotoitem"); });
        return left;
    }

    static bool IsSwept(const std::string& call)
    {
        return !Has(call, "IQPFObjectManager::") && !Has(call, "IQPIPDClient::") &&
               !Has(call, "IQPSessionDataManager::") && !Has(call, "::GetObjectById(");
    }

    static constexpr const wchar_t* kCells[] = {L"Weld cell", L"Drill cell", L"Paint cell"};

    Lines content; ///< of the key store, after the actions

private:
    /// Shows the dialog, does each action once and leaves it; the next dialog releases what is kept.
    void Run()
    {
        Fill();
        Show(m_manager.get(), bookmark_user::kAll);
        content = m_plant->StoreContent();
        Show(nullptr, {&bookmark_user::Leave});
    }
    void Fill()
    {
        ComPtr<IQPFObject> object;
        EXPECT_EQ(m_manager->GetObject(kStoreClass, 1, object.put()), S_OK);
        ComPtr<IQPSessionDataManager> store;
        EXPECT_EQ(store.queryFrom(object.get()), S_OK);
        for (const LONG scope : {2, 4})
            for (const wchar_t* key : {L"QPR-Navigator", L"common"})
                EXPECT_GE(store->DeleteKey(XQPComBSTR(key), scope), 0);
        for (const wchar_t* project : {L"North", L"South"})
            for (const wchar_t* cell : kCells)
                m_plant->AddBookmark(project, m_plant->Find(L"plannode", cell), cell);
    }
    void Show(IQPFObjectManager* host, const PatientUser::Steps& steps)
    {
        const PatientUser user(steps);
        EXPECT_EQ(m_bookmarks->ShowDialog(host), S_OK);
    }

    const LogFolder m_folder;
    const ModuleUnderTest m_module;
    const std::unique_ptr<refhost::Plant> m_plant = refhost::Plant::OpenMemory();
    const ComPtr<IQPFObjectManager> m_manager = m_plant->ObjectManager();
    const RegisteredProgId m_viewClass{refhost::kNavigatorViewProgId, refhost::kNavigatorViewClass};
    const RegisteredProgId m_expanderClass{refhost::kTreeExpanderProgId, refhost::kTreeExpanderClass};
    ComPtr<IXBookMark> m_bookmarks;
};
} // namespace

TEST_P(NavigatorFaults, LeaveADialogThatEndsAndTheBookmarks)
{
    const Lines calls = Run(0);
    const Lines whole = Left();
    std::size_t swept = 0;
    std::size_t number = static_cast<std::size_t>(GetParam().fault);
    for (std::size_t index = 0; index < calls.size() && !HasFailure(); ++index)
    {
        if (!IsSwept(calls[index]) || number++ % bookmark_user::kEachFails != 0)
            continue;
        SCOPED_TRACE(calls[index]);
        Run(static_cast<long long>(index) + 1);
        ++swept;
        // A project without a name is listed first: the actions are done in this one.
        EXPECT_TRUE(Left() == whole ||
                    (Has(calls[index], "<project South>") && Left().size() == whole.size()))
            << testing::PrintToString(content);
    }
    EXPECT_GE(swept, 20 / bookmark_user::kEachFails);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, NavigatorFaults, testing::ValuesIn(kWays), NameOfWay);
