// The default button of a dialog whose template has two of them.
#include "TestDialog.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
using Ids = std::vector<int>;

constexpr int kFirst = 312;
constexpr int kSecond = 313;
constexpr int kThird = 314;
constexpr int kEdit = 315;

/// Records the buttons that were pressed.
class TwoDefaults : public CDialog
{
public:
    explicit TwoDefaults(int wanted) : CDialog(303), m_wanted(wanted) {}

    Ids pressed;

    /// The buttons that look like the default one.
    Ids DefaultLook() const
    {
        Ids found;
        for (const int id : {kFirst, kSecond, kThird})
        {
            const LRESULT code = ::SendMessageW(GetDlgItem(id), WM_GETDLGCODE, 0, 0);
            if (code & DLGC_DEFPUSHBUTTON)
                found.push_back(id);
        }
        return found;
    }

protected:
    bool OnInitDialog() override
    {
        CDialog::OnInitDialog();
        SetDefaultButton(m_wanted);
        return true;
    }
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {
            OnCommand<&TwoDefaults::OnFirst>(kFirst),
            OnCommand<&TwoDefaults::OnSecond>(kSecond),
            OnCommand<&TwoDefaults::OnThird>(kThird),
        };
        static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
        return map;
    }

private:
    void OnFirst() { pressed.push_back(kFirst); }
    void OnSecond() { pressed.push_back(kSecond); }
    void OnThird() { pressed.push_back(kThird); }

    int m_wanted;
};

class DialogDefaultButton : public testing::Test
{
protected:
    void Run(TwoDefaults& dialog, Steps steps)
    {
        steps.push_back([](DialogView& view) { view.Close(); });
        driver.OnDialog(std::move(steps));
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }

    const DialogModule module;
    const CUiState state;
    DialogDriver driver;
};
} // namespace

TEST_F(DialogDefaultButton, EnterAtTheStartPressesTheFirstOne)
{
    TwoDefaults dialog(kFirst);
    Run(dialog, {[&](DialogView& view) {
                     EXPECT_EQ(view.Focus(), kFirst);
                     EXPECT_EQ(dialog.DefaultLook(), Ids{kFirst});
                     view.Press(VK_RETURN);
                 },
                 [&](DialogView&) {
                     EXPECT_EQ(dialog.pressed, Ids{kFirst});
                 }});
}

TEST_F(DialogDefaultButton, EnterInAnEditPressesTheChosenOne)
{
    for (const int wanted : {kFirst, kSecond, kThird})
    {
        TwoDefaults dialog(wanted);
        Run(dialog, {[&](DialogView& view) {
                         view.GiveFocus(kEdit);
                         EXPECT_EQ(dialog.DefaultLook(), Ids{wanted});
                         view.Press(VK_RETURN);
                     },
                     [&](DialogView&) {
                         EXPECT_EQ(dialog.pressed, Ids{wanted});
                     }});
    }
}

TEST_F(DialogDefaultButton, EnterPressesNothingWhileItIsDisabled)
{
    TwoDefaults dialog(kFirst);
    Run(dialog, {[&](DialogView& view) {
                     view.GiveFocus(kEdit);
                     ::ShowWindow(dialog.GetDlgItem(kFirst), SW_HIDE);
                     ::EnableWindow(dialog.GetDlgItem(kFirst), FALSE);
                     view.Press(VK_RETURN);
                 },
                 [&](DialogView&) {
                     EXPECT_EQ(dialog.pressed, Ids{});
                 }});
}

TEST_F(DialogDefaultButton, TheButtonWithTheFocusIsPressedInstead)
{
    TwoDefaults dialog(kFirst);
    Run(dialog, {[&](DialogView& view) {
                     view.GiveFocus(kThird);
                     EXPECT_EQ(dialog.DefaultLook(), Ids{kThird});
                     view.Press(VK_RETURN);
                 },
                 [&](DialogView&) {
                     EXPECT_EQ(dialog.pressed, Ids{kThird});
                 }});
}
