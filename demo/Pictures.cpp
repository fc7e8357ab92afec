#include "Pictures.h"

#include <windows.h>

#include <fstream>
#include <utility>

namespace
{
constexpr ULONGLONG kPatience = 10'000; // milliseconds
constexpr DWORD kBetweenLooks = 20;

void LetWindowsDraw()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE))
        DispatchMessageW(&message);
}
} // namespace

CPictures::CPictures(std::filesystem::path folder) : m_folder(std::move(folder)) {}

bool CPictures::Take(const std::string& name)
{
    if (!Wanted() || m_unanswered)
        return !m_unanswered;
    const std::filesystem::path request = m_folder / (name + ".request");
    std::ofstream(request) << name << '\n';
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (std::filesystem::exists(request) && GetTickCount64() < end)
    {
        LetWindowsDraw();
        Sleep(kBetweenLooks);
    }
    m_unanswered = std::filesystem::exists(request);
    return !m_unanswered;
}
