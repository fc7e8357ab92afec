// The property dialogs on the sample plant, used without a mouse.
#include "KeyboardUser.h"
#include "ModuleUnderTest.h"
#include "Plant.h"
#include "SampleFolder.h"
#include "SettingsClass.h"
#include "WindowTexts.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
class PropertiesByKeyboard : public ::testing::Test
{
protected:
    PropertiesByKeyboard() : plant(refhost::Plant::OpenMemory())
    {
        plant->Load(refhost::SampleFolder());
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, service), S_OK);
    }

    /// Shows the dialog of an object that belongs to the body shop.
    HRESULT Show(const wchar_t* table, const wchar_t* name, const wchar_t* typeName)
    {
        object = plant->Find(table, name);
        return service->ShowScriptActionOrCommandDlg(
            plant->ObjectManager().get(), plant->ConfigFactory().get(), plant->NewQuery().get(),
            plant->Find(L"project", L"Body Plant North").get(),
            plant->Find(L"plantypeset", L"Body Shop").get(), object.get(), XQPComBSTR(typeName));
    }

    /// An attribute of the object that was shown last, as text.
    std::string Attribute(const wchar_t* name) const
    {
        XQPComVariant value;
        EXPECT_GE(object->GetAttribute(XQPComBSTR(name), &value), 0);
        return Utf8Text(value.GetString());
    }

    ModuleUnderTest module;
    std::unique_ptr<refhost::Plant> plant;
    const refhost::SettingsClass settings{*plant};
    ComPtr<IScriptActionAndCommandManager> service;
    ComPtr<IQP_BaseDataObject> object;
    KeyboardUser user;
};

class ActionByKeyboard : public PropertiesByKeyboard
{
protected:
    static constexpr int kName = 250;
    static constexpr int kSequence = 251;
    static constexpr int kActionType = 254;
    static constexpr int kScript = 256;
    static constexpr int kAfter = 262;
    static constexpr int kBefore = 263;
    static constexpr int kEnabled = 264;
    static constexpr int kPlanType = 266;
    static constexpr int kConfigType = 268;

    HRESULT Show()
    {
        return PropertiesByKeyboard::Show(L"scriptaction", L"Weld: number spots", L"XDOScriptAction");
    }
};

TEST_F(ActionByKeyboard, TabGoesRoundTheDialogAndBack)
{
    user.Does(GoesRound({kName, kScript, kPlanType, kConfigType, kActionType, kEnabled, kAfter, kSequence,
                         IDOK, IDCANCEL}) +
              Steps{Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}

TEST_F(ActionByKeyboard, EveryFieldIsChanged)
{
    user.Does(Steps{Types("N", Shows(kName, L"N")), Types("Tab", FocusOn(kScript)),
                    Types("alt+Down", Dropped(kScript)), Types("Home Down", Chosen(kScript, L"Archive plan")),
                    Types("Return", Undropped(kScript)), Types("Tab", FocusOn(kPlanType)),
                    Types("alt+Down", Dropped(kPlanType)), Types("Up", Chosen(kPlanType, L"Painting")),
                    Types("Return", Undropped(kPlanType)), Types("Tab", FocusOn(kConfigType)),
                    Types("Tab", FocusOn(kActionType)), Types("r", Chosen(kActionType, L"Release")),
                    Types("Tab", FocusOn(kEnabled)), Types("space", Unchecked(kEnabled)),
                    Types("Tab", FocusOn(kAfter)), Types("Down", Checked(kBefore)),
                    Types("Tab", FocusOn(kSequence)), Types("7", Shows(kSequence, L"7")), Ends("Return")});
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Attribute(L"m_name"), "N");
    EXPECT_EQ(Attribute(L"m_actionType"), "5");
    EXPECT_EQ(Attribute(L"m_beforeAfter"), "1");
    EXPECT_EQ(Attribute(L"m_iSequence"), "7");
    EXPECT_EQ(Attribute(L"m_bEnabled"), "0");
}

TEST_F(ActionByKeyboard, EscapeClosesAListBeforeTheDialog)
{
    user.Does({Types("Tab", FocusOn(kScript)), Types("alt+Down", Dropped(kScript)),
               Types("Escape", Undropped(kScript)), Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
    EXPECT_EQ(Attribute(L"m_name"), "Weld: number spots");
}

TEST_F(ActionByKeyboard, EachKeyOfTheWarningClosesIt)
{
    user.Does({Types("Tab", FocusOn(kScript)), Types("Tab", FocusOn(kPlanType)),
               Types("Tab", FocusOn(kConfigType)), Types("alt+Down", Dropped(kConfigType)),
               Types("Escape", Undropped(kConfigType))});
    for (const char* key : {"Return", "space", "Escape"})
        user.Does({Types("Return", Box(L"Script Action Properties Warning")), Ends(key),
                   Sees(FocusOn(kConfigType))});
    user.Does({Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}

class CommandByKeyboard : public PropertiesByKeyboard
{
protected:
    static constexpr int kName = 300;
    static constexpr int kPrompt = 302;
    static constexpr int kScript = 306;
    static constexpr int kMacro = 308;
    static constexpr int kPlanType = 316;
    static constexpr int kConfigType = 318;
    static constexpr int kContextMenu = 350;
    static constexpr int kVisible = 353;
    static constexpr int kProperties = 354;
    static constexpr int kExecution = 356;
    static constexpr int kPage = 357;
    static constexpr int kGroup = 358;
    static constexpr int kAttribute = 359;
    static constexpr int kElement = 360;

    HRESULT Show()
    {
        return PropertiesByKeyboard::Show(L"scriptcommand", L"Paint drying", L"XDOScriptCommand");
    }
};

TEST_F(CommandByKeyboard, TabGoesRoundTheDialogAndBack)
{
    user.Does(GoesRound({kName, kPrompt, kScript, kMacro, kPlanType, kConfigType, IDOK, IDCANCEL,
                         kContextMenu, kVisible, kExecution, kProperties, kElement, kPage}) +
              Steps{Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}

TEST_F(CommandByKeyboard, ThePlaceIsChangedAndWritten)
{
    user.Does({Types("shift+Tab", FocusOn(kPage)), Types("Down", Checked(kGroup)),
               Types("shift+Tab", FocusOn(kElement)), Types("alt+Down", Dropped(kElement)),
               Types("Down", Shows(kElement, L"Names")), Types("Return", Undropped(kElement)),
               Ends("Return")});
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Attribute(L"customizationobjecttype"), "1");
    EXPECT_EQ(Attribute(L"customizationobjectid"), "101");
}

TEST_F(CommandByKeyboard, SpaceSwitchesThePlaceOff)
{
    user.Does({Types("shift+Tab", FocusOn(kPage)), Types("shift+Tab", FocusOn(kElement)),
               Types("shift+Tab", FocusOn(kProperties)), Types("space", Disabled(kElement)),
               Types("Tab", FocusOn(kName)), Ends("Return")});
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Attribute(L"customizationobjecttype"), "-1");
    EXPECT_EQ(Attribute(L"m_lUserInterfaceType"), "1");
}

TEST_F(CommandByKeyboard, AWarningLeavesTheDialogOpen)
{
    user.Does({Types("shift+Tab", FocusOn(kPage)), Types("Down", Checked(kGroup)),
               Types("Return", Box(L"Script Command Properties Warning")), Ends("Return"),
               Sees(FocusOn(kGroup)), Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}
} // namespace
