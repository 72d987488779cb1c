#include "framework/base/ModuleState.h"

#include <gtest/gtest.h>

#include "framework/base/CString.h"
#include "tests/unit/framework/FrameworkTestIds.h"

namespace {

// Puts the resource handle back whatever the test does.
class ResourceHandle : public testing::Test {
protected:
    void TearDown() override { AfxSetResourceHandle(m_saved); }

private:
    HINSTANCE m_saved = AfxGetModuleState()->m_hCurrentResourceHandle;
};

TEST_F(ResourceHandle, NothingSet_IsTheProgram) {
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), ::GetModuleHandleW(nullptr));
}

TEST_F(ResourceHandle, SetThroughTheState_IsSeenByTheFunction) {
    const HINSTANCE other = ::GetModuleHandleW(L"kernel32.dll");
    AfxGetModuleState()->m_hCurrentResourceHandle = other;
    EXPECT_EQ(AfxGetResourceHandle(), other);
}

TEST_F(ResourceHandle, LoadString_PresentAndAbsent_LoadsOrEmpties) {
    CString text(L"old");
    EXPECT_TRUE(text.LoadString(IDS_TEST_TEXT));
    EXPECT_EQ(text, L"varies");
    EXPECT_TRUE(text.LoadString(IDS_TEST_UMLAUT));
    EXPECT_EQ(text, L"gr\u00F6\u00DFe \u2013 \u20AC");
    EXPECT_FALSE(text.LoadString(IDS_TEST_ABSENT));
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(ResourceHandle, LoadString_OtherHandleSet_LooksThere) {
    AfxSetResourceHandle(::GetModuleHandleW(L"KvFrame.dll"));
    CString text;
    EXPECT_FALSE(text.LoadString(IDS_TEST_TEXT));
    EXPECT_TRUE(text.LoadString(fw::ThisModule(), IDS_TEST_TEXT));
}

TEST(ThisModule, CalledInTheProgram_IsItsHandle) {
    EXPECT_EQ(fw::ThisModule(), ::GetModuleHandleW(nullptr));
}

}  // namespace
