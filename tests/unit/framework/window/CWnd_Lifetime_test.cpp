#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include "framework/window/CWnd.h"
#include "framework/window/WindowClass.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::ProbeWindow;

constexpr UINT g_test = WM_USER + 7;

TEST(CWndLifetime, Create_Succeeds_ObjectIsFoundFromTheFirstMessageOn) {
    ProbeWindow window;
    CWnd* found = nullptr;
    window.filter = [&](UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_NCCREATE) {
            found = CWnd::FromHandlePermanent(window.m_hWnd);
        }
        return false;
    };
    ASSERT_TRUE(window.Show());
    EXPECT_EQ(found, &window);
    EXPECT_EQ(CWnd::FromHandlePermanent(window), &window);
    EXPECT_TRUE(window.IsWindow());
    EXPECT_FALSE(window.Create({L"KvFrameTestProbe"}, L"", WS_POPUP, {}, nullptr)) << "it has a window";
}

TEST(CWndLifetime, Create_GivenParameter_ReachesTheWindow) {
    ProbeWindow window;
    void* received = nullptr;
    int marker = 0;
    window.filter = [&](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        if (message == WM_CREATE) {
            received = reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams;
        }
        return false;
    };
    ASSERT_TRUE(window.CreateEx(WS_EX_TOOLWINDOW, {L"KvFrameTestTool", CS_SAVEBITS | CS_DBLCLKS}, L"tool",
                                WS_POPUP, {0, 0, 5, 5}, nullptr, 0, &marker));
    EXPECT_EQ(received, &marker);
    EXPECT_EQ(window.GetExStyle() & WS_EX_TOOLWINDOW, static_cast<DWORD>(WS_EX_TOOLWINDOW));
    EXPECT_EQ(::GetClassLongPtrW(window, GCL_STYLE), static_cast<ULONG_PTR>(CS_SAVEBITS | CS_DBLCLKS));
}

TEST(CWndLifetime, Destroy_SendsTheFinalMessageOnce) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    const HWND handle = window;
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(window.finals, std::vector<HWND>{handle});
    EXPECT_EQ(window.messages.back(), static_cast<UINT>(WM_NCDESTROY));
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    EXPECT_FALSE(window.DestroyWindow());
}

TEST(CWndLifetime, Destroyed_CanBeCreatedAgain) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    window.DestroyWindow();
    EXPECT_TRUE(window.Show());
    window.DestroyWindow();
    EXPECT_EQ(window.finals.size(), 2U);
}

TEST(CWndLifetime, HandlerDestroysTheWindow_FinalMessageWaitsForTheHandler) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    const HWND handle = window;
    std::size_t finalsInside = 99;
    window.filter = [&](UINT message, WPARAM, LPARAM, LRESULT& result) {
        if (message != g_test) {
            return false;
        }
        window.DestroyWindow();
        EXPECT_EQ(window.m_hWnd, nullptr);
        finalsInside = window.finals.size();
        result = 21;
        return true;
    };
    EXPECT_EQ(::SendMessageW(handle, g_test, 0, 0), 21);
    EXPECT_EQ(finalsInside, 0U);
    EXPECT_EQ(window.finals, std::vector<HWND>{handle});
}

class Ephemeral : public CWnd {
public:
    explicit Ephemeral(int& alive) : m_alive(alive) { ++m_alive; }
    ~Ephemeral() override { --m_alive; }

    LRESULT OnDelete(UINT, WPARAM, LPARAM, BOOL& handled) {
        handled = FALSE;
        delete this;
        return 5;
    }
    LRESULT OnAfterwards(UINT, WPARAM, LPARAM, BOOL&) { return 6; }

    static constexpr std::array s_messages{
        fw::OnMessage(g_test, &Ephemeral::OnDelete),
        fw::OnMessage(g_test, &Ephemeral::OnAfterwards),
    };
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
                   ? result
                   : CWnd::WindowProc(message, wParam, lParam);
    }
    void OnFinalMessage(HWND) override { delete this; }

private:
    int& m_alive;
};

TEST(CWndLifetime, HandlerDeletesTheObject_WindowAndObjectAreGone) {
    int alive = 0;
    auto* const window = new Ephemeral(alive);
    ASSERT_TRUE(window->Create({L"KvFrameTestProbe", CS_DBLCLKS}, L"", WS_POPUP, {0, 0, 9, 9}, nullptr));
    const HWND handle = *window;
    EXPECT_EQ(::SendMessageW(handle, g_test, 0, 0), 5);
    EXPECT_EQ(alive, 0);
    EXPECT_FALSE(::IsWindow(handle));
}

TEST(CWndLifetime, FinalMessageDeletesTheObject_DestroyIsSafe) {
    int alive = 0;
    auto* const window = new Ephemeral(alive);
    ASSERT_TRUE(window->Create({L"KvFrameTestProbe", CS_DBLCLKS}, L"", WS_POPUP, {0, 0, 9, 9}, nullptr));
    EXPECT_TRUE(window->DestroyWindow());
    EXPECT_EQ(alive, 0);
}

TEST(CWndLifetime, ObjectDeleted_WindowIsDestroyedOnce) {
    auto window = std::make_unique<ProbeWindow>();
    ASSERT_TRUE(window->Show());
    const HWND handle = *window;
    int destroys = 0;
    window->filter = [&](UINT message, WPARAM, LPARAM, LRESULT&) {
        destroys += message == WM_DESTROY;
        return false;
    };
    window.reset();
    EXPECT_EQ(destroys, 1);
    EXPECT_FALSE(::IsWindow(handle));
}

TEST(CWndLifetime, ObjectThatDoesNotDestroy_WindowEndsWithIt) {
    HWND handle = nullptr;
    {
        CWnd plain;
        ASSERT_TRUE(plain.Create({L"KvFrameTestProbe", CS_DBLCLKS}, L"", WS_POPUP, {0, 0, 9, 9}, nullptr));
        handle = plain;
    }
    EXPECT_FALSE(::IsWindow(handle));
}

class DiesInDestroy : public CWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_DESTROY) {
            delete this;
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

WNDPROC g_below = nullptr;
std::vector<UINT> g_ends;

LRESULT CALLBACK CountEnds(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY || message == WM_NCDESTROY) {
        g_ends.push_back(message);
    }
    return ::CallWindowProcW(g_below, window, message, wParam, lParam);
}

TEST(CWndLifetime, ObjectDiesInWmDestroy_WindowIsDestroyedOnce) {
    auto* const window = new DiesInDestroy;
    ASSERT_TRUE(window->Create({L"KvFrameTestProbe", CS_DBLCLKS}, L"", WS_POPUP, {0, 0, 9, 9}, nullptr));
    const HWND handle = *window;
    g_ends.clear();
    g_below = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountEnds)));
    EXPECT_TRUE(::DestroyWindow(handle));
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_EQ(g_ends, (std::vector<UINT>{WM_DESTROY, WM_NCDESTROY}));
}

TEST(CWndLifetime, CreateRefusedByTheWindow_LeavesNothingBound) {
    for (const UINT refusing : {UINT{WM_NCCREATE}, UINT{WM_CREATE}}) {
        ProbeWindow window;
        window.filter = [refusing](UINT message, WPARAM, LPARAM, LRESULT& result) {
            result = message == WM_CREATE ? -1 : 0;
            return message == refusing;
        };
        EXPECT_FALSE(window.Show());
        EXPECT_EQ(window.m_hWnd, nullptr);
        window.filter = nullptr;
        EXPECT_TRUE(window.Show()) << "a refusal is not for ever";
    }
}

TEST(CWndLifetime, HandlerThrows_CallerGetsZeroAndTheWindowLives) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    window.filter = [](UINT message, WPARAM, LPARAM, LRESULT&) -> bool {
        if (message == g_test) {
            throw std::runtime_error("from a handler");
        }
        return false;
    };
    EXPECT_EQ(::SendMessageW(window, g_test, 0, 0), 0);
    EXPECT_TRUE(window.IsWindow());
    window.SetWindowText(L"still here");
    EXPECT_EQ(window.GetWindowText(), L"still here");
}

TEST(CWndLifetime, UserData_BelongsToTheConsumer) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    EXPECT_EQ(::GetWindowLongPtrW(window, GWLP_USERDATA), 0);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, 1042);
    EXPECT_EQ(CWnd::FromHandlePermanent(window), &window);
    EXPECT_EQ(::GetWindowLongPtrW(window, GWLP_USERDATA), 1042);
}

TEST(CWndLifetime, FromHandlePermanent_ForeignWindowsAndThreads_GivesNull) {
    EXPECT_EQ(CWnd::FromHandlePermanent(nullptr), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(::GetDesktopWindow()), nullptr);
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    CWnd* elsewhere = &window;
    std::thread([&] { elsewhere = CWnd::FromHandlePermanent(window); }).join();
    EXPECT_EQ(elsewhere, nullptr);
}

TEST(CWndLifetime, Attach_LooksAtAWindow_WithoutOwningIt) {
    ProbeWindow window;
    ASSERT_TRUE(window.Show());
    {
        CWnd view;
        view.Attach(window);
        EXPECT_EQ(view.GetWindowText(), L"probe");
        EXPECT_EQ(CWnd::FromHandlePermanent(window), &window);
    }
    EXPECT_TRUE(window.IsWindow());
    CWnd view;
    view.Attach(window);
    EXPECT_EQ(view.Detach(), window.m_hWnd);
    EXPECT_EQ(view.m_hWnd, nullptr);
}

TEST(CWndLifetime, ModuleIsInUse_WhileItsWindowsLive) {
    EXPECT_EQ(AfxDllCanUnloadNow(), S_OK);
    {
        ProbeWindow first;
        ProbeWindow second;
        ASSERT_TRUE(first.Show());
        ASSERT_TRUE(second.Show());
        EXPECT_EQ(fw::CountWindowsOfModule(fw::ThisModule()), 2);
        first.DestroyWindow();
        EXPECT_EQ(AfxDllCanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(AfxDllCanUnloadNow(), S_OK);
}

}  // namespace
