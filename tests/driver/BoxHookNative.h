// How BoxAnswers sees message boxes natively.
#pragma once

#include "BoxAnswers.h"
#include "winport_test.h"

class BoxAnswers::Hook
{
public:
    explicit Hook(BoxAnswers& answers);
    ~Hook();
    Hook(const Hook&) = delete;
    Hook& operator=(const Hook&) = delete;

private:
    static int OnBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT type);

    WinportBoxHook m_previous;
};
