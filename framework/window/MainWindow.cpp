#include "framework/window/MainWindow.h"

#include "framework/window/CWnd.h"

namespace {

struct MainWindow {
    HWND handle = nullptr;
    CWnd view;  // looks at a main window that is not ours
};

thread_local MainWindow t_main;

}  // namespace

namespace fw {

void SetMainWindow(HWND window) {
    t_main.handle = window;
    t_main.view.Detach();
}

}  // namespace fw

CWnd* AfxGetMainWnd() {
    if (!t_main.handle || !::IsWindow(t_main.handle)) {
        return nullptr;
    }
    if (CWnd* const permanent = CWnd::FromHandlePermanent(t_main.handle)) {
        return permanent;
    }
    t_main.view.Attach(t_main.handle);
    return &t_main.view;
}
