#include "DialogPictures.h"

#include "PicturePage.h"
#include "Screenshot.h"

#include <fstream>

namespace fs = std::filesystem;

namespace
{
constexpr DWORD kBetweenLooks = 50;
constexpr DWORD kUntilDrawn = 400;

/// The frontmost visible window of a process: windows are enumerated from the front.
struct Frontmost
{
    DWORD process;
    HWND window;
};

BOOL CALLBACK IsFrontmost(HWND window, LPARAM parameter)
{
    auto& sought = *reinterpret_cast<Frontmost*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != sought.process || !IsWindowVisible(window))
        return TRUE;
    sought.window = window;
    return FALSE;
}

/// The active window of a process, even if another process has the foreground.
HWND ActiveWindowOf(DWORD process)
{
    Frontmost front = {process, nullptr};
    EnumWindows(IsFrontmost, reinterpret_cast<LPARAM>(&front));
    if (!front.window)
        return nullptr;
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(front.window, nullptr);
    return GetGUIThreadInfo(thread, &info) && info.hwndActive ? info.hwndActive : front.window;
}

/// A window that lies behind others, or beyond the edge of the screen, comes to where it can be copied.
void BringForward(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    const bool inside = place.left >= 0 && place.top >= 0 && place.right <= GetSystemMetrics(SM_CXSCREEN) &&
                        place.bottom <= GetSystemMetrics(SM_CYSCREEN);
    SetWindowPos(window, HWND_TOP, 60, 60, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE | (inside ? SWP_NOMOVE : 0));
}
} // namespace

DialogPictures::DialogPictures(const Kit& kit, ULONGLONG patience, Says says)
    : m_kit(kit), m_patience(patience), m_says(std::move(says))
{
}

PictureResult DialogPictures::Take()
{
    for (const char* language : {"en", "de"})
        if (m_result.impossible.empty())
            TakeIn(language);
    const std::set<std::string> here = Names("here");
    const std::set<std::string> wine = Names("wine");
    m_result.taken = static_cast<int>(here.size());
    m_result.wine = static_cast<int>(wine.size());
    if (m_result.impossible.empty())
        for (const std::string& name : wine)
            if (!here.count(name))
                Fail("there is none of " + name);
    std::ofstream(m_kit.Folder() / "pictures.html", std::ios::binary)
        << PicturePage(m_kit.Version(), here, wine);
    return m_result;
}

void DialogPictures::TakeIn(const std::string& language)
{
    const fs::path requests = m_kit.Results() / ("requests-" + language);
    fs::create_directories(requests);
    ChildProcess demo(m_kit.Bin() / "qpdemo.exe",
                      L"--dialogs " + std::wstring(language.begin(), language.end()) + L" --pictures \"" +
                          requests.wstring() + L"\"",
                      m_kit.Results() / ("qpdemo-" + language + ".log"));
    if (demo.StartError() != 0)
        return Fail("the demonstration could not be started: error " + std::to_string(demo.StartError()));
    Answer(demo, language, requests);
    m_says("pictures in " + language + ": " +
           (m_result.impossible.empty() ? "done" : "none, " + m_result.impossible));
}

void DialogPictures::Answer(ChildProcess& demo, const std::string& language, const fs::path& requests)
{
    while (!demo.ExitCode() && m_result.impossible.empty())
    {
        for (const fs::directory_entry& entry : fs::directory_iterator(requests))
            if (entry.path().extension() == ".request")
                TakeOne(demo.Id(), language, entry.path());
        if (demo.SilentFor() > m_patience)
            return Fail("the demonstration in " + language + " did not go on");
        Sleep(kBetweenLooks);
    }
    if (m_result.impossible.empty() && *demo.ExitCode() != 0)
        Fail("the demonstration in " + language + " failed; see qpdemo-" + language + ".log");
}

void DialogPictures::TakeOne(DWORD process, const std::string& language, const fs::path& request)
{
    Sleep(kUntilDrawn);
    const HWND window = ActiveWindowOf(process);
    if (!window)
        return;
    BringForward(window);
    const Screenshot picture(window);
    if (picture.IsBlank())
    {
        m_result.impossible = "the screen cannot be read: there is none, or it is locked";
        return;
    }
    const std::string name = request.stem().string() + "-" + language;
    if (!picture.Save(m_kit.Pictures() / (name + "-here.png")))
        Fail("the picture of " + name + " could not be written");
    std::error_code tryAgain;
    fs::remove(request, tryAgain);
}

std::set<std::string> DialogPictures::Names(const std::string& where) const
{
    const std::string ending = "-" + where + ".png";
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_kit.Pictures()))
    {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(ending))
            names.insert(name.substr(0, name.size() - ending.size()));
    }
    return names;
}
