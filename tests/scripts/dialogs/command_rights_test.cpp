// What the property dialog of a script command lets a user do who may not change the command.
#include "CommandFixture.h"

namespace
{
using namespace command_dialog;

struct Right
{
    const char* name;
    HRESULT status;
    bool offered; ///< whether the command has the rights interface at all
    bool mayChange;
};

std::ostream& operator<<(std::ostream& stream, const Right& right)
{
    return stream << right.name;
}

class CommandRights : public CommandFixture,
                      public ::testing::WithParamInterface<std::tuple<Right, bool /*placed*/>>
{
protected:
    static std::vector<int> Changing()
    {
        return {kPlanType, kConfigType, kScript, kMacro, kExecution, kName, kPrompt, kVisible, IDOK};
    }
    static std::vector<int> Placement()
    {
        return {kOptions, kElementLabel, kPage, kGroup, kAttribute, kNameLabel, kElement};
    }
    static Steps See(const std::vector<int>& controls, bool enabled)
    {
        Steps steps;
        for (const int control : controls)
            steps.push_back(Sees(enabled ? Enabled(control) : Disabled(control)));
        return steps;
    }
};

TEST_P(CommandRights, DisableAllButInterfaceAndPlace)
{
    const auto& [right, placed] = GetParam();
    command->right = right.status;
    command->offersRights = right.offered;
    command->Set(L"m_lUserInterfaceType", placed ? 2 : 1);
    const DialogStep turn = placed ? Unchecks(kProperties) : Checks(kProperties);
    EXPECT_EQ(Show(See(Changing(), right.mayChange) + See(Placement(), placed) +
                   See({kContextMenu, kProperties, IDCANCEL}, true) + Steps{turn} +
                   See(Changing(), right.mayChange) + See(Placement(), !placed) + Steps{Presses(IDCANCEL)}),
              S_FALSE);
}

const Right kRights[] = {{"Held", S_OK, true, true},
                         {"Refused", S_FALSE, true, false},
                         {"OtherSuccess", 2, true, false},
                         {"Unknown", E_FAIL, true, false},
                         {"WithoutInterface", S_OK, false, false}};

INSTANTIATE_TEST_SUITE_P(Answers, CommandRights,
                         ::testing::Combine(::testing::ValuesIn(kRights), ::testing::Bool()),
                         [](const auto& info) {
                             return std::string(std::get<0>(info.param).name) +
                                    (std::get<1>(info.param) ? "Placed" : "NotPlaced");
                         });

class ReadOnlyCommand : public CommandFixture
{
protected:
    ReadOnlyCommand() { command->right = S_FALSE; }
};

TEST_F(ReadOnlyCommand, IsLeftByCancelAlone)
{
    EXPECT_EQ(Show({Types("Return"), Sees(Titled(L"Script Command Properties")), Presses(IDCANCEL)}),
              S_FALSE);
    EXPECT_EQ(Show({Types("Escape")}), S_FALSE);
    EXPECT_EQ(Written(), "");
}

TEST_F(ReadOnlyCommand, ShowsItsPlacesAllTheSame)
{
    Show({Drops(kElement), Sees(Offers(kElement, {L"Costs", L"General"})), Checks(kGroup), Drops(kElement),
          Sees(Offers(kElement, {L"Limits", L"Usage"})), Presses(IDCANCEL)});
}
} // namespace
