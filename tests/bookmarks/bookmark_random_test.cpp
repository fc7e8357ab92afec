// Thousands of random acts in the bookmark dialog, on a store that fails, compared with a model.
#include "BookmarkModel.h"
#include "ListingFixture.h"

#include <random>

namespace
{
using namespace bookmark_dialog;

/// Fewer where windows are the system's.
constexpr int kSequences = sizeof(wchar_t) == 4 ? 10'000 : 200;
constexpr const wchar_t* kProjects[] = {L"$7)", L"$8)", L"$9)"};
constexpr const wchar_t* kProjectNames[] = {L"North", L"South", L"West"};
constexpr const wchar_t* kObjects[] = {L"$71)", L"$72)", L"$81)", L"$91)"};
constexpr const char* kMethods[] = {"GetStringList", "DeleteKey",  "WriteStringList",
                                    "SetValue",      "GetSubKeys", "PrepareScope"};

class BookmarksAtRandom : public ListingFixture
{
protected:
    BookmarksAtRandom()
    {
        host.recording = false;
        for (std::size_t project = 0; project < std::size(kProjects); ++project)
            model.ids[kProjectNames[project]] = kProjects[project];
        Refill();
    }

    unsigned Below(std::size_t bound) { return m_random() % static_cast<unsigned>(bound); }
    std::wstring NewName() { return L"n" + std::to_wstring(++m_names); }

    /// The navigator writes new bookmarks.
    void Refill()
    {
        host.Store().Clear();
        model.store.lists.clear();
        host.Store().Set(4, L"common", L"expandbrowser", L"1");
        for (const wchar_t* project : kProjects)
        {
            const int count = static_cast<int>(Below(5));
            for (int entry = 0, number = 0; entry < count; ++entry, number += 1 + (Below(6) == 0 ? 1 : 0))
            {
                const std::wstring name = NewName();
                const std::wstring tree = MemoryHost::TreeString(kObjects[Below(std::size(kObjects))]);
                host.Store().Bookmark(project, number, name.c_str(), tree.c_str());
                const std::wstring digits = std::to_wstring(number);
                model.store.Write(BookmarkModel::Names(project), L"gotoitemname" + digits, name);
                model.store.Write(BookmarkModel::Trees(project), digits, tree);
            }
        }
    }

    /// One of the next calls of the store fails.
    void FailOne()
    {
        const std::string method = kMethods[Below(std::size(kMethods))];
        const std::size_t call = host.Store().script.Count(method) + Below(4);
        const bool acts = Below(3) == 0;
        host.Store().script.Set(method, call, {.status = E_FAIL, .acts = acts});
        model.store.scripted[{method, call}] = acts ? StoreModel::Way::FailsAfterAll : StoreModel::Way::Fails;
    }

    /// An object or a project goes, or is there again.
    void Turn(const std::wstring& id, const ComPtr<MemoryObject>& object)
    {
        if (model.gone.erase(id) > 0)
            host.Query().Set(id, object);
        else if (Below(4) == 0)
        {
            model.gone.insert(id);
            host.Query().Set(id, nullptr, S_FALSE);
        }
    }

    /// Each method has been called as often as in the model, and the store has the same content.
    void CompareStore()
    {
        for (const char* method : kMethods)
            ASSERT_EQ(host.Store().script.Count(method), model.store.counts[method]) << method;
        ASSERT_EQ(host.Store().script.Count("GetValue"), model.store.counts["GetValue"]);
        Calls content = Content();
        std::erase_if(content, [](const std::string& line) { return line.starts_with("4 "); });
        ASSERT_EQ(content, model.store.Content());
    }
    void Compare(const DialogView& view)
    {
        CompareStore();
        Texts names;
        for (const BookmarkModel::Row& row : model.rows)
            names.push_back(row.name);
        std::sort(names.begin(), names.end());
        Texts shown = view.Column(kList, 0);
        std::sort(shown.begin(), shown.end());
        ASSERT_EQ(shown, names);
        ASSERT_EQ(view.Items(kProject), model.projects);
        // A listing would look for what is not there a million times.
        if (!model.IsConsistent())
            Refill();
    }

    /// The tree string of the row.
    std::wstring TreeOf(const DialogView& view, int row) const
    {
        for (const BookmarkModel::Row& each : model.rows)
            if (each.name == view.Cell(kList, row, 0))
                return each.tree;
        ADD_FAILURE() << "row " << row << " is not in the model";
        return {};
    }

    /// A click on a row, after which the buttons are enabled.
    void Select(DialogView& view)
    {
        m_row = model.rows.empty() ? -1 : static_cast<int>(Below(model.rows.size()));
        if (m_row >= 0)
            view.SelectRow(kList, m_row);
    }

    bool Choose(DialogView& view)
    {
        if (model.projects.size() < 2)
            return false;
        const std::size_t project =
            (model.current + 1 + Below(model.projects.size() - 1)) % model.projects.size();
        model.Choose(project);
        view.Choose(kProject, static_cast<int>(project));
        return true;
    }
    bool Rename(DialogView& view)
    {
        if (m_row < 0)
            return false;
        const std::wstring name = NewName();
        model.Rename(TreeOf(view, m_row), name);
        view.EditLabel(kList, m_row, L"  " + name + L" ");
        view.Press(VK_RETURN);
        return true;
    }
    bool Delete(DialogView& view)
    {
        if (m_row < 0)
            return false;
        const bool agrees = Below(4) != 0;
        const int last = agrees && Below(3) == 0 ? static_cast<int>(model.rows.size()) - 1 : m_row;
        Texts trees = {TreeOf(view, m_row)};
        for (int row = m_row + 1; row <= last; ++row)
        {
            LVITEMW item{};
            item.state = item.stateMask = LVIS_SELECTED;
            SendMessageW(view.Control(kList), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(&item));
            trees.push_back(TreeOf(view, row));
        }
        ExpectBox(kDeleteTitle, trees.size() == 1 ? kDeleteOne : kDeleteSeveral, agrees ? IDYES : IDNO);
        if (agrees)
            model.Delete(trees);
        view.Click(kDelete);
        return agrees;
    }
    // Seldom: the store is soon empty.
    bool DeleteAll(DialogView& view)
    {
        if (model.projects.empty() || Below(4) != 0)
            return false;
        const bool agrees = Below(3) != 0;
        ExpectBox(kDeleteAllTitle,
                  L"Do you really want to delete all the bookmarks from the project ' " +
                      model.projects[model.current] + L" ' ?",
                  agrees ? IDYES : IDNO);
        if (agrees)
            model.DeleteAll();
        view.Click(kDeleteAll);
        return agrees;
    }
    void Act(DialogView& view)
    {
        using Method = bool (BookmarksAtRandom::*)(DialogView&);
        static constexpr std::pair<const char*, Method> acts[] = {
            {"choose", &BookmarksAtRandom::Choose},
            {"rename", &BookmarksAtRandom::Rename},
            {"delete", &BookmarksAtRandom::Delete},
            {"delete all", &BookmarksAtRandom::DeleteAll}};
        if (Below(3) == 0)
            FailOne();
        const auto& [name, method] = acts[Below(std::size(acts))];
        done[name] += (this->*method)(view) ? 1 : 0;
    }
    /// Opens a bookmark whose object is there, or closes the dialog.
    void Leave(DialogView& view)
    {
        if (m_row < 0 || model.IsGone(TreeOf(view, m_row)))
        {
            view.Click(IDCANCEL);
            return;
        }
        ++done["open"];
        ++model.store.counts["GetValue"]; // of the option
        view.Click(kOpen);
    }

    /// One dialog.
    void Sequence()
    {
        if (Below(3) == 0 || model.store.lists.empty())
            Refill();
        for (std::size_t project = 0; project < std::size(kProjects); ++project)
            Turn(kProjects[project], m_projectObjects[project]);
        for (std::size_t object = 0; object < std::size(kObjects); ++object)
            Turn(kObjects[object], m_objects[object]);
        if (Below(3) == 0)
            FailOne();
        if (!model.Open())
        {
            ++done["end"];
            ExpectBox(kGoto, kNoProject);
            ShowNone();
        }
        else
        {
            Steps steps = {[this](DialogView& view) {
                Compare(view);
            }};
            for (unsigned act = Below(5); act > 0; --act)
                steps = std::move(steps) + Steps{[this](DialogView& view) { Select(view); },
                                                 [this](DialogView& view) { Act(view); },
                                                 [this](DialogView& view) {
                                                     Compare(view);
                                                 }};
            steps.push_back([this](DialogView& view) { Select(view); });
            steps.push_back([this](DialogView& view) { Leave(view); });
            Show(steps);
        }
        ASSERT_NO_FATAL_FAILURE(CompareStore());
        if (!model.IsConsistent())
            Refill();
        host.calls.clear();
    }

    BookmarkModel model;
    std::map<std::string, int> done;

private:
    std::minstd_rand m_random{20'240'229};
    int m_names = 0;
    int m_row = -1; ///< that is selected
    const ComPtr<MemoryObject> m_west = host.Known(L"$9)", L"West");
    const ComPtr<MemoryObject> m_projectObjects[std::size(kProjects)] = {north, south, m_west};
    const ComPtr<MemoryObject> m_objects[std::size(kObjects)] = {weld, drill, paint,
                                                                 host.Known(L"$91)", L"Saw cell")};
};
} // namespace

TEST_F(BookmarksAtRandom, AreWhatTheModelHasAfterEachAct)
{
    for (int sequence = 0; sequence < kSequences && !HasFailure(); ++sequence)
    {
        SCOPED_TRACE("sequence " + std::to_string(sequence));
        Sequence();
        story = Story();
    }
    EXPECT_EQ(done.size(), 6u);
    for (const auto& [name, times] : done)
        EXPECT_GE(times, kSequences / 50) << name;
}
