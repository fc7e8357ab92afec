#include "SampleFolder.h"

#include "Resources.h"
#include "Utf8.h"

namespace refhost
{
std::filesystem::path SampleFolder()
{
    const std::string program = Utf8FromWide(ModulePath(nullptr));
    return std::filesystem::path(std::u8string(program.begin(), program.end())).parent_path() / "sample";
}
} // namespace refhost
