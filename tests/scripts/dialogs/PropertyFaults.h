// The sweeps of both property dialogs: every host call fails once, in each way a call can.
#pragma once

#include "PropertyPlant.h"

#include "GateSweep.h"
#include "KeptObjects.h"

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

/// What a run comes to.
struct Outcome
{
    HRESULT status = S_OK;
    std::wstring warning;
    std::string written; ///< the line of the call that writes; "none" if there is none

    bool operator==(const Outcome&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
{
    return stream << outcome.status << " \"" << std::string(outcome.warning.begin(), outcome.warning.end())
                  << "\" " << outcome.written;
}

inline bool Has(const std::string& line, const char* part)
{
    return line.find(part) != std::string::npos;
}

/// The line of a write with another value for `attribute`.
inline std::string With(const std::string& line, const std::string& attribute, const std::string& value)
{
    const std::size_t start = line.find(" = ", line.find("\"" + attribute + "\"")) + 3;
    return line.substr(0, start) + value + line.substr(line.find_first_of(",}", start));
}

/// One object of the sample plant, whose attributes are the same at the beginning of each run.
class PropertyFaults : public PropertyPlant, public ::testing::WithParamInterface<Way>
{
protected:
    using Acts = std::function<void(const DialogView&)>;

    /// `typeName` selects the dialog, `title` is that of its warnings, `attributes` are those that it writes.
    PropertyFaults(const wchar_t* table, const wchar_t* name, const wchar_t* typeName, const wchar_t* title,
                   const std::vector<const wchar_t*>& attributes)
        : object(Find(table, name)), m_typeName(typeName), m_title(title)
    {
        for (const wchar_t* attribute : attributes)
        {
            XQPComVariant value;
            object->GetAttribute(XQPComBSTR(attribute), &value);
            m_values.emplace_back(attribute, value);
        }
    }
    ~PropertyFaults() override
    {
        m_values.clear();
        object.reset();
    }

    /// The text of the warning that OK shows; empty if there is none.
    virtual std::wstring WarningOf(const DialogView& view) const = 0;

    /// Acts in the dialog and presses OK as far as a user can; leaves with Cancel otherwise. The n-th call
    /// fails; none for 0.
    Outcome Run(long long n, const Acts& acts)
    {
        Outcome outcome;
        dialogs.OnDialog({[&](DialogView& view) {
            opened = plant->Calls().Count();
            acts(view);
            outcome.warning = PressOk(view);
            if (!outcome.warning.empty() || !view.IsEnabled(IDOK))
                view.Click(IDCANCEL);
        }});
        record = GateSweep(*plant).Run(n, GetParam(), [&] {
            // A reference to each VBA project that was handed out stays open on purpose.
            const refhost::KeptObjects kept("vbaproject");
            outcome.status =
                service->ShowScriptActionOrCommandDlg(manager.get(), factory.get(), query.get(),
                                                      project.get(), set.get(), object.get(), m_typeName);
            keptOpen = kept.Count();
        });
        EXPECT_TRUE(dialogs.AllShown() && boxes.AllShown());
        outcome.written = WrittenIn(record);
        for (const auto& [name, value] : m_values)
            EXPECT_GE(object->SetAttribute(XQPComBSTR(name.c_str()), value.Value()), 0);
        return outcome;
    }

    /// Fails every call of the last run from the `first` on, in turn. `look` gets the calls, the index of the
    /// one that failed, and the outcome.
    template <class Look>
    void Sweep(const Acts& acts, long long first, Look&& look)
    {
        const Lines lines = record;
        GateSweep::Each(
            lines, first, [&](long long n) { return Run(n, acts); }, look);
    }

    ComPtr<IQP_BaseDataObject> object;
    Lines record;
    long long opened = 0;     ///< the calls of the opening
    std::size_t keptOpen = 0; ///< VBA projects

private:
    /// Returns the warning that was shown; there is none while OK is disabled.
    std::wstring PressOk(const DialogView& view)
    {
        if (!view.IsEnabled(IDOK))
            return {};
        const std::wstring warning = WarningOf(view);
        if (!warning.empty())
            boxes.Expect(m_title, warning, IDOK);
        view.Click(IDOK);
        return warning;
    }

    /// Nothing may be written but by one call.
    static std::string WrittenIn(const Lines& lines)
    {
        std::string written = "none";
        for (const std::string& line : lines)
        {
            if (!Has(line, "SetAttribute"))
                continue;
            EXPECT_EQ(written, "none") << "a second write";
            EXPECT_TRUE(Has(line, "SetAttributes(")) << line;
            written = line;
        }
        return written;
    }

    const XQPComBSTR m_typeName;
    const std::wstring m_title;
    std::vector<std::pair<std::wstring, XQPComVariant>> m_values;
};
