#include "ModuleAllocations.h"

#include "MemoryRecord.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace
{
enum class Kind : unsigned char
{
    Unknown, ///< not looked up yet
    Neutral, ///< allocates for its caller, which decides
    Module,
    Window ///< a function of the window system
};

bool StartsWith(const char* name, const char* start)
{
    return std::strncmp(name, start, std::strlen(start)) == 0;
}

/// Functions that are not C++ are those of the system. Texts, variants, arrays and task memory are allocated
/// for their caller.
Kind KindOf(const char* name)
{
    if (std::strstr(name, "N7qptools") || std::strstr(name, "NK7qptools"))
        return Kind::Module;
    for (const char* start : {"_Z", "Sys", "Safe", "Var", "CoTask", "Winport", "backtrace"})
        if (StartsWith(name, start))
            return Kind::Neutral;
    return Kind::Window;
}

/// Looking a name up takes long, so that what was found is kept.
Kind KindAt(void* address)
{
    struct Known
    {
        void* address;
        Kind kind;
    };
    static std::array<Known, 1 << 16> known{};
    Known& place = known[(reinterpret_cast<std::uintptr_t>(address) * 0x9E3779B97F4A7C15ULL) >> 48];
    if (place.address != address)
    {
        Dl_info info{};
        const bool isNamed = dladdr(address, &info) && info.dli_sname;
        place = {address, isNamed ? KindOf(info.dli_sname) : Kind::Neutral};
    }
    return place.kind;
}
} // namespace

bool IsNotOfModule() noexcept
{
    if (MemoryRecord::InCall())
        return true;
    std::array<void*, 48> frames{};
    const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
    for (int frame = 1; frame < count; ++frame)
    {
        const Kind kind = KindAt(frames[static_cast<std::size_t>(frame)]);
        if (kind == Kind::Module || kind == Kind::Window)
            return kind == Kind::Window;
    }
    return true;
}
