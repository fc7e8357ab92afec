// GetScriptCommands: unique display names and their order.
#include "ManagerFixture.h"

#include <chrono>

namespace
{
class CommandNames : public ManagerFixture
{
protected:
    /// Sets a text of its own length, null characters included.
    static void SetText(const ComPtr<MemoryObject>& object, const wchar_t* attribute,
                        const std::wstring& text)
    {
        const XQPComBSTR copy(text.data(), static_cast<int>(text.size()));
        VARIANT value;
        value.vt = VT_BSTR;
        value.bstrVal = copy;
        object->Answer(attribute, S_OK, value);
    }

    /// What the rows are for script commands with these prompts, each script named after its place from 0.
    TextRows Named(const std::vector<std::wstring>& prompts)
    {
        std::vector<ComPtr<MemoryObject>> commands;
        for (const std::wstring& prompt : prompts)
        {
            const std::string number = std::to_string(commands.size());
            commands.push_back(ScriptCommand("c" + number, nullptr, host.Object("s" + number)));
            SetText(commands.back(), L"m_strPrompt", prompt);
        }
        Finds(std::move(commands));
        EXPECT_EQ(GetCommands(), S_OK);
        return Rows();
    }
};

TEST_F(CommandNames, RepeatsGetTheSuffixesTwoThreeAndSoOn)
{
    EXPECT_EQ(Named({L"Check", L"Check", L"Check"}),
              (TextRows{{"Check", "<s0>", "1"}, {"Check(2)", "<s1>", "1"}, {"Check(3)", "<s2>", "1"}}));
}

TEST_F(CommandNames, RowsComeInTheOrderOfNames)
{
    EXPECT_EQ(
        Named({L"weld", L"Drill", L"axis", L"Mill"}),
        (TextRows{
            {"axis", "<s2>", "1"}, {"Drill", "<s1>", "1"}, {"Mill", "<s3>", "1"}, {"weld", "<s0>", "1"}}));
}

TEST_F(CommandNames, NamesThatDifferInCaseDifferAndLowerCaseIsFirst)
{
    EXPECT_EQ(Named({L"Check", L"check", L"Check"}),
              (TextRows{{"check", "<s1>", "1"}, {"Check", "<s0>", "1"}, {"Check(2)", "<s2>", "1"}}));
}

TEST_F(CommandNames, ANameThatLooksLikeASuffixIsANameOfItsOwn)
{
    EXPECT_EQ(Named({L"Check(2)", L"Check", L"Check"}),
              (TextRows{{"Check", "<s1>", "1"}, {"Check(2)", "<s0>", "1"}, {"Check(3)", "<s2>", "1"}}));
}

TEST_F(CommandNames, ASuffixMayTakeALaterName)
{
    EXPECT_EQ(Named({L"Check", L"Check", L"Check(2)", L"Check", L"Check(2)"}),
              (TextRows{{"Check", "<s0>", "1"},
                        {"Check(2)", "<s1>", "1"},
                        {"Check(2)(2)", "<s2>", "1"},
                        {"Check(2)(3)", "<s4>", "1"},
                        {"Check(3)", "<s3>", "1"}}));
}

TEST_F(CommandNames, TheSuffixAlwaysFollowsTheOriginalName)
{
    std::vector<std::wstring> prompts(12, L"Run");
    std::vector<std::string> names;
    for (const Row& row : Named(prompts))
        names.push_back(row[0] + row[1]);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Run(10)<s9>", "Run(11)<s10>", "Run(12)<s11>", "Run(2)<s1>",
                                               "Run(3)<s2>", "Run(4)<s3>", "Run(5)<s4>", "Run(6)<s5>",
                                               "Run(7)<s6>", "Run(8)<s7>", "Run(9)<s8>", "Run<s0>"}));
}

TEST_F(CommandNames, ASuffixSkipsNamesInUse)
{
    EXPECT_EQ(Named({L"A(2)", L"A(4)", L"A", L"A", L"A", L"A(3)"}), (TextRows{{"A", "<s2>", "1"},
                                                                              {"A(2)", "<s0>", "1"},
                                                                              {"A(3)", "<s3>", "1"},
                                                                              {"A(3)(2)", "<s5>", "1"},
                                                                              {"A(4)", "<s1>", "1"},
                                                                              {"A(5)", "<s4>", "1"}}));
}

TEST_F(CommandNames, WithoutPromptAndScriptNameTheNameIsEmpty)
{
    EXPECT_EQ(Named({L"", L"", L""}),
              (TextRows{{"", "<s0>", "1"}, {"(2)", "<s1>", "1"}, {"(3)", "<s2>", "1"}}));
}

TEST_F(CommandNames, AScriptAfterAMacroOfTheSameNameGetsTheSuffix)
{
    Finds({MacroCommand("c0", L"Check", L"Macro"), ScriptCommand("c1", L"Check", Script("weld"), L"0")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "Macro", "1"}, {"Check(2)", "<weld>", "0"}}));
}

TEST_F(CommandNames, AMacroReplacesTargetAndModeOfAScriptOfItsName)
{
    Finds({ScriptCommand("c0", L"Check", Script("weld"), L"0"), MacroCommand("c1", L"Check", L"Macro")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "Macro", "1"}}));
}

TEST_F(CommandNames, AMacroReplacesAMacroOfTheSameName)
{
    Finds({MacroCommand("c0", L"Check", L"First"), MacroCommand("c1", L"Check", L"Second")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "Second", "1"}}));
}

TEST_F(CommandNames, AMacroReplacesARowWhoseNameWasMadeUnique)
{
    Finds({ScriptCommand("c0", L"Check", Script("s0")), ScriptCommand("c1", L"Check", Script("s1"), L"0"),
           MacroCommand("c2", L"Check(2)", L"Macro"), ScriptCommand("c3", L"Check", Script("s3"))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(),
              (TextRows{{"Check", "<s0>", "1"}, {"Check(2)", "Macro", "1"}, {"Check(3)", "<s3>", "1"}}));
}

TEST_F(CommandNames, AMacroWithoutAPromptReplacesTheRowOfItsOwnName)
{
    Finds({ScriptCommand("c0", L"DrawAll", Script("s0")), MacroCommand("c1", nullptr, L"DrawAll")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"DrawAll", "DrawAll", "1"}}));
}

TEST_F(CommandNames, AMacroMayHaveTheEmptyName)
{
    Finds({MacroCommand("c0", L"", L""), ScriptCommand("c1", L"", host.Object("s"))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"", "", "1"}, {"(2)", "<s>", "1"}}));
}

TEST_F(CommandNames, ManyRepeatsAreNamedAsQuicklyAsMayBe)
{
    // Trying every suffix from 2 for each of these would be 450 million look-ups.
    host.recording = false;
    std::vector<ComPtr<MemoryObject>> commands;
    commands.reserve(30000);
    const auto script = host.Object("s");
    for (int i = 0; i < 30000; ++i)
        commands.push_back(ScriptCommand("c", L"Check", script));
    Finds(std::move(commands));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));

    std::vector<std::string> names;
    names.reserve(30000);
    for (const Row& row : RowsOf(result.Value(), [](IUnknown*) { return std::string(); }))
        names.push_back(row[0]);
    std::vector<std::string> expected = {"Check"};
    expected.reserve(30000);
    for (int i = 2; i <= 30000; ++i)
        expected.push_back("Check(" + std::to_string(i) + ")");
    std::sort(names.begin(), names.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(names, expected);
}

/// A text of its own length, null characters included.
XQPComBSTR BstrOf(const std::wstring& text)
{
    return {text.data(), static_cast<int>(text.size())};
}

/// Another way to write `text` that is the same name in the user's language: with a character that does not
/// count.
std::wstring SameNameAs(const std::wstring& text)
{
    for (const wchar_t ignored : {L'\x00AD', L'\x200B', L'\0'})
    {
        const std::wstring other = text.substr(0, 1) + ignored + text.substr(1);
        if (VarBstrCmp(BstrOf(text), BstrOf(other), LOCALE_USER_DEFAULT, 0) ==
            static_cast<HRESULT>(VARCMP_EQ))
            return other;
    }
    return text;
}

TEST_F(CommandNames, TextsThatAreEqualInTheUsersLanguageShareARow)
{
    const std::wstring other = SameNameAs(L"Check");
    ASSERT_NE(other, L"Check") << "no such pair of names here";
    const std::string otherUtf8 = Utf8Of(BstrOf(other));
    EXPECT_EQ(Named({L"Check", other, L"Check", other}), (TextRows{{"Check", "<s0>", "1"},
                                                                   {otherUtf8 + "(2)", "<s1>", "1"},
                                                                   {"Check(3)", "<s2>", "1"},
                                                                   {otherUtf8 + "(4)", "<s3>", "1"}}));

    const auto macro = MacroCommand("c1", nullptr, L"Macro");
    SetText(macro, L"m_strPrompt", other);
    Finds({ScriptCommand("c0", L"Check", Script("weld"), L"0"), macro});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "Macro", "1"}})) << "the row keeps the name that it was made with";
}

/// The rule by the letter: a map, and a counter that starts at 2 for every command.
std::vector<std::pair<std::wstring, std::string>>
NamedByTheLetter(const std::vector<std::pair<std::wstring, bool>>& commands)
{
    struct Before
    {
        bool operator()(const std::wstring& first, const std::wstring& second) const
        {
            return VarBstrCmp(BstrOf(first), BstrOf(second), 0x400, 0) == static_cast<HRESULT>(VARCMP_LT);
        }
    };
    std::map<std::wstring, std::string, Before> rows;
    int index = 0;
    for (const auto& [prompt, isMacro] : commands)
    {
        std::wstring name = prompt;
        for (int counter = 2; !isMacro && !rows[name].empty(); ++counter)
            name = prompt + L"(" + std::to_wstring(counter) + L")";
        const std::string number = std::to_string(index);
        rows[name] = isMacro ? "m" + number : InBrackets("s" + number);
        ++index;
    }
    return {rows.begin(), rows.end()};
}

TEST_F(CommandNames, AThousandMixedListsAreNamedAsTheRuleSays)
{
    host.recording = false;
    std::uint32_t random = 12345;
    const auto next = [&random](std::uint32_t bound) {
        random = random * 1664525u + 1013904223u;
        return (random >> 16) % bound;
    };
    const std::wstring same = SameNameAs(L"A");
    ASSERT_NE(same, L"A") << "no such pair of names here";
    const std::wstring names[] = {same,    same + L"(2)", L"A",    L"A(2)", L"A(3)", L"A(2)(2)", L"B",
                                  L"b",    L"B(2)",       L"b(3)", L"",     L"(2)",  L"(3)",     L"a",
                                  L"a(2)", L"(2)(2)",     L"C1",   L"c10",  L"C2"};
    for (int list = 0; list < 1000; ++list)
    {
        std::vector<std::pair<std::wstring, bool>> commands;
        std::vector<ComPtr<MemoryObject>> objects;
        const std::uint32_t count = 1 + next(24);
        const std::uint32_t variety = 1 + next(std::size(names));
        for (std::uint32_t i = 0; i < count; ++i)
        {
            const std::wstring& name = names[next(variety)];
            // A macro with an empty prompt would be called by its own name.
            const bool isMacro = !name.empty() && next(4) == 0;
            const std::string number = std::to_string(i);
            commands.emplace_back(name, isMacro);
            objects.push_back(isMacro ? MacroCommand("c", nullptr, (L"m" + std::to_wstring(i)).c_str())
                                      : ScriptCommand("c", nullptr, host.Object("s" + number)));
            SetText(objects.back(), L"m_strPrompt", name);
        }
        Finds(std::move(objects));
        ASSERT_EQ(GetCommands(), S_OK);
        TextRows expected;
        for (const auto& [name, target] : NamedByTheLetter(commands))
            expected.push_back({Utf8Of(BstrOf(name)), target, "1"});
        const TextRows rows = RowsOf(result.Value(), [](IUnknown* object) {
            ComPtr<IQP_BaseDataObject> data;
            data.queryFrom(object);
            return static_cast<MemoryObject*>(data.get())->Name();
        });
        ASSERT_EQ(rows, expected) << "list " << list;
    }
}
} // namespace
