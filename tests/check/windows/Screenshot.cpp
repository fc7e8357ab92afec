#include "Screenshot.h"

#include "Machine.h"

#include <objidl.h>

#include <algorithm>
#include <memory>

// Its headers use these names without a namespace.
using std::max;
using std::min;
#include <gdiplus.h>

namespace
{
constexpr UINT kRenderFullContent = 2;    // of PrintWindow, from Windows 8.1 on
constexpr DWORD kExtendedFrameBounds = 9; // of DwmGetWindowAttribute
constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

/// For as long as it lives, pictures can be encoded.
class Encoding
{
public:
    Encoding()
    {
        const Gdiplus::GdiplusStartupInput input;
        m_started = Gdiplus::GdiplusStartup(&m_token, &input, nullptr) == Gdiplus::Ok;
    }
    ~Encoding()
    {
        if (m_started)
            Gdiplus::GdiplusShutdown(m_token);
    }
    Encoding(const Encoding&) = delete;
    Encoding& operator=(const Encoding&) = delete;

private:
    ULONG_PTR m_token = 0;
    bool m_started = false;
};

/// The frame that the user sees; Windows adds invisible borders to it, by which windows are resized.
bool VisibleFrame(HWND window, RECT& frame)
{
    const HMODULE library = LoadLibraryW(L"dwmapi.dll");
    if (!library)
        return false;
    using Ask = HRESULT WINAPI(HWND, DWORD, void*, DWORD);
    const auto ask =
        reinterpret_cast<Ask*>(reinterpret_cast<void*>(GetProcAddress(library, "DwmGetWindowAttribute")));
    const bool known = ask && SUCCEEDED(ask(window, kExtendedFrameBounds, &frame, sizeof frame));
    FreeLibrary(library);
    return known;
}
} // namespace

Screenshot::Screenshot(HWND window)
{
    GetWindowRect(window, &m_place);
    m_size = {std::max<LONG>(m_place.right - m_place.left, 1),
              std::max<LONG>(m_place.bottom - m_place.top, 1)};
    m_shown = {0, 0, m_size.cx, m_size.cy};
    MakeBitmap();
    if (RunsUnderWine() || !LetPaint(window) || IsBlank())
        CopyScreen();
    CutInvisibleFrame(window);
}

Screenshot::~Screenshot()
{
    DeleteDC(m_canvas);
    DeleteObject(m_bitmap);
}

void Screenshot::MakeBitmap()
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = m_size.cx;
    info.bmiHeader.biHeight = -m_size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    m_canvas = CreateCompatibleDC(nullptr);
    m_bitmap = CreateDIBSection(m_canvas, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    m_pixels = static_cast<DWORD*>(pixels);
}

bool Screenshot::LetPaint(HWND window)
{
    const HGDIOBJ before = SelectObject(m_canvas, m_bitmap);
    const bool painted = PrintWindow(window, m_canvas, kRenderFullContent);
    SelectObject(m_canvas, before);
    return painted;
}

void Screenshot::CopyScreen()
{
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(m_canvas, m_bitmap);
    BitBlt(m_canvas, 0, 0, m_size.cx, m_size.cy, screen, m_place.left, m_place.top, SRCCOPY);
    SelectObject(m_canvas, before);
    ReleaseDC(nullptr, screen);
    GdiFlush();
}

// The frame is in pixels of the screen, the window in those that this program is told. Where they differ
// nothing is cut.
void Screenshot::CutInvisibleFrame(HWND window)
{
    RECT frame = {};
    RECT inside = {};
    if (!VisibleFrame(window, frame) || !IntersectRect(&inside, &frame, &m_place) ||
        !EqualRect(&inside, &frame))
        return;
    m_shown = frame;
    OffsetRect(&m_shown, -m_place.left, -m_place.top);
}

bool Screenshot::IsBlank() const
{
    if (!m_pixels)
        return true;
    const std::ptrdiff_t count = static_cast<std::ptrdiff_t>(m_size.cx) * m_size.cy;
    return std::all_of(m_pixels, m_pixels + count,
                       [this](DWORD pixel) { return (pixel & 0xFFFFFF) == (*m_pixels & 0xFFFFFF); });
}

bool Screenshot::Save(const std::filesystem::path& file) const
{
    static const Encoding encoding;
    Gdiplus::Bitmap whole(m_size.cx, m_size.cy, m_size.cx * 4, PixelFormat32bppRGB,
                          reinterpret_cast<BYTE*>(m_pixels));
    const Gdiplus::Rect part(m_shown.left, m_shown.top, m_shown.right - m_shown.left,
                             m_shown.bottom - m_shown.top);
    const std::unique_ptr<Gdiplus::Bitmap> shown(whole.Clone(part, PixelFormat24bppRGB));
    return shown && shown->Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}
