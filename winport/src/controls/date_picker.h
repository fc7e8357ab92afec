// The date picker: a date with its time, shown as the short date. It has neither the calendar nor the arrows
// of the real one, but the keys that move between the fields and turn them.
#pragma once

#include "window/window.h"

namespace winport
{
class CDatePicker final : public Control
{
public:
    explicit CDatePicker(Window& window);

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool Set(DWORD kind, const SYSTEMTIME* value);
    void Show();
    void OnKey(WPARAM key);
    void RefuseCalendar(bool asked, WPARAM key) const;
    void Turn(int by);

    SYSTEMTIME m_value{};
    int m_field = -1; ///< month, day, year; -1 before the first was entered
};
} // namespace winport
