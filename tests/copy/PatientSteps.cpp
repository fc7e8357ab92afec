#include "PatientSteps.h"

#include <algorithm>

using namespace copy_dialog;

namespace
{
/// Clicks the value of the attribute if its row is there.
DialogStep ClicksIfShown(const std::wstring& attribute)
{
    return {"clicks the value of an attribute", [=](DialogView& view) {
                const HWND grid = view.Control(kGrid);
                const Texts names = view.Column(grid, 0);
                const auto found = std::find(names.begin(), names.end(), attribute);
                if (found != names.end() && view.IsVisible(kGrid) && view.IsEnabled(kGrid))
                    ClicksCell(static_cast<int>(found - names.begin()), 1).Do(view);
            }};
}
} // namespace

DialogStep ChoosesIfOffered(const std::wstring& planType)
{
    return {"chooses a plan type", [=](DialogView& view) {
                if (!view.IsVisible(kPlanType) || view.Text(kPlanType) == planType)
                    return;
                view.DropDown(kPlanType);
                const Texts items = view.Items(kPlanType);
                const auto found = std::find(items.begin(), items.end(), planType);
                if (found != items.end())
                    view.Choose(kPlanType, static_cast<int>(found - items.begin()));
            }};
}

Steps EditsIfShown(const std::wstring& attribute, const std::wstring& text)
{
    return {ClicksIfShown(attribute), ClicksIfShown(attribute), [=](DialogView& view) {
                if (GridEditor(view))
                    TypesInEditor(text).Do(view);
            }};
}

DialogStep CommitsIfOpen()
{
    return {"leaves the editor", [](DialogView& view) {
                if (GridEditor(view))
                    view.GiveFocus(kAdvanced);
            }};
}
