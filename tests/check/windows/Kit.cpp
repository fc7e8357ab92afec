#include "Kit.h"

#include "Lines.h"

#include "Resources.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

Kit::Kit() : m_folder(fs::path(ModulePath(nullptr)).parent_path().parent_path())
{
    m_version = ContentLines(ReadKitFile(m_folder / "version.txt")).at(0);
    ReadPrograms();
    ReadLeftOut();
    m_known = KnownDifferences::Read(ReadKitFile(m_folder / "known-differences.txt"));
}

void Kit::ReadPrograms()
{
    for (const std::string& line : ContentLines(ReadKitFile(m_folder / "programs.txt")))
    {
        const std::vector<std::string> columns = Columns(line, ' ');
        if (columns.size() != 2 || (columns[1] != "alone" && columns[1] != "beside"))
            throw std::runtime_error("programs.txt: not understood: " + line);
        m_programs.push_back({columns[0], columns[1] == "alone"});
    }
}

void Kit::ReadLeftOut()
{
    for (const std::string& line : ContentLines(ReadKitFile(m_folder / "left-out.txt")))
    {
        const std::vector<std::string> columns = Columns(line, '|');
        if (columns.size() != 2)
            throw std::runtime_error("left-out.txt: not understood: " + line);
        m_leftOut.emplace_back(columns[0], columns[1]);
    }
}

void Kit::ClearResults() const
{
    fs::remove_all(Results());
    fs::create_directories(Results());
    std::error_code ignored;
    fs::remove(m_folder / "check-report.txt", ignored);
    fs::remove(m_folder / "pictures.html", ignored);
    for (const fs::directory_entry& entry : fs::directory_iterator(Pictures()))
        if (entry.path().wstring().ends_with(L"-here.png"))
            fs::remove(entry.path(), ignored);
}

std::string ReadKitFile(const fs::path& file, std::uintmax_t offset)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + file.filename().string() + ": is the whole kit unpacked?");
    stream.seekg(static_cast<std::streamoff>(offset));
    return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteForWindows(const fs::path& file, const std::string& text)
{
    std::ofstream stream(file, std::ios::binary);
    stream << "\xEF\xBB\xBF";
    for (const char character : text)
        if (character == '\n')
            stream << "\r\n";
        else if (character != '\r')
            stream << character;
    if (!stream.flush())
        throw std::runtime_error("cannot write " + file.filename().string());
}
