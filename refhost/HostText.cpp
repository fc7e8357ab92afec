#include "HostText.h"

#include "PlantError.h"

namespace refhost
{
std::wstring FromUtf8(std::string_view text)
{
    std::wstring wide;
    if (!WideFromUtf8(text, wide))
        throw PlantError("a text is not UTF-8");
    return wide;
}

std::string PathText(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool IsUtf8(std::string_view text)
{
    std::wstring ignored;
    return WideFromUtf8(text, ignored);
}
} // namespace refhost
