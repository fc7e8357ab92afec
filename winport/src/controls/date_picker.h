// The date picker: a date with its time, shown as a short date, and the keys that move between its fields and
// change them. It has no calendar and no arrows to click.
#pragma once

#include "window/window.h"

#include "automation/calendar.h"

namespace winport
{
class CDatePicker final : public Control
{
public:
    explicit CDatePicker(Window& window);

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using Control::Handle;

    bool Set(DWORD kind, const SYSTEMTIME* value);
    void Show();
    void OnKey(WPARAM key);
    void OnKillFocus();
    void OnCharacter(WPARAM character);
    void EnterField(int field);
    void EndTyping();
    void Turn(int by);
    void TurnToEnd(bool last);
    void Change(const CivilDate& date);

    SYSTEMTIME m_value{};
    bool m_hasDate = true; ///< with DTS_SHOWNONE the box before the date is checked
    int m_field = -1;      ///< month, day, year; below 0 there is no field
    std::wstring m_typed;  ///< digits that are not the field's value yet
};
} // namespace winport
