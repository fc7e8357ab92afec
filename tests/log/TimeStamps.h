// Time stamps of the log: their shape, and the moment between two that a written one must lie in.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>

/// How a time stamp looks, as a regular expression.
inline const std::string kTimeStampShape =
    "Date/Time [0-9]{4}-[0-9]{2}-[0-9]{2} @ ([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]";

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

inline bool HasShape(const std::string& text, const std::string& shape)
{
    return std::regex_match(text, std::regex(shape));
}

/// Expects `stamp` to be a time stamp from `before` until now. Stamps compare as texts.
inline void ExpectStampSince(const std::string& before, const std::string& stamp)
{
    EXPECT_TRUE(HasShape(stamp, kTimeStampShape)) << stamp;
    EXPECT_LE(before, stamp);
    EXPECT_LE(stamp, TimeStampNow());
}
