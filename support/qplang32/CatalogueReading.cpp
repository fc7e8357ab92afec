#include "CatalogueReading.h"

#include "CFileHandle.h"
#include "XQPError.h"

#include "OutOfMemory.h"
#include "Resources.h"

#include <windows.h>

#include <string_view>

namespace
{
constexpr LONGLONG kMaxSize = 16 << 20;
constexpr LONG kUnreadable = static_cast<LONG>(0x8007000D); // HRESULT of ERROR_INVALID_DATA

// Returns null on success, else why the file cannot be read.
const wchar_t* ReadFileWhole(const CFileHandle& file, std::string& bytes)
{
    LARGE_INTEGER size{}; // 0 if it cannot be told: an empty file is no catalogue either
    GetFileSizeEx(file.Get(), &size);
    if (size.QuadPart > kMaxSize)
        return L"the file is too large";
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    DWORD read = 0;
    ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    return read == bytes.size() ? nullptr : L"the file cannot be read";
}

const wchar_t* ReadInto(const CFileHandle& file, CMessageCatalogue& catalogue)
{
    if (!file)
        return L"the file cannot be opened";
    std::string bytes;
    const wchar_t* wrong = ReadFileWhole(file, bytes);
    return wrong ? wrong : catalogue.Read(bytes);
}

// The path of the module that contains this code. Empty if it cannot be determined.
std::wstring OwnFile()
{
    static const char anchor = 0;
    HMODULE module = nullptr;
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    // Never fails for an address of its own module.
    GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&anchor), &module);
    std::wstring path = ModulePath(module);
    if (path.empty())
        ThrowIfOutOfMemory();
    return path;
}
} // namespace

std::wstring CatalogueDirectory()
{
    const std::wstring file = OwnFile();
    const std::size_t separator = file.find_last_of(L"\\/");
    if (separator == std::wstring::npos)
        return {};
    return file.substr(0, separator + 1) + L"locale";
}

std::unique_ptr<CMessageCatalogue> ReadCatalogue(const std::wstring& path)
{
    const CFileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                       nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD error = GetLastError();
    if (!file && (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND))
        return nullptr;
    if (!file)
        ThrowIfOutOfMemory();
    auto catalogue = std::make_unique<CMessageCatalogue>();
    const wchar_t* wrong = ReadInto(file, *catalogue);
    if (!wrong)
        return catalogue;
    const std::wstring text = L"The catalogue " + path + L" is not used: " + wrong;
    XQPError::WriteErrorToLogBook(L"QPLang32", L"ReadCatalogue", 0, text.c_str(), kUnreadable);
    return nullptr;
}
