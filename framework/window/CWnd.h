#pragma once

#include "framework/base/CString.h"
#include "framework/base/Export.h"
#include "framework/base/ModuleState.h"
#include "framework/base/WindowsApi.h"
#include "framework/window/Geometry.h"
#include "framework/window/LifeWatch.h"
#include "framework/window/MessageTable.h"
#include "framework/window/WindowClass.h"

// One window. A window that was created or subclassed here is permanent: it is found from its handle and
// receives its messages in WindowProc. The object belongs to whoever made it; its deletion destroys a created
// window and lets a subclassed one go. A derived class that wants the last messages of its window destroys it
// in its own destructor. A handler may destroy the window and delete the object.
class FW_API CWnd : public fw::Watchable {
public:
    CWnd() = default;
    virtual ~CWnd();

    HWND m_hWnd = nullptr;
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    bool IsWindow() const { return m_hWnd && ::IsWindow(m_hWnd); }

    // The window's permanent object, null if it has none or belongs to another thread.
    static CWnd* FromHandlePermanent(HWND window);

    // A window of a class of ours. For a child window idOrMenu is its id, for others a menu that it takes
    // over.
    BOOL CreateEx(DWORD exStyle, const fw::WindowClass& windowClass, const wchar_t* text, DWORD style,
                  const RECT& bounds, HWND parent, UINT_PTR idOrMenu = 0, void* parameter = nullptr);
    BOOL Create(const fw::WindowClass& windowClass, const wchar_t* text, DWORD style, const RECT& bounds,
                HWND parent, UINT_PTR idOrMenu = 0);

    // A window of a system class, subclassed before its first message.
    BOOL CreateControl(DWORD exStyle, const wchar_t* systemClass, const wchar_t* text, DWORD style,
                       const RECT& bounds, HWND parent, UINT_PTR id, HINSTANCE module = fw::ThisModule());

    // Takes over the messages of a window that exists. Unsubclassing leaves it to its former procedure.
    bool SubclassWindow(HWND window, HINSTANCE module = fw::ThisModule());
    bool SubclassDlgItem(UINT id, HWND dialog, HINSTANCE module = fw::ThisModule());
    HWND UnsubclassWindow();

    // Looks at a window without receiving its messages or owning it.
    void Attach(HWND window);
    HWND Detach();

    BOOL DestroyWindow();

    // Receives every message. Overrides ask their table, then the base.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    // What the window would do without us. Without arguments: for the message that is being handled.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT DefWindowProc();

    // Sees each posted message for this window and its descendants before it is dispatched, under any message
    // loop. TRUE swallows it; no character follows a swallowed key.
    virtual BOOL PreTranslateMessage(MSG* message);

    // Called once after the window's last message, when no handler of it runs any more. May delete the
    // object.
    virtual void OnFinalMessage(HWND formerWindow);

    // Owner-draw duties, reflected from the parent when it does not do them itself.
    virtual void DrawItem(DRAWITEMSTRUCT* item);
    virtual void MeasureItem(MEASUREITEMSTRUCT* item);
    virtual void DeleteItem(DELETEITEMSTRUCT* item);
    virtual int CompareItem(COMPAREITEMSTRUCT* item);

    // Any other message about this window that its parent left alone: WM_COMMAND, WM_NOTIFY, WM_CTLCOLOR...,
    // WM_HSCROLL, WM_VSCROLL. True, with the answer in result, if it is done.
    virtual bool OnReflectedMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // Text, state and place
    void SetWindowText(const wchar_t* text);
    void GetWindowText(CString& text) const;
    CString GetWindowText() const;
    int GetWindowTextLength() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    // True if a bit changed. With flags other than 0 the frame is brought up to date by SetWindowPos.
    bool ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    int GetDlgCtrlID() const;
    BOOL ShowWindow(int command);
    BOOL IsWindowVisible() const;
    BOOL EnableWindow(BOOL enable);
    BOOL IsWindowEnabled() const;
    void GetWindowRect(RECT* bounds) const;
    CRect GetWindowRect() const;
    void GetClientRect(RECT* bounds) const;
    CRect GetClientRect() const;
    BOOL SetWindowPos(HWND after, int x, int y, int width, int height, UINT flags);
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const RECT& bounds, BOOL repaint = TRUE);
    BOOL BringWindowToTop();

    // Painting
    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(const RECT* bounds, BOOL erase = TRUE);
    void UpdateWindow();
    BOOL RedrawWindow(const RECT* bounds = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void SetRedraw(BOOL redraw);
    void SetFont(HFONT font, BOOL redraw = TRUE);
    HFONT GetFont() const;

    // Focus, capture, caret
    HWND SetFocus();
    bool HasFocus() const;
    HWND SetCapture();
    void HideCaret();
    void ShowCaret();

    // Relatives
    HWND GetParent() const;
    HWND GetDlgItem(int id) const;
    BOOL IsChild(HWND window) const;

    // Coordinates
    void ClientToScreen(POINT* point) const;
    void ClientToScreen(RECT* bounds) const;
    void ScreenToClient(POINT* point) const;
    void ScreenToClient(RECT* bounds) const;
    void MapWindowPoints(HWND target, POINT* points, UINT count) const;
    void MapWindowPoints(HWND target, RECT* bounds) const;

    // Messages and timers
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds);
    BOOL KillTimer(UINT_PTR id);

private:
    friend class CWndEntry;

    struct Call;  // one message that is being handled

    BOOL CreateOfClass(DWORD exStyle, const wchar_t* className, const wchar_t* text, DWORD style,
                       const RECT& bounds, HWND parent, UINT_PTR idOrMenu, HINSTANCE module, void* parameter);

    Call* m_call = nullptr;          // the innermost one
    WNDPROC m_formerProc = nullptr;  // of a subclassed window
    HINSTANCE m_module = nullptr;  // whose code a permanent window needs; null for one that is only looked at
    bool m_created = false;        // made here, and therefore ended with the object
    HWND m_formerWindow = nullptr;  // gone, with OnFinalMessage still to come
};
