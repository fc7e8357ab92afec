// The type library of the tests' module.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

/// Keeps the module with the library loaded.
class TestLibrary
{
public:
    static constexpr GUID kId = {
        0x3B1E7C52, 0x6C0D, 0x4E7B, {0x9A, 0x7E, 0x51, 0xD0, 0xF4, 0xA2, 0xC8, 0x01}};

    TestLibrary() : m_module(LoadLibraryW(L"wptestmodule.dll")) { EXPECT_NE(m_module, nullptr); }
    ~TestLibrary() { FreeLibrary(m_module); }
    TestLibrary(const TestLibrary&) = delete;
    TestLibrary& operator=(const TestLibrary&) = delete;

    HINSTANCE Module() const { return m_module; }

private:
    HMODULE m_module;
};
