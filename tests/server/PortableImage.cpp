#include "PortableImage.h"

#include "TypeLibraryText.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

CPortableImage::CPortableImage(const std::wstring& path)
{
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    m_bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    const auto headerOffset = static_cast<size_t>(Read<IMAGE_DOS_HEADER>(0).e_lfanew);
    m_headers = Read<IMAGE_NT_HEADERS64>(headerOffset);
    if (m_headers.Signature != IMAGE_NT_SIGNATURE ||
        m_headers.OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR64_MAGIC)
        throw std::runtime_error("not a 64-bit image");
    const size_t sections = headerOffset + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) +
                            m_headers.FileHeader.SizeOfOptionalHeader;
    for (WORD i = 0; i < m_headers.FileHeader.NumberOfSections; ++i)
        m_sections.push_back(Read<IMAGE_SECTION_HEADER>(sections + i * sizeof(IMAGE_SECTION_HEADER)));
}

template <class T>
T CPortableImage::Read(size_t offset) const
{
    if (offset + sizeof(T) > m_bytes.size())
        throw std::runtime_error("the image ends too early");
    T value;
    std::memcpy(&value, m_bytes.data() + offset, sizeof value);
    return value;
}

std::string CPortableImage::ReadText(DWORD address) const
{
    return m_bytes.c_str() + OffsetOf(address);
}

size_t CPortableImage::OffsetOf(DWORD address) const
{
    for (const IMAGE_SECTION_HEADER& section : m_sections)
    {
        if (address >= section.VirtualAddress && address < section.VirtualAddress + section.SizeOfRawData)
            return address - section.VirtualAddress + section.PointerToRawData;
    }
    throw std::runtime_error("an address lies in no section");
}

IMAGE_EXPORT_DIRECTORY CPortableImage::Exports() const
{
    return Read<IMAGE_EXPORT_DIRECTORY>(OffsetOf(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT)));
}

std::vector<std::string> CPortableImage::ImportedDlls() const
{
    std::vector<std::string> names;
    for (size_t at = OffsetOf(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT));;
         at += sizeof(IMAGE_IMPORT_DESCRIPTOR))
    {
        const auto entry = Read<IMAGE_IMPORT_DESCRIPTOR>(at);
        if (entry.Name == 0)
            return names;
        std::string name = ReadText(entry.Name);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return std::tolower(c); });
        names.push_back(name);
    }
}

std::vector<std::string> CPortableImage::ExportedNames() const
{
    const IMAGE_EXPORT_DIRECTORY exports = Exports();
    std::vector<std::string> names;
    for (DWORD i = 0; i < exports.NumberOfNames; ++i)
        names.push_back(ReadText(Read<DWORD>(OffsetOf(exports.AddressOfNames) + i * sizeof(DWORD))));
    return names;
}

DWORD CPortableImage::ResourceTime() const
{
    return Read<IMAGE_RESOURCE_DIRECTORY>(OffsetOf(Directory(IMAGE_DIRECTORY_ENTRY_RESOURCE))).TimeDateStamp;
}
