#include "framework/window/CWnd.h"

#include "framework/window/CWndCall.h"
#include "framework/window/CWndEntry.h"
#include "framework/window/Reflection.h"

CWnd::~CWnd() {
    if (!m_module) {
        return;
    }
    const HWND window = m_hWnd;
    const bool destroys = m_created && !CWndEntry::IsEnding(*this);
    CWndEntry::GiveProcedureBack(*this, window);
    CWndEntry::Unbind(*this);
    if (destroys) {
        ::DestroyWindow(window);
    }
}

BOOL CWnd::Create(const fw::WindowClass& windowClass, const wchar_t* text, DWORD style, const RECT& bounds,
                  HWND parent, UINT_PTR idOrMenu) {
    return CreateEx(0, windowClass, text, style, bounds, parent, idOrMenu);
}

BOOL CWnd::CreateEx(DWORD exStyle, const fw::WindowClass& windowClass, const wchar_t* text, DWORD style,
                    const RECT& bounds, HWND parent, UINT_PTR idOrMenu, void* parameter) {
    return fw::RegisterWindowClass(windowClass) &&
           CreateOfClass(exStyle, windowClass.name, text, style, bounds, parent, idOrMenu,
                         windowClass.Module(), parameter);
}

BOOL CWnd::CreateControl(DWORD exStyle, const wchar_t* systemClass, const wchar_t* text, DWORD style,
                         const RECT& bounds, HWND parent, UINT_PTR id, HINSTANCE module) {
    return CreateOfClass(exStyle, systemClass, text, style, bounds, parent, id, module, nullptr);
}

BOOL CWnd::CreateOfClass(DWORD exStyle, const wchar_t* className, const wchar_t* text, DWORD style,
                         const RECT& bounds, HWND parent, UINT_PTR idOrMenu, HINSTANCE module,
                         void* parameter) {
    if (m_hWnd) {
        return FALSE;
    }
    const fw::LifeWatch alive(*this);
    HWND window = nullptr;
    {
        const WindowCapture capture(*this, className, module);
        const auto place = CRect(bounds);
        window =
            ::CreateWindowExW(exStyle, className, text, style, place.left, place.top, place.Width(),
                              place.Height(), parent, reinterpret_cast<HMENU>(idOrMenu), module, parameter);
    }
    if (!alive) {
        return FALSE;
    }
    if (!window && m_module) {
        // The system gave the window up without a last message.
        CWndEntry::Unbind(*this);
        m_formerProc = nullptr;
    }
    return m_hWnd != nullptr;
}

bool CWnd::SubclassWindow(HWND window, HINSTANCE module) {
    if (m_hWnd || !::IsWindow(window) || FromHandlePermanent(window) ||
        ::GetWindowThreadProcessId(window, nullptr) != ::GetCurrentThreadId()) {
        return false;
    }
    if (!CWndEntry::Bind(*this, window, module, CWndEntry::Origin::Found)) {
        return false;
    }
    CWndEntry::TakeProcedureLeftBehind(*this, window);
    if (!m_formerProc) {
        CWndEntry::TakeProcedure(*this, window);
    }
    return true;
}

bool CWnd::SubclassDlgItem(UINT id, HWND dialog, HINSTANCE module) {
    return SubclassWindow(::GetDlgItem(dialog, static_cast<int>(id)), module);
}

HWND CWnd::UnsubclassWindow() {
    const HWND window = m_hWnd;
    if (m_module) {
        CWndEntry::GiveProcedureBack(*this, window);
        CWndEntry::Unbind(*this);
    }
    return window;
}

void CWnd::Attach(HWND window) {
    if (!m_module) {
        m_hWnd = window;
    }
}

HWND CWnd::Detach() {
    const HWND window = m_hWnd;
    if (!m_module) {
        m_hWnd = nullptr;
    }
    return window;
}

BOOL CWnd::DestroyWindow() {
    if (!m_hWnd) {
        return FALSE;
    }
    const fw::LifeWatch alive(*this);
    const BOOL destroyed = ::DestroyWindow(m_hWnd);
    if (destroyed && alive && !m_module) {
        m_hWnd = nullptr;
    }
    return destroyed;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const fw::LifeWatch alive(*this);
    LRESULT result = 0;
    if (fw::ReflectMessage(m_hWnd, message, wParam, lParam, result) || !alive) {
        return result;
    }
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    // A handler that has let its window go still has that window's message to finish.
    const bool letGo = !m_hWnd && m_call;
    const HWND window = letGo ? m_call->window : m_hWnd;
    const WNDPROC formerProc = letGo ? m_call->formerProc : m_formerProc;
    // An object's own window is alive, since the object lets it go with its last message.
    if (!window || (letGo && !::IsWindow(window))) {
        return 0;
    }
    return formerProc ? ::CallWindowProcW(formerProc, window, message, wParam, lParam)
                      : ::DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc() {
    return m_call ? DefWindowProc(m_call->message, m_call->wParam, m_call->lParam) : 0;
}

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}

void CWnd::OnFinalMessage(HWND) {
}

void CWnd::DrawItem(DRAWITEMSTRUCT*) {
}

void CWnd::MeasureItem(MEASUREITEMSTRUCT*) {
}

void CWnd::DeleteItem(DELETEITEMSTRUCT*) {
}

int CWnd::CompareItem(COMPAREITEMSTRUCT*) {
    return 0;
}

bool CWnd::OnReflectedMessage(UINT, WPARAM, LPARAM, LRESULT&) {
    return false;
}
