#include "type_library.h"

#include "base/text.h"

#include <cstring>

namespace winport
{
namespace
{
constexpr DWORD kMagic = 0x5446534D; // "MSFT"
constexpr std::size_t kHeaderSize = 0x54;
constexpr std::size_t kGuidSegment = 5;
constexpr std::size_t kStringSegment = 8;

// Reads the parts of a library; a read beyond its end fails.
class CLibraryBytes
{
public:
    CLibraryBytes(const unsigned char* data, std::size_t size) : m_data(data), m_size(size) {}

    template <class T>
    bool Get(std::size_t offset, T* value) const
    {
        if (offset > m_size || sizeof(T) > m_size - offset)
            return false;
        std::memcpy(value, m_data + offset, sizeof(T));
        return true;
    }

    // Where a segment begins. The directory follows the header and the table of types, and has 16 bytes a
    // segment.
    bool Segment(std::size_t index, std::size_t* start) const
    {
        constexpr DWORD kHelpDll = 0x100;
        DWORD flags = 0;
        DWORD types = 0;
        DWORD offset = 0;
        if (!Get(0x14, &flags) || !Get(0x20, &types))
            return false;
        const std::size_t directory =
            kHeaderSize + ((flags & kHelpDll) != 0 ? 4 : 0) + std::size_t{types} * 4;
        if (!Get(directory + 16 * index, &offset) || offset >= m_size)
            return false;
        *start = offset;
        return true;
    }

    std::wstring Text(std::size_t offset) const
    {
        WORD length = 0;
        if (!Get(offset, &length) || length > m_size - offset - sizeof(length))
            return {};
        return Wide(
            std::string_view(reinterpret_cast<const char*>(m_data) + offset + sizeof(length), length));
    }

private:
    const unsigned char* m_data;
    std::size_t m_size;
};
} // namespace

bool ReadTypeLibrary(const unsigned char* data, std::size_t size, TypeLibraryIdentity* identity)
{
    const CLibraryBytes bytes(data, size);
    DWORD magic = 0;
    DWORD guid = 0;
    DWORD help = 0;
    std::size_t start = 0;
    if (!bytes.Get(0, &magic) || magic != kMagic || !bytes.Get(0x08, &guid) ||
        !bytes.Get(0x18, &identity->major) || !bytes.Get(0x1A, &identity->minor) ||
        !bytes.Get(0x1C, &identity->flags) || !bytes.Get(0x24, &help) ||
        !bytes.Segment(kGuidSegment, &start) || !bytes.Get(start + guid, &identity->guid))
        return false;
    // An offset of -1 stands for no text.
    if (help != 0xFFFFFFFF && bytes.Segment(kStringSegment, &start))
        identity->helpText = bytes.Text(start + help);
    return true;
}
} // namespace winport
