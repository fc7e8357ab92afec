#include "Pictures.h"

#include <windows.h>

#include <fstream>
#include <utility>

namespace
{
constexpr ULONGLONG kPatience = 20'000; // milliseconds
constexpr DWORD kBetweenLooks = 20;

void LetWindowsDraw()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE))
        DispatchMessageW(&message);
}
} // namespace

CPictures::CPictures(std::filesystem::path folder) : m_folder(std::move(folder)) {}

bool CPictures::Take(const std::string& name) const
{
    if (!Wanted())
        return true;
    const std::filesystem::path request = m_folder / (name + ".request");
    std::ofstream(request) << name << '\n';
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (std::filesystem::exists(request) && GetTickCount64() < end)
    {
        LetWindowsDraw();
        Sleep(kBetweenLooks);
    }
    return !std::filesystem::exists(request);
}
