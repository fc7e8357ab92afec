// Pictures of what is on the screen, taken by whoever looks at it.
#pragma once

#include <filesystem>
#include <string>

/// Asks for pictures by files in a folder: "NAME.request" appears and is there until the picture is taken.
/// Without a folder nobody is asked.
class CPictures
{
public:
    explicit CPictures(std::filesystem::path folder);

    bool Wanted() const { return !m_folder.empty(); }

    /// Asks for a picture of the active window and lets windows draw themselves until it is there. False if
    /// nobody took it in time, and from then on, without asking; true without a folder.
    bool Take(const std::string& name);

private:
    std::filesystem::path m_folder;
    bool m_unanswered = false;
};
