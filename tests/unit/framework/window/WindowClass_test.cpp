#include "framework/window/WindowClass.h"

#include <gtest/gtest.h>

#include "framework/base/Handles.h"
#include "framework/window/CWnd.h"

namespace {

template <class Function>
Function* Entry(const fw::UniqueModule& module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(module.Get(), name)));
}

bool IsRegistered(HINSTANCE module, const wchar_t* name) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    return ::GetClassInfoExW(module, name, &description) != FALSE;
}

TEST(WindowClass, ModuleComesAndGoes_ClassGoesWithIt) {
    for (int round = 1; round <= 3; ++round) {
        fw::UniqueModule module(::LoadLibraryW(L"framework_passing_module.dll"));
        ASSERT_TRUE(module);
        const HINSTANCE instance = module.Get();
        EXPECT_FALSE(IsRegistered(instance, L"KvFramePassing")) << "registered with the first window only";
        const HWND window = Entry<HWND()>(module, "PassingModuleOpen")();
        EXPECT_TRUE(::IsWindow(window)) << "round " << round;
        EXPECT_TRUE(IsRegistered(instance, L"KvFramePassing"));
        EXPECT_EQ(Entry<HRESULT()>(module, "PassingModuleCanUnload")(), S_FALSE);
        EXPECT_EQ(AfxDllCanUnloadNow(), S_OK) << "windows of one module do not hold another";
        Entry<void()>(module, "PassingModuleClose")();
        EXPECT_FALSE(::IsWindow(window));
        EXPECT_EQ(Entry<HRESULT()>(module, "PassingModuleCanUnload")(), S_OK);
        module.Reset();
        EXPECT_FALSE(IsRegistered(instance, L"KvFramePassing"));
    }
}

TEST(WindowClass, Description_IsWhatTheSystemGets) {
    CWnd window;
    const fw::WindowClass described{L"KvFrameTestDescribed", CS_SAVEBITS | CS_DBLCLKS, fw::TextCursor,
                                    reinterpret_cast<HBRUSH>(ULONG_PTR{COLOR_INFOBK + 1})};
    ASSERT_TRUE(window.Create(described, L"", WS_POPUP, {0, 0, 5, 5}, nullptr));
    EXPECT_TRUE(fw::RegisterWindowClass(described)) << "a second time changes nothing";
    EXPECT_EQ(::GetClassLongPtrW(window, GCL_STYLE), static_cast<ULONG_PTR>(CS_SAVEBITS | CS_DBLCLKS));
    EXPECT_EQ(::GetClassLongPtrW(window, GCLP_HBRBACKGROUND), static_cast<ULONG_PTR>(COLOR_INFOBK + 1));
    EXPECT_EQ(reinterpret_cast<HCURSOR>(::GetClassLongPtrW(window, GCLP_HCURSOR)),
              ::LoadCursorW(nullptr, MAKEINTRESOURCEW(fw::TextCursor)));
    EXPECT_EQ(reinterpret_cast<HINSTANCE>(::GetWindowLongPtrW(window, GWLP_HINSTANCE)), fw::ThisModule());
}

TEST(WindowClass, ConstantDescription_BelongsToTheModuleThatHoldsIt) {
    static constexpr fw::WindowClass s_class{L"KvFrameTestConstant"};
    EXPECT_EQ(s_class.Module(), fw::ThisModule());
    fw::WindowClass lent = s_class;
    lent.module = ::GetModuleHandleW(L"KvFrame.dll");
    EXPECT_EQ(lent.Module(), ::GetModuleHandleW(L"KvFrame.dll"));
}

TEST(WindowClass, NameTakenByAForeignClass_IsRefused) {
    WNDCLASSEXW foreign{};
    foreign.cbSize = sizeof foreign;
    foreign.lpfnWndProc = ::DefWindowProcW;
    foreign.hInstance = fw::ThisModule();
    foreign.lpszClassName = L"KvFrameTestForeign";
    ASSERT_NE(::RegisterClassExW(&foreign), 0);
    EXPECT_FALSE(fw::RegisterWindowClass({L"KvFrameTestForeign"}));
    CWnd window;
    EXPECT_FALSE(window.Create({L"KvFrameTestForeign"}, L"", WS_POPUP, {}, nullptr));
    ::UnregisterClassW(L"KvFrameTestForeign", fw::ThisModule());
}

}  // namespace
