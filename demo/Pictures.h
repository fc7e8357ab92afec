// Requests for pictures of the screen, which another program takes.
#pragma once

#include <filesystem>
#include <string>

/// A request is a file "NAME.request" in a folder; it is deleted when the picture has been taken. Without a
/// folder nothing is requested.
class CPictures
{
public:
    explicit CPictures(std::filesystem::path folder);

    bool Wanted() const { return !m_folder.empty(); }

    /// Requests a picture of the active window and dispatches messages until it has been taken. Returns false
    /// if that takes too long and, without a request, ever after; true without a folder.
    bool Take(const std::string& name);

private:
    std::filesystem::path m_folder;
    bool m_unanswered = false;
};
