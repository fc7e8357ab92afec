// The parts of a PE file that tests look at, read from the file itself and not from the loader.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class CPortableImage
{
public:
    /// Throws std::runtime_error if the file cannot be read or is no 64-bit image.
    explicit CPortableImage(const std::wstring& path);

    const IMAGE_NT_HEADERS64& Headers() const { return m_headers; }

    /// Names of the DLLs imported, in lower case.
    std::vector<std::string> ImportedDlls() const;

    /// Names exported, in the order of the table.
    std::vector<std::string> ExportedNames() const;

    /// How many functions are exported, by name or by number alone.
    DWORD ExportedFunctions() const { return Exports().NumberOfFunctions; }

    DWORD ExportTime() const { return Exports().TimeDateStamp; }

    /// The two fields of the resource directory's header that tools like to fill with the time.
    DWORD ResourceTime() const;

    const std::vector<IMAGE_SECTION_HEADER>& Sections() const { return m_sections; }

    /// Size in bytes of what a data directory refers to, 0 if there is none.
    DWORD DirectorySize(int index) const { return m_headers.OptionalHeader.DataDirectory[index].Size; }

    const std::string& Bytes() const { return m_bytes; }

private:
    template <class T>
    T Read(size_t offset) const;
    std::string ReadText(DWORD address) const;
    size_t OffsetOf(DWORD address) const;
    IMAGE_EXPORT_DIRECTORY Exports() const;
    DWORD Directory(int index) const { return m_headers.OptionalHeader.DataDirectory[index].VirtualAddress; }

    std::string m_bytes;
    IMAGE_NT_HEADERS64 m_headers{};
    std::vector<IMAGE_SECTION_HEADER> m_sections;
};
