// Inside the framework: the border between the system and CWnd. No exception gets past it.
#pragma once

#include "framework/base/WindowsApi.h"

class CWnd;

class CWndEntry {
public:
    enum class Origin { Created, Found };

    // The procedure of every window class of ours and of every subclassed window.
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // Ties object and window together, and apart. Both count as the end or begin of a permanent window.
    static bool Bind(CWnd& object, HWND window, HINSTANCE module, Origin origin);
    static void Unbind(CWnd& object);

    // Puts our procedure in front of the window's own, and takes it away again.
    static void TakeProcedure(CWnd& object, HWND window);
    static void GiveProcedureBack(CWnd& object, HWND window);

    // An earlier object may have had to leave our procedure in the chain: putting it there once more would
    // close the chain to a ring. Afterwards the object has a former procedure if that was so.
    static void TakeProcedureLeftBehind(CWnd& object, HWND window);

    // True while the window is inside WM_DESTROY or WM_NCDESTROY.
    static bool IsEnding(const CWnd& object);

    static bool PreTranslate(CWnd& object, MSG& message);

private:
    static LRESULT Dispatch(CWnd& object, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT WithoutObject(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

// Ties an object to the next window of a class that the thread creates, before that window's first message.
class WindowCapture {
public:
    WindowCapture(CWnd& object, const wchar_t* className, HINSTANCE module);
    ~WindowCapture();
    WindowCapture(const WindowCapture&) = delete;
    WindowCapture& operator=(const WindowCapture&) = delete;

private:
    static LRESULT CALLBACK OnWindowEvent(int code, WPARAM wParam, LPARAM lParam);
    void Take(HWND window);
    void End();

    CWnd& m_object;
    const wchar_t* m_className;
    HINSTANCE m_module;
    HHOOK m_hook;
    WindowCapture* m_outer;
};
