// The texts that the demonstration, as a host, passes to the dialogs, in the user's language.
#pragma once

#include <string>

struct HostTexts
{
    const wchar_t* chooseProject;
    const wchar_t* noneOfThese;
    const wchar_t* chooseTemplate;
    const wchar_t* withoutTemplate;
    const wchar_t* choosePlanType;
    const wchar_t* welding;
    const wchar_t* turning;
};

/// English for every language without texts of its own.
const HostTexts& HostTextsIn(const std::wstring& language);
