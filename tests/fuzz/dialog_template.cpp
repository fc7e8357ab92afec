// Dialog templates. Like the system's, their reader gets no length: zeros follow the bytes, enough for the
// longest data and for all controls, so a read beyond them is a mistake.
#include "dialog/dialog.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace winport
{
namespace
{
constexpr WORD kMostControls = 200;
constexpr std::size_t kLongestData = 0x8000; // units
constexpr std::size_t kControlOfZeros = 16;  // units
constexpr WORD kExtended = 0xFFFF;           // behind a 1

/// Thrown instead of the end of the run.
struct Refused
{
};
} // namespace

void Missing(const Window*, const char*, unsigned long long)
{
    throw Refused();
}
} // namespace winport

using namespace winport;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<WORD> units((size + 1) / 2 + kLongestData + kMostControls * kControlOfZeros);
    if (size)
        std::memcpy(units.data(), data, size);
    const bool extended = units[0] == 1 && units[1] == kExtended;
    const WORD count = extended ? units[8] : units[4];
    if (count > kMostControls)
        return -1; // more of the same
    try
    {
        const Template read = ReadTemplate(reinterpret_cast<const DLGTEMPLATE*>(units.data()));
        if (read.controls.size() > count)
            std::abort();
        for (const TemplateItem& control : read.controls)
            if (control.data && (control.data < units.data() || control.data >= units.data() + units.size()))
                std::abort();
    }
    catch (const Refused&)
    {
        return 0;
    }
    return 0;
}
