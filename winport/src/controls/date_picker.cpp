#include "date_picker.h"

#include <algorithm>
#include <cwchar>
#include <string>
#include <tuple>
#include <utility>

namespace winport
{
namespace
{
constexpr int kFields = 3;
constexpr int kMonth = 0;
constexpr int kDay = 1;
constexpr int kYear = 2;
constexpr int kLastYear = 9999;

// The first day of the Gregorian calendar, and the first that the control accepts.
constexpr CivilDate kFirst{1752, 9, 14};

bool IsBeforeFirst(const CivilDate& date)
{
    return std::tie(date.year, date.month, date.day) < std::tie(kFirst.year, kFirst.month, kFirst.day);
}

CivilDate DateOf(const SYSTEMTIME& time)
{
    return {time.wYear, time.wMonth, time.wDay};
}

bool IsTime(const SYSTEMTIME& time)
{
    return time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

bool IsDate(const CivilDate& date)
{
    return date.year <= kLastYear && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
           date.day <= DaysInMonth(date.year, date.month) && !IsBeforeFirst(date);
}

// Day 0 of automation dates is a Saturday.
WORD WeekdayOf(const CivilDate& date)
{
    constexpr int week = 7;
    constexpr int saturday = 6;
    return static_cast<WORD>(((DaysOf(date) + saturday) % week + week) % week);
}

int Wrapped(int value, int first, int last)
{
    return value < first ? last : value > last ? first : value;
}
} // namespace

CDatePicker::CDatePicker(Window& window) : Control(window)
{
    GetLocalTime(&m_value);
    m_hasDate = !(Style() & DTS_SHOWNONE);
}

LRESULT CDatePicker::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_CREATE:
        Show();
        return 0;
    case WM_SETTEXT:
        return FALSE;
    case WM_GETDLGCODE:
        return DLGC_WANTCHARS | DLGC_WANTARROWS;
    case WM_SETFOCUS:
        Notify(NM_SETFOCUS);
        return 0;
    case WM_KILLFOCUS:
        OnKillFocus();
        return 0;
    case WM_LBUTTONDOWN:
        EndTyping();
        if (Alive(Handle()))
            SetFocus(Handle());
        return 0;
    case WM_KEYDOWN:
        OnKey(wParam);
        return 0;
    case WM_CHAR:
        OnCharacter(wParam);
        return 0;
    case DTM_GETSYSTEMTIME:
        if (m_hasDate)
            *reinterpret_cast<SYSTEMTIME*>(lParam) = m_value;
        return m_hasDate ? GDT_VALID : GDT_NONE;
    case DTM_SETSYSTEMTIME:
        return Set(static_cast<DWORD>(wParam), reinterpret_cast<const SYSTEMTIME*>(lParam));
    default:
        return Default(message, wParam, lParam);
    }
}

// Without a date the text stays, and the keys go on changing it.
bool CDatePicker::Set(DWORD kind, const SYSTEMTIME* value)
{
    if (!value || (kind == GDT_NONE && !(Style() & DTS_SHOWNONE)))
        return false;
    if (kind == GDT_NONE)
    {
        m_hasDate = false;
        return true;
    }
    if (kind != GDT_VALID || !IsDate(DateOf(*value)) || !IsTime(*value))
        return false;
    m_hasDate = true;
    m_value = *value;
    Show();
    return true;
}

// Updates the weekday and the text to the date.
void CDatePicker::Show()
{
    m_value.wDayOfWeek = WeekdayOf(DateOf(m_value));
    wchar_t text[20];
    std::swprintf(text, std::size(text), L"%d/%d/%d", m_value.wMonth, m_value.wDay, m_value.wYear);
    m_window.text = text;
}

// F4 and Alt with an arrow open no calendar.
void CDatePicker::OnKey(WPARAM key)
{
    switch (key)
    {
    case VK_RIGHT:
        EnterField((m_field + 1) % kFields);
        break;
    case VK_LEFT:
        EnterField(m_field - 1); // below 0, where there is no field
        break;
    case VK_UP:
    case VK_ADD:
        Turn(1);
        break;
    case VK_DOWN:
    case VK_SUBTRACT:
        Turn(-1);
        break;
    case VK_HOME:
    case VK_END:
        TurnToEnd(key == VK_END);
        break;
    default:
        break;
    }
}

void CDatePicker::OnKillFocus()
{
    Notify(NM_KILLFOCUS);
    if (Alive(Handle()))
        EndTyping();
    m_field = -1;
}

void CDatePicker::EnterField(int field)
{
    EndTyping();
    m_field = field;
}

// Typed digits become the value of the field when it is full or is left.
void CDatePicker::OnCharacter(WPARAM character)
{
    if (character < L'0' || character > L'9' || m_field < 0)
        return;
    m_typed += static_cast<wchar_t>(character);
    if (m_typed.size() == (m_field == kYear ? 4U : 2U))
        EndTyping();
}

// An impossible month or day is ignored. An impossible year is ignored, too, but notified as a change.
void CDatePicker::EndTyping()
{
    if (m_typed.empty())
        return;
    const int value = std::stoi(std::exchange(m_typed, {}));
    CivilDate date = DateOf(m_value);
    (m_field == kMonth ? date.month : m_field == kDay ? date.day : date.year) = value;
    if (m_field != kDay && date.month >= 1 && date.month <= 12)
        date.day = std::min(date.day, DaysInMonth(date.year, date.month));
    if (!IsDate(date) && m_field != kYear)
        return;
    Change(IsDate(date) ? date : DateOf(m_value));
}

// Month and day wrap around; the year stops at the limits of the calendar. Discards typed digits.
void CDatePicker::Turn(int by)
{
    CivilDate date = DateOf(m_value);
    m_typed.clear();
    if (m_field == kMonth)
    {
        date.month = Wrapped(date.month + by, 1, 12);
        if (date.day > DaysInMonth(date.year, date.month))
            date.day = 1;
    }
    else if (m_field == kDay)
        date.day = Wrapped(date.day + by, 1, DaysInMonth(date.year, date.month));
    else if (m_field >= 0)
        date.year = std::min(date.year + by, kLastYear);
    date.day = std::min(date.day, DaysInMonth(date.year, date.month));
    Change(IsBeforeFirst(date) ? kFirst : date);
}

// Home differs from End in the year only. Discards typed digits.
void CDatePicker::TurnToEnd(bool last)
{
    CivilDate date = DateOf(m_value);
    m_typed.clear();
    if (m_field == kMonth)
        date.month = 12;
    else if (m_field == kDay)
        date.day = DaysInMonth(date.year, date.month);
    else if (m_field == kYear)
        date.year = last ? kLastYear : kFirst.year;
    date.day = std::min(date.day, DaysInMonth(date.year, date.month));
    Change(IsBeforeFirst(date) ? kFirst : date);
}

void CDatePicker::Change(const CivilDate& date)
{
    m_value.wYear = static_cast<WORD>(date.year);
    m_value.wMonth = static_cast<WORD>(date.month);
    m_value.wDay = static_cast<WORD>(date.day);
    Show();
    NMDATETIMECHANGE change{};
    change.dwFlags = m_hasDate ? GDT_VALID : GDT_NONE;
    change.st = m_value;
    Notify(change.nmhdr, DTN_DATETIMECHANGE);
}

std::unique_ptr<Control> MakeDatePicker(Window& window)
{
    return std::make_unique<CDatePicker>(window);
}
} // namespace winport
