#include "framework/window/MainWindow.h"

#include "framework/window/CWnd.h"

namespace {

struct MainWindow {
    HWND handle = nullptr;
    CWnd view;  // looks at a main window that is not ours
};

// Owned by its thread until it names no main window. A pointer, since the compiler's runtime may free what a
// thread keeps before it destroys it.
thread_local MainWindow* t_main = nullptr;

}  // namespace

namespace fw {

void SetMainWindow(HWND window) {
    delete t_main;
    t_main = nullptr;
    if (window) {
        t_main = new MainWindow;
        t_main->handle = window;
    }
}

}  // namespace fw

CWnd* AfxGetMainWnd() {
    if (!t_main || !::IsWindow(t_main->handle)) {
        return nullptr;
    }
    if (CWnd* const permanent = CWnd::FromHandlePermanent(t_main->handle)) {
        return permanent;
    }
    t_main->view.Attach(t_main->handle);
    return &t_main->view;
}
