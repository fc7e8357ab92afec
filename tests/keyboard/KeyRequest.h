// Keys to be typed on the screen's keyboard, and clicks of its mouse, by tools/with-keys.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

/// Requests keys by a file in the folder that QP_KEYS_FOLDER names. The file exists until they are typed.
class KeyRequest
{
public:
    /// `keys`: names of keys, separated by blanks ("Tab", "shift+Tab", "alt+c"), or "click", "double" or
    /// "wheel" with a point of the screen ("click 120 80"), or "drag" with two points. They are typed once
    /// the window has the focus.
    KeyRequest(HWND window, const std::string& keys);

    /// Withdraws a request that was not answered.
    ~KeyRequest();
    KeyRequest(const KeyRequest&) = delete;
    KeyRequest& operator=(const KeyRequest&) = delete;

    bool IsAnswered() const;

private:
    std::filesystem::path m_file;
};
