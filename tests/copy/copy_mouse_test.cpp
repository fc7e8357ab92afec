// A plan type chosen with the mouse in the open list, which is a window of its own on Windows alone.
#include "ChoiceFixture.h"

namespace
{
using namespace copy_dialog;

/// Clicks an item of the open list.
DialogStep ClicksItem(int index)
{
    return {"clicks item " + std::to_string(index), [=](DialogView& view) {
                COMBOBOXINFO info{};
                info.cbSize = sizeof(info);
                ASSERT_TRUE(GetComboBoxInfo(view.Control(kPlanType), &info));
                RECT item{};
                ASSERT_NE(SendMessageW(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(index),
                                       reinterpret_cast<LPARAM>(&item)),
                          LB_ERR);
                const LPARAM at = MAKELPARAM(item.left + 5, (item.top + item.bottom) / 2);
                PostMessageW(info.hwndList, WM_MOUSEMOVE, 0, at);
                PostMessageW(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, at);
                PostMessageW(info.hwndList, WM_LBUTTONUP, 0, at);
            }};
}

class CopyMouse : public ChoiceFixture
{
protected:
    CopyMouse() { chosen = {Typed(L"Tool", {L"Wear"}), gauge}; }

    static inline const Calls kTool = FillOf("Tool", {"Wear"});
};

TEST_F(CopyMouse, ChoosesAPlanTypeOnce)
{
    Open(Expands() + Steps{Drops(kPlanType), Sees(Offers(kPlanType, {L"Fixture", L"Tool"})), ClicksItem(1),
                           Sees(Undropped(kPlanType)), Sees(Chosen(kPlanType, L"Tool")), LedTo(kTool),
                           Sees(InColumn(0, {L"Wear"})), Drops(kPlanType), ClicksItem(1),
                           Sees(Undropped(kPlanType)), LedToNoCall(), Presses(kAdvancedCancel)});
}

TEST_F(CopyMouse, IsToldOnceThatThereAreNoAttributes)
{
    ExpectBox(L"qptools", kNoAttributes);
    Open(Expands() +
         Steps{Drops(kPlanType), ClicksItem(0), Sees(Disabled(kGrid)), Drops(kPlanType), ClicksItem(1),
               LedTo(Calls{"Fixture.GetDisplayAttributeEnum(4)", "Fixture attributes.GetSingleNext()",
                           "box qptools: None of the attributes are configured for "
                           "extended copy!"} +
                     kTool),
               Sees(Enabled(kGrid)), Presses(kAdvancedCancel)});
}

TEST_F(CopyMouse, ChoosesAPlanTypeWithoutACaptionOnce)
{
    host.Config().Find(L"Tool")->Set(L"captionsingular", MemoryValue());
    Open(Expands() + Steps{Drops(kPlanType), ClicksItem(0), LedTo(kTool), Sees(InColumn(0, {L"Wear"})),
                           Presses(kAdvancedCancel)});
}
} // namespace
