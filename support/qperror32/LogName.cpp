#include "LogName.h"

#include "TextCompare.h"

#include <algorithm>
#include <string_view>

namespace
{
constexpr std::size_t kMaxLength = 100;
constexpr std::wstring_view kForbidden = L"<>:\"/\\|?*";
constexpr std::wstring_view kDevices[] = {L"con", L"prn", L"aux", L"nul", L"conin$", L"conout$", L"clock$"};
constexpr std::wstring_view kNumberedDevices[] = {L"com", L"lpt"};
// A device's number may also be a superscript.
constexpr std::wstring_view kDeviceNumbers = L"0123456789\u00b9\u00b2\u00b3";

bool IsForbidden(wchar_t character) noexcept
{
    return character < 0x20 || character == 0x7f || kForbidden.find(character) != std::wstring_view::npos;
}

// A device's name stands for the device with any extension, and with blanks before the extension.
bool IsDevice(std::wstring_view name) noexcept
{
    std::wstring_view stem = name.substr(0, name.find(L'.'));
    while (!stem.empty() && stem.back() == L' ')
        stem.remove_suffix(1);
    for (const std::wstring_view device : kDevices)
        if (SameIgnoringCase(stem, device))
            return true;
    for (const std::wstring_view device : kNumberedDevices)
        if (stem.size() == device.size() + 1 && SameIgnoringCase(stem.substr(0, device.size()), device) &&
            kDeviceNumbers.find(stem.back()) != std::wstring_view::npos)
            return true;
    return false;
}
} // namespace

bool IsPlainLogName(const wchar_t* name, const wchar_t* reserved) noexcept
{
    const std::wstring_view view = name ? name : L"";
    return view.find_first_not_of(L'.') != std::wstring_view::npos && view.size() <= kMaxLength &&
           std::none_of(view.begin(), view.end(), IsForbidden) && !IsDevice(view) &&
           !SameIgnoringCase(view, reserved);
}
