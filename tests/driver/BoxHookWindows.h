// How BoxAnswers sees message boxes on Windows.
#pragma once

#include "BoxAnswers.h"

/// A hook on the thread's window events sees a box come up; the box itself is looked at and answered from a
/// message that its own modal loop delivers, when everything in it stands. Boxes are known by what they are
/// made of, never by their title: other tests share the desktop.
class BoxAnswers::Hook
{
public:
    explicit Hook(BoxAnswers& answers);
    ~Hook();
    Hook(const Hook&) = delete;
    Hook& operator=(const Hook&) = delete;

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details);
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM box, LPARAM details);

    HWND m_receiver = nullptr;
    HHOOK m_hook = nullptr;
};
