// Replaces the libraries for logging and translation, and records their calls.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct LogCall
{
    std::wstring logName;
    std::wstring text;
    int uiDepth;
};

struct TranslationCall
{
    std::wstring text;
    bool changeable; ///< by CoTranslateText2
    bool narrow;     ///< the overload for narrow texts
    int uiDepth;
};

extern std::vector<LogCall> g_logCalls;
extern std::vector<TranslationCall> g_translationCalls;

/// Runs at the end of each translation, if there is one; it may throw.
extern std::function<void()> g_atTranslation;
