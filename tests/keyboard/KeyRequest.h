// Keys that are typed on the screen's keyboard, by whoever stands at it.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

/// Asks for keys by a file in the folder that QP_KEYS_FOLDER names. The file is there until they are typed.
class KeyRequest
{
public:
    /// `keys`: names of keys, with blanks between them ("Tab", "shift+Tab", "alt+c"). They are typed once the
    /// window has the keyboard.
    KeyRequest(HWND window, const std::string& keys);

    /// Takes back what was not answered.
    ~KeyRequest();
    KeyRequest(const KeyRequest&) = delete;
    KeyRequest& operator=(const KeyRequest&) = delete;

    bool IsAnswered() const;

private:
    std::filesystem::path m_file;
};
