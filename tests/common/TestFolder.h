// A folder of a test's own, and variables of the environment for the length of a test.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// An empty folder in the temporary directory, removed with all in it at the end.
class TestFolder
{
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

    /// The names of everything in the folder, in order.
    std::vector<std::string> Names() const;

private:
    std::filesystem::path m_path;
};

/// The path of what lies in the program's own folder.
std::filesystem::path BesideProgram(const std::string& name);

/// The bytes of a file; empty if there is none.
std::string ReadBytes(const std::filesystem::path& file);
void WriteBytes(const std::filesystem::path& file, std::string_view bytes);

/// The lines of a file. The last one must end in a line feed like the others, else "(no line feed)" follows
/// it.
std::vector<std::string> ReadLines(const std::filesystem::path& file);

/// Sets or removes an environment variable; the destructor restores the old value.
class TestVariable
{
public:
    TestVariable(const wchar_t* name, const std::optional<std::wstring>& value);
    ~TestVariable();
    TestVariable(const TestVariable&) = delete;
    TestVariable& operator=(const TestVariable&) = delete;

private:
    std::wstring m_name;
    std::optional<std::wstring> m_before;
};
