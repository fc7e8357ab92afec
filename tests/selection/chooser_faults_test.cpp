// Every host call that a chooser makes fails once, in each way a call can, while its dialog is being opened:
// what is shown then, that the dialog can be closed, and that no reference to the host is kept.
#include "ChooserPlant.h"
#include "FaultWays.h"

#include <functional>
#include <utility>

using refhost::CallGate;
using refhost::Fault;
using refhost::Plant;

namespace
{
/// What a run shows.
struct Shown
{
    bool dialog = false;
    Cells rows;     ///< sorted
    Lines messages; ///< the texts of boxes
    Entries reports;

    bool operator==(const Shown&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Shown& shown)
{
    stream << (shown.dialog ? "a dialog" : "no dialog");
    for (const Texts& row : shown.rows)
    {
        stream << "\n  row";
        for (const std::wstring& cell : row)
            stream << " \"" << std::string(cell.begin(), cell.end()) << "\"";
    }
    for (const std::string& text : shown.messages)
        stream << "\n  message " << text;
    for (const std::string& text : shown.reports)
        stream << "\n  report " << text;
    return stream;
}

class ChooserFaults : public ChooserPlant, public ::testing::WithParamInterface<Way>
{
protected:
    /// Makes `call` with the n-th host call failing (0: none). The dialog, if one is expected, is read and
    /// closed with Cancel; the expected messages are answered.
    Shown Run(long long n, const Shown& expected, const std::function<void()>& call)
    {
        Shown shown;
        for (const std::string& text : expected.messages)
        {
            const std::size_t colon = text.find(": ");
            const std::string title = text.substr(0, colon);
            const std::string body = text.substr(colon + 2);
            boxes.Expect({title.begin(), title.end()}, {body.begin(), body.end()}, IDOK,
                         [&shown, text] { shown.messages.push_back(text); });
        }
        if (expected.dialog)
            dialogs.OnDialog({[&](DialogView& view) {
                                  shown.dialog = true;
                                  shown.rows = CellsOf(view);
                                  std::sort(shown.rows.begin(), shown.rows.end());
                              },
                              Presses(IDCANCEL)});
        const std::size_t reported = logBook.Entries().size();
        CallGate& gate = plant->Calls();
        gate.FailCall(n, n == 0 ? Fault::None : GetParam().fault, GetParam().status);
        const long before = Plant::LiveObjects();
        Recorded([&] {
            call();
            return S_OK;
        });
        EXPECT_EQ(Plant::LiveObjects(), before) << "objects of the host are left";
        EXPECT_EQ(gate.Struck(), n > 0);
        gate.FailCall(0, Fault::None);
        EXPECT_TRUE(dialogs.AllShown() && boxes.AllShown());
        const Entries reports = logBook.Entries();
        shown.reports.assign(reports.begin() + static_cast<std::ptrdiff_t>(reported), reports.end());
        return shown;
    }

    /// Fails every call of `call` in turn. `predict` gets the number of the failing call and its line in the
    /// whole record.
    void Sweep(const Shown& whole, const std::function<void()>& call,
               const std::function<Shown(std::size_t, const std::string&)>& predict)
    {
        ASSERT_EQ(Run(0, whole, call), whole);
        const Lines lines = record;
        ASSERT_GT(lines.size(), 5u);
        for (std::size_t index = 0; index < lines.size() && !HasFailure(); ++index)
        {
            const Shown expected = predict(index, lines[index]);
            EXPECT_EQ(Run(static_cast<long long>(index) + 1, expected, call), expected) << lines[index];
        }
    }

    static bool Has(const std::string& line, const char* part)
    {
        return line.find(part) != std::string::npos;
    }
};

// The project choice.

TEST_P(ChooserFaults, EveryCallOfTheProjectChoice)
{
    const auto root = Root();
    LONG canceled = 0;
    LONG create = 0;
    const auto call = [&] {
        canceled = 7;
        create = 7;
        IQP_BaseDataObject* selected = nullptr;
        EXPECT_EQ(
            choice->ShowDialogEx(root.get(), XQPComBSTR(L"Projects"), 0, &canceled, &create, &selected, 0),
            S_OK);
        EXPECT_EQ(selected, nullptr);
    };
    const Shown whole{
        true,
        {{L"Body Plant North", L""}, {L"Engine Machining South", L""}, {L"Final Assembly East", L""}},
        {},
        {}};
    std::size_t steps = 0;
    Sweep(whole, call, [&](std::size_t index, const std::string& line) {
        Shown shown = whole;
        if (index == 0)
        {
            // Whether there is a list at all: only a failure means that there is none.
            return GetParam().Fails() ? Shown{} : whole;
        }
        if (Has(line, "GetChildren"))
            shown.rows.clear();
        else if (Has(line, "RemNext"))
            shown.rows.resize(steps++);
        else
        {
            // The step to this child was counted already.
            shown.rows.erase(shown.rows.begin() + static_cast<std::ptrdiff_t>(steps) - 1);
            shown.messages = {"Error: unexpected error reading projects.\nTrying next project ..."};
        }
        return shown;
    });
    EXPECT_EQ(steps, 4u);
    Run(0, whole, call);
    EXPECT_EQ(canceled, 1);
    EXPECT_EQ(create, 7);
}

// The script picker.

class ScriptFaults : public ChooserFaults
{
protected:
    const Shown none{false, {}, {"Select Script: No scripts available."}, {}};

    /// The status is reported and the list stays open, empty.
    static Shown Failed(const std::string& status)
    {
        return {true,
                {},
                {},
                {LogBook::HostCall(status, 102, "XSelectOrvoitemDlg::OnInitDialog  GetScriptsFromProject")}};
    }

    static Shown Only(const Shown& whole, const wchar_t* location)
    {
        Shown shown = whole;
        shown.rows.erase(std::remove_if(shown.rows.begin(), shown.rows.end(),
                                        [&](const Texts& row) { return row[1] != location; }),
                         shown.rows.end());
        return shown;
    }

    /// The row of a script as the sample has it.
    Texts RowOf(const std::string& script)
    {
        const auto object = Find(L"script", std::wstring(script.begin(), script.end()).c_str());
        Texts row;
        for (const wchar_t* attribute :
             {L"name", L"m_pDODefaultImpl", L"languagetype", L"creationdate", L"modificationdate"})
        {
            XQPComVariant value;
            object->GetAttribute(XQPComBSTR(attribute), &value);
            row.emplace_back(value.GetString());
        }
        XQPComVariant owner;
        row[1] = object->GetAttribute(XQPComBSTR(L"m_pDODefaultImpl"), &owner) == S_OK ? L"Project Lib"
                                                                                       : L"Library";
        row.emplace_back();
        return row;
    }

    /// "X" of a line `Interface<script X>::Method(...)`.
    static std::string ScriptIn(const std::string& line)
    {
        const std::size_t from = line.find("<script ") + 8;
        return line.substr(from, line.find(">::") - from);
    }

    Shown AtSearch(const Shown& whole, const std::string& line) const
    {
        if (Has(line, "IsDerivedFromClass"))
            return GetParam().SaysSo() ? Only(whole, L"Library") : whole;
        if (GetParam().SaysSo())
        {
            const bool isCriterion = Has(line, "SetSearchAttribute");
            return GetParam().Fails() && !isCriterion ? Failed("0x80004005") : none;
        }
        // The call had no effect, and its status is ignored.
        if (Has(line, "ResetSearch"))
            return whole;
        if (Has(line, "SetSearchAttribute"))
            return Only(whole, Has(line, ", 1)") ? L"Library" : L"Project Lib");
        return none;
    }

    /// What is shown when the right to a script or one of its attributes cannot be read.
    Shown AtScript(const Shown& whole, const std::string& line)
    {
        Shown shown = whole;
        Texts row = RowOf(ScriptIn(line));
        const auto place = std::find(shown.rows.begin(), shown.rows.end(), row);
        if (place != shown.rows.end())
            shown.rows.erase(place);
        if (Has(line, "\"name\""))
            row[0].clear();
        if (Has(line, "m_pDODefaultImpl"))
            row[1] = L"Library";
        if (Has(line, "languagetype"))
            row[2].clear();
        if (Has(line, "creationdate"))
            row[3].clear();
        if (Has(line, "modificationdate"))
            row[4].clear();
        // A right counts as held unless the host returns another status.
        if (!Has(line, "HasRight") || !GetParam().SaysSo())
            shown.rows.push_back(row);
        std::sort(shown.rows.begin(), shown.rows.end());
        return shown;
    }

    /// What is shown when a batch cannot be fetched: the rows of the batches before it.
    Shown AtBatch(const Shown& whole, const Lines& lines, std::size_t index)
    {
        // A batch of nulls is dropped, and the next call brings what this one should have.
        if (GetParam().fault == Fault::NullObject)
            return whole;
        Shown shown{true, {}, {}, {}};
        for (std::size_t line = 0; line < index; ++line)
            if (Has(lines[line], "\"name\""))
                shown.rows.push_back(RowOf(ScriptIn(lines[line])));
        std::sort(shown.rows.begin(), shown.rows.end());
        return shown.rows.empty() ? none : shown;
    }
};

TEST_P(ScriptFaults, EveryCallOfTheScriptPicker)
{
    // More than a batch.
    for (const wchar_t* name : {L"Extra 1", L"Extra 2", L"Extra 3", L"Extra 4"})
        plant->Add(L"script", name);
    const auto project = Find(L"project", L"Body Plant North");
    const auto call = [&] {
        IQP_BaseDataObject* selected = nullptr;
        EXPECT_EQ(item->ShowDialog(project.get(), XQPComBSTR(L"script"), &selected), S_FALSE);
        EXPECT_EQ(selected, nullptr);
    };

    // A whole run.
    Shown whole{true, {}, {}, {}};
    dialogs.OnDialog({[&](DialogView& view) { whole.rows = CellsOf(view); }, Presses(IDCANCEL)});
    Recorded([&] {
        call();
        return S_OK;
    });
    std::sort(whole.rows.begin(), whole.rows.end());
    ASSERT_GT(whole.rows.size(), 5u);
    const Lines lines = record;

    std::size_t batches = 0;
    Sweep(whole, call, [&](std::size_t index, const std::string& line) {
        if (Has(line, "<script "))
            return AtScript(whole, line);
        if (!Has(line, "RemNext"))
            return AtSearch(whole, line);
        ++batches;
        return AtBatch(whole, lines, index);
    });
    EXPECT_EQ(batches, 2u);
}

INSTANTIATE_TEST_SUITE_P(Ways, ChooserFaults, ::testing::ValuesIn(kWays), NameOfWay);
INSTANTIATE_TEST_SUITE_P(Ways, ScriptFaults, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
