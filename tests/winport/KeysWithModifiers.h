// Keys pressed while others are held down.
#pragma once

#include "ControlHost.h"

#include <initializer_list>

/// Holds keys down in the thread's keyboard state during its lifetime.
class CHeldKeys
{
public:
    CHeldKeys(std::initializer_list<WORD> keys)
    {
        GetKeyboardState(m_before);
        BYTE state[256];
        GetKeyboardState(state);
        for (const WORD key : keys)
            state[key] = 0x80;
        SetKeyboardState(state);
    }
    ~CHeldKeys() { SetKeyboardState(m_before); }
    CHeldKeys(const CHeldKeys&) = delete;
    CHeldKeys& operator=(const CHeldKeys&) = delete;

private:
    BYTE m_before[256];
};

inline void PressWith(const ControlHost& host, WORD key, std::initializer_list<WORD> held)
{
    const CHeldKeys keys(held);
    host.Press(key);
}
