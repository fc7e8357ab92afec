// A picture of a window.
#pragma once

#include <windows.h>

#include <filesystem>

/// The window of another process as the user sees it, with its frame.
class Screenshot
{
public:
    /// On Windows the window paints itself, wherever it lies; under Wine the screen is copied.
    explicit Screenshot(HWND window);
    ~Screenshot();
    Screenshot(const Screenshot&) = delete;
    Screenshot& operator=(const Screenshot&) = delete;

    /// True if every pixel has one colour: there is no screen, or it is locked.
    bool IsBlank() const;

    /// Writes a PNG file. Returns false if that fails.
    bool Save(const std::filesystem::path& file) const;

private:
    void MakeBitmap();
    bool LetPaint(HWND window);
    void CopyScreen();
    void CutInvisibleFrame(HWND window);

    RECT m_place = {};
    SIZE m_size = {};
    HDC m_canvas = nullptr;
    HBITMAP m_bitmap = nullptr;
    DWORD* m_pixels = nullptr; ///< rows from the top, owned by the bitmap
    RECT m_shown = {};         ///< what of the bitmap is saved
};
