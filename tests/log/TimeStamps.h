// Time stamps of the log: their shape, and the moment between two that a written one must lie in.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

/// How a time stamp looks; 0 stands for any digit.
inline const std::string kTimeStampShape = "Date/Time 0000-00-00 @ 00:00:00";

/// The local time now as a time stamp, composed without the functions that the log uses to format it.
inline std::string TimeStampNow()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char text[64];
    std::snprintf(text, sizeof text, "Date/Time %04d-%02d-%02d @ %02d:%02d:%02d", now.wYear, now.wMonth,
                  now.wDay, now.wHour, now.wMinute, now.wSecond);
    return text;
}

/// Whether `text` is `shape` with digits in place of its zeros.
inline bool HasShape(const std::string& text, const std::string& shape)
{
    return std::equal(
        text.begin(), text.end(), shape.begin(), shape.end(), [](char character, char expected) {
            return expected == '0' ? character >= '0' && character <= '9' : character == expected;
        });
}

/// Expects `stamp` to be a time stamp from `before` until now. Stamps compare as texts.
inline void ExpectStampSince(const std::string& before, const std::string& stamp)
{
    EXPECT_TRUE(HasShape(stamp, kTimeStampShape)) << stamp;
    EXPECT_LE(before, stamp);
    EXPECT_LE(stamp, TimeStampNow());
}
