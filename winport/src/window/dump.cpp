// Ends the run: names what is not supported and describes the windows.
#include "thread.h"

#include "base/text.h"

#include <cstdio>
#include <cstdlib>

namespace winport
{
namespace
{
void AppendLine(const Window& window, int depth, std::string* dump)
{
    char line[200];
    std::snprintf(line, sizeof line, "%*s%s id %lld, style 0x%08x/0x%x, %d,%d %dx%d%s%s, handle %p",
                  depth * 2, "", Utf8(window.windowClass ? window.windowClass->name : L"?").c_str(),
                  static_cast<long long>(window.id), window.style, window.exStyle, window.rect.left,
                  window.rect.top, window.rect.right - window.rect.left, window.rect.bottom - window.rect.top,
                  window.Visible() ? "" : ", hidden", window.Enabled() ? "" : ", disabled",
                  static_cast<void*>(window.handle));
    *dump += line;
    if (window.handle == ThisThread().focus)
        *dump += ", has the focus";
    if (window.handle == ThisThread().active)
        *dump += ", is active";
    *dump += ": \"" + Utf8(window.text) + "\"\n";
}

void AppendTree(const Window& window, int depth, std::string* dump)
{
    AppendLine(window, depth, dump);
    for (const Window* child : window.children)
        AppendTree(*child, depth + 1, dump);
}

std::string DumpOfAll()
{
    std::string dump;
    for (const Window* window : TopLevelWindows())
        dump += DumpOf(*window);
    for (const Window* window : ThisThread().messageOnly.children)
        dump += DumpOf(*window);
    return dump.empty() ? "There are no windows.\n" : dump;
}
} // namespace

std::string DumpOf(const Window& window)
{
    std::string dump;
    AppendTree(window, 0, &dump);
    return dump;
}

void Missing(const Window* window, const char* what, unsigned long long number)
{
    std::fprintf(stderr, "winport has no %s 0x%llx", what, number);
    if (window)
        std::fprintf(stderr, " for this window:\n%s", DumpOf(*window).c_str());
    std::fprintf(stderr, "\n");
    std::abort();
}

void Stuck(const char* what)
{
    std::fprintf(stderr, "%s\n%s", what, DumpOfAll().c_str());
    std::abort();
}
} // namespace winport
