#include "KeyRequest.h"

#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <system_error>

KeyRequest::KeyRequest(HWND window, const std::string& keys)
{
    static int count = 0;
    const char* folder = std::getenv("QP_KEYS_FOLDER");
    if (!folder)
    {
        ADD_FAILURE() << "there is no keyboard: run this by run-keyboard-tests";
        return;
    }
    const std::string name = std::to_string(++count);
    m_file = std::filesystem::path(folder) / (name + ".keys");
    // Complete from the moment at which it can be found.
    const std::filesystem::path part = std::filesystem::path(folder) / (name + ".part");
    std::ofstream(part, std::ios::binary) << Utf8Text(TextOf(window)) << '\n' << keys << '\n';
    std::error_code failure;
    std::filesystem::rename(part, m_file, failure);
    EXPECT_FALSE(failure) << "no keys can be asked for: " << failure.message();
}

KeyRequest::~KeyRequest()
{
    std::error_code ignored;
    std::filesystem::remove(m_file, ignored);
}

bool KeyRequest::IsAnswered() const
{
    return !std::filesystem::exists(m_file);
}
