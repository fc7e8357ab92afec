// Inside the module's UI state its own resources are found, outside the program's.
#include "InsideModule.h"

#include "Resources.h"
#include "UiState.h"

#include <stdexcept>

namespace
{
/// The application object of the test program stands for the module, so it is given the real one's handle.
class InModule : public testing::Test
{
protected:
    void SetUp() override
    {
        ReleaseModuleActivationContext();
        library = LoadLibraryW(L"qptools.dll");
        ASSERT_NE(library, nullptr);
        CWinApp::Get()->m_hInstance = library;
    }
    void TearDown() override
    {
        ReleaseModuleActivationContext();
        FreeLibrary(library);
    }
    static HANDLE ActiveContext()
    {
        HANDLE context = nullptr;
        EXPECT_TRUE(GetCurrentActCtx(&context));
        if (context)
            ReleaseActCtx(context);
        return context;
    }

    HMODULE library = nullptr;
};
} // namespace

TEST_F(InModule, StringsResolveInTheModuleInsideAndNotOutside)
{
    EXPECT_EQ(ResourceString(100), L"");
    {
        const CUiState state;
        EXPECT_EQ(ResourceString(100), L"qptools");
        EXPECT_EQ(ResourceString(101), L"");
    }
    EXPECT_EQ(ResourceString(100), L"");
}

TEST_F(InModule, IconsResolveInTheModuleInsideAndNotOutside)
{
    EXPECT_TRUE(ResourceBytes(CurrentModule(), 385, RT_GROUP_ICON).empty());
    const CUiState state;
    EXPECT_FALSE(ResourceBytes(CurrentModule(), 385, RT_GROUP_ICON).empty());
}

TEST_F(InModule, TheActivationContextIsMadeAtTheFirstEntryAndActive)
{
    const HANDLE outside = ActiveContext();
    {
        const CUiState state;
        EXPECT_NE(ModuleActivationContext(), INVALID_HANDLE_VALUE);
        EXPECT_EQ(ActiveContext(), ModuleActivationContext());
        {
            const CUiState nested;
            EXPECT_EQ(ActiveContext(), ModuleActivationContext());
        }
        EXPECT_EQ(ActiveContext(), ModuleActivationContext());
    }
    EXPECT_EQ(ActiveContext(), outside);
}

TEST_F(InModule, AnExceptionRestoresTheActivationContextOfTheCaller)
{
    const HANDLE outside = ActiveContext();
    try
    {
        const CUiState state;
        throw std::runtime_error("out");
    }
    catch (const std::runtime_error&)
    {
        EXPECT_EQ(ActiveContext(), outside);
        EXPECT_EQ(CUiState::Depth(), 0);
    }
}

TEST_F(InModule, ACalleeThatLeavesAContextActiveDoesNotKeepOurs)
{
    const HANDLE outside = ActiveContext();
    {
        const CUiState state;
        ULONG_PTR forgotten = 0;
        ASSERT_TRUE(ActivateActCtx(nullptr, &forgotten));
    }
    EXPECT_EQ(ActiveContext(), outside);
    EXPECT_EQ(CUiState::Depth(), 0);
}
