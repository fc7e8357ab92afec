#include "Translation.h"

#include "CTranslator.h"

#include "ComException.h"
#include "Utf8.h"

#include <new>
#include <string>

namespace
{
std::wstring Widened(const char* text)
{
    const std::string_view bytes = text ? text : "";
    std::wstring wide;
    if (!WideFromUtf8(bytes, wide))
        for (const char byte : bytes)
            wide += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    return wide;
}
} // namespace

const wchar_t* CoTranslateText(const wchar_t* text) noexcept
{
    if (!text)
        return L"";
    try
    {
        const wchar_t* translated = CTranslator::Instance().Find(text);
        return translated ? translated : text;
    }
    catch (...)
    {
        // Out of memory while reading a catalogue: the untranslated text serves the user better than none.
        return text;
    }
}

wchar_t* CoTranslateText2(const wchar_t* text)
try
{
    return CTranslator::Instance().Keep(CoTranslateText(text));
}
catch (const std::bad_alloc&)
{
    ThrowOutOfMemory();
}

wchar_t* CoTranslateText2(const char* text)
try
{
    return CoTranslateText2(Widened(text).c_str());
}
catch (const std::bad_alloc&)
{
    ThrowOutOfMemory();
}
