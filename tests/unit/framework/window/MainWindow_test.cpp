#include "framework/window/MainWindow.h"

#include <gtest/gtest.h>

#include <thread>

#include "framework/window/CWnd.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

class MainWindowTest : public testing::Test {
protected:
    void TearDown() override { fw::SetMainWindow(nullptr); }
};

TEST_F(MainWindowTest, NobodyToldOne_IsNull) {
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
}

TEST_F(MainWindowTest, OwnWindow_GivesItsObject) {
    kvtest::ProbeWindow window;
    ASSERT_TRUE(window.Show());
    fw::SetMainWindow(window);
    EXPECT_EQ(AfxGetMainWnd(), &window);
}

TEST_F(MainWindowTest, ForeignWindow_GivesAViewOfIt) {
    const HWND foreign =
        ::CreateWindowExW(0, L"STATIC", L"frame", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    fw::SetMainWindow(foreign);
    ASSERT_NE(AfxGetMainWnd(), nullptr);
    EXPECT_EQ(AfxGetMainWnd()->m_hWnd, foreign);
    EXPECT_EQ(AfxGetMainWnd()->GetWindowText(), L"frame");
    ::DestroyWindow(foreign);
    EXPECT_EQ(AfxGetMainWnd(), nullptr) << "the window is gone";
}

TEST_F(MainWindowTest, OtherThread_HasItsOwn) {
    kvtest::ProbeWindow window;
    ASSERT_TRUE(window.Show());
    fw::SetMainWindow(window);
    CWnd* elsewhere = &window;
    std::thread([&] { elsewhere = AfxGetMainWnd(); }).join();
    EXPECT_EQ(elsewhere, nullptr);
}

}  // namespace
