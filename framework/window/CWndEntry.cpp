#include "framework/window/CWndEntry.h"

#include <iterator>

#include "framework/window/CWnd.h"
#include "framework/window/CWndCall.h"
#include "framework/window/LiveWindows.h"

namespace {

const wchar_t* const g_objectProperty = L"KvFrame.Object";
const wchar_t* const g_procedureProperty = L"KvFrame.FormerProcedure";

thread_local WindowCapture* t_capture = nullptr;

// Each message asks for its window's object, and reading a property costs more than most messages. This
// remembers the thread's last answers; only Bind and Unbind, on the same thread, change what is true.
struct RecentLookup {
    HWND window;
    CWnd* object;
};
constexpr std::size_t g_recentLookups = 128;
thread_local RecentLookup t_recent[g_recentLookups];

RecentLookup& RecentLookupOf(HWND window) {
    // The lower half of a handle is the index in the system's table, and even.
    return t_recent[(reinterpret_cast<std::size_t>(window) >> 1) % g_recentLookups];
}

template <class Result, class Work>
Result Guarded(Work work, Result answerAfterException) noexcept {
    try {
        return work();
    } catch (...) {
        return answerAfterException;
    }
}

bool IsOfClass(HWND window, const wchar_t* className) {
    wchar_t actual[256]{};
    ::GetClassNameW(window, actual, static_cast<int>(std::size(actual)));
    return ::CompareStringOrdinal(actual, -1, className, -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

CWnd* CWnd::FromHandlePermanent(HWND window) {
    if (!window) {
        return nullptr;
    }
    RecentLookup& recent = RecentLookupOf(window);
    if (recent.window != window) {
        const bool ownThread = ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId();
        recent = {window, ownThread ? static_cast<CWnd*>(::GetPropW(window, g_objectProperty)) : nullptr};
    }
    return recent.object;
}

LRESULT CALLBACK CWndEntry::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* const object = CWnd::FromHandlePermanent(window);
    return object ? Dispatch(*object, window, message, wParam, lParam)
                  : WithoutObject(window, message, wParam, lParam);
}

LRESULT CWndEntry::Dispatch(CWnd& object, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const fw::LifeWatch alive(object);
    CWnd::Call call{window, message, wParam, lParam, object.m_formerProc, object.m_call};
    object.m_call = &call;
    const auto result = Guarded([&] { return object.WindowProc(message, wParam, lParam); }, LRESULT{0});
    if (!alive) {
        return result;
    }
    object.m_call = call.outer;
    if (message == WM_NCDESTROY && object.m_hWnd == window) {
        Unbind(object);
        object.m_formerProc = nullptr;
        object.m_formerWindow = window;
    }
    if (object.m_formerWindow && !object.m_call) {
        const HWND gone = object.m_formerWindow;
        object.m_formerWindow = nullptr;
        Guarded([&] { return object.OnFinalMessage(gone), 0; }, 0);
    }
    return result;
}

LRESULT CWndEntry::WithoutObject(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto former = reinterpret_cast<WNDPROC>(::GetPropW(window, g_procedureProperty));
    if (message == WM_NCDESTROY) {
        ::RemovePropW(window, g_procedureProperty);
    }
    return former ? ::CallWindowProcW(former, window, message, wParam, lParam)
                  : ::DefWindowProcW(window, message, wParam, lParam);
}

bool CWndEntry::Bind(CWnd& object, HWND window, HINSTANCE module, Origin origin) {
    if (!::SetPropW(window, g_objectProperty, &object)) {
        return false;
    }
    RecentLookupOf(window) = {window, &object};
    object.m_hWnd = window;
    object.m_module = module;
    object.m_created = origin == Origin::Created;
    fw::AddLiveWindow(module);
    return true;
}

void CWndEntry::Unbind(CWnd& object) {
    ::RemovePropW(object.m_hWnd, g_objectProperty);
    RecentLookupOf(object.m_hWnd) = {};
    fw::RemoveLiveWindow(object.m_module);
    object.m_hWnd = nullptr;
    object.m_module = nullptr;
    object.m_created = false;
}

void CWndEntry::TakeProcedure(CWnd& object, HWND window) {
    const LONG_PTR own = reinterpret_cast<LONG_PTR>(&CWndEntry::WindowProc);
    const LONG_PTR current = ::GetWindowLongPtrW(window, GWLP_WNDPROC);
    if (current != own) {
        object.m_formerProc = reinterpret_cast<WNDPROC>(current);
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, own);
    }
}

void CWndEntry::TakeProcedureLeftBehind(CWnd& object, HWND window) {
    object.m_formerProc = reinterpret_cast<WNDPROC>(::RemovePropW(window, g_procedureProperty));
}

void CWndEntry::GiveProcedureBack(CWnd& object, HWND window) {
    const LONG_PTR own = reinterpret_cast<LONG_PTR>(&CWndEntry::WindowProc);
    if (!object.m_formerProc) {
        return;
    }
    const HANDLE former = reinterpret_cast<HANDLE>(object.m_formerProc);
    if (::GetWindowLongPtrW(window, GWLP_WNDPROC) == own) {
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former));
    } else {
        // Somebody came in front of us and goes on calling us: the window remembers where that has to lead.
        ::SetPropW(window, g_procedureProperty, former);
    }
    object.m_formerProc = nullptr;
}

bool CWndEntry::IsEnding(const CWnd& object) {
    for (const CWnd::Call* call = object.m_call; call; call = call->outer) {
        if (call->message == WM_DESTROY || call->message == WM_NCDESTROY) {
            return true;
        }
    }
    return false;
}

bool CWndEntry::PreTranslate(CWnd& object, MSG& message) {
    return Guarded([&] { return object.PreTranslateMessage(&message) != FALSE; }, false);
}

WindowCapture::WindowCapture(CWnd& object, const wchar_t* className, HINSTANCE module)
    : m_object(object),
      m_className(className),
      m_module(module),
      m_hook(::SetWindowsHookExW(WH_CBT, OnWindowEvent, nullptr, ::GetCurrentThreadId())),
      m_outer(t_capture) {
    t_capture = this;
}

WindowCapture::~WindowCapture() {
    End();
}

void WindowCapture::End() {
    if (t_capture == this) {
        t_capture = m_outer;
    }
    if (m_hook) {
        ::UnhookWindowsHookEx(m_hook);
        m_hook = nullptr;
    }
}

LRESULT CALLBACK WindowCapture::OnWindowEvent(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    // The system may create helper windows of its own in between, for input methods for example.
    if (code == HCBT_CREATEWND && t_capture && IsOfClass(window, t_capture->m_className)) {
        t_capture->Take(window);
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

void WindowCapture::Take(HWND window) {
    End();
    if (!CWnd::FromHandlePermanent(window) &&
        CWndEntry::Bind(m_object, window, m_module, CWndEntry::Origin::Created)) {
        CWndEntry::TakeProcedure(m_object, window);
    }
}
