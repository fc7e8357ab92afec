// The unpacked kit: what it holds and where its results go.
#pragma once

#include "KnownDifferences.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

struct KitProgram
{
    std::string name;
    bool alone = false; ///< none other may run meanwhile
};

/// Throws std::runtime_error if a file is missing or not understood.
class Kit
{
public:
    /// The kit of which this program is a part: it lies in the folder bin.
    Kit();

    const std::filesystem::path& Folder() const { return m_folder; }
    std::filesystem::path Bin() const { return m_folder / "bin"; }
    std::filesystem::path Results() const { return m_folder / "results"; }
    std::filesystem::path Pictures() const { return m_folder / "pictures"; }

    const std::string& Version() const { return m_version; }
    const std::vector<KitProgram>& Programs() const { return m_programs; }
    const std::vector<std::pair<std::string, std::string>>& LeftOut() const { return m_leftOut; }
    const KnownDifferences& Known() const { return m_known; }

    /// Deletes the results of an earlier run.
    void ClearResults() const;

private:
    void ReadPrograms();
    void ReadLeftOut();

    std::filesystem::path m_folder;
    std::string m_version;
    std::vector<KitProgram> m_programs;
    std::vector<std::pair<std::string, std::string>> m_leftOut;
    KnownDifferences m_known;
};

/// The bytes of a file from `offset` on; throws std::runtime_error if it cannot be opened.
std::string ReadKitFile(const std::filesystem::path& file, std::uintmax_t offset = 0);

/// Writes UTF-8 with the byte order mark and the line ends that Windows programs look for.
void WriteForWindows(const std::filesystem::path& file, const std::string& text);
