// Keys and tree strings of bookmarks: the identifier in any text is a part of it that ends with its
// delimiter, or empty.
#include "BookmarkKeys.h"
#include "Utf8.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace
{
/// Whether `id` is the part of `text` that begins at `begin` and ends with the first delimiter behind that.
bool IsPart(const XQPComBSTR& id, std::wstring_view text, std::size_t begin, wchar_t delimiter)
{
    const std::size_t end = text.find(delimiter, begin);
    if (end == std::wstring_view::npos)
        return id.IsEmpty();
    return id.View() == text.substr(begin, end - begin + 1);
}

void Check(const XQPComBSTR& text)
{
    using namespace qptools;
    const std::size_t dollar = text.View().find(L'$');
    if (!IsPart(ProjectIdIn(text), text.View(), dollar == std::wstring_view::npos ? 0 : dollar, L')'))
        std::abort();
    if (!IsPart(ObjectIdIn(text, text.Find(L';', kObjectIdStart)), text.View(), kObjectIdStart, L';'))
        std::abort();
    // The list takes the first ")" of the whole text, also one before the identifier.
    if (ObjectIdIn(text, text.Find(L')')).Length() > text.Length())
        std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::wstring text;
    if (!WideFromUtf8({reinterpret_cast<const char*>(data), size}, text))
        return -1;
    Check(XQPComBSTR(text.c_str(), static_cast<int>(text.size())));
    return 0;
}
