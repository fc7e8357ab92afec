// Gives a test program a desktop of its own before it creates a window. On a shared desktop, windows of other
// tests that run at the same time take the focus between two steps.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace
{
class OwnDesktop : public testing::Environment
{
public:
    void SetUp() override
    {
        const std::wstring name = L"QptoolsTest" + std::to_wstring(GetCurrentProcessId());
        m_desktop = CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
        ASSERT_NE(m_desktop, nullptr);
        ASSERT_TRUE(SetThreadDesktop(m_desktop));
    }

private:
    HDESK m_desktop = nullptr; // the end of the process closes it: windows may live until then
};

const testing::Environment* const g_environment = testing::AddGlobalTestEnvironment(new OwnDesktop);
} // namespace
