#include "tests/support/FakeFrame.h"

#include "tests/support/JournalNote.h"

namespace kvtest {
namespace {

long s_live = 0;

}  // namespace

FakeFrame::FakeFrame(HWND window) : m_window(window) {
    ++s_live;
}

FakeFrame::~FakeFrame() {
    --s_live;
}

fw::ComPtr<FakeFrame> FakeFrame::Make(HWND window) {
    return new FakeFrame(window);
}

long FakeFrame::LiveCount() {
    return s_live;
}

STDMETHODIMP FakeFrame::QueryInterface(REFIID id, void** result) {
    if (id == IID_IUnknown || id == IID_IOleWindow || id == IID_IOleInPlaceUIWindow ||
        id == IID_IOleInPlaceFrame) {
        *result = static_cast<IOleInPlaceFrame*>(this);
        AddRef();
        return S_OK;
    }
    *result = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) FakeFrame::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP FakeFrame::GetWindow(HWND* result) {
    Note(L"Frame.GetWindow");
    *result = m_window;
    return S_OK;
}

STDMETHODIMP FakeFrame::ContextSensitiveHelp(BOOL enter) {
    Note(L"Frame.ContextSensitiveHelp", enter);
    return S_OK;
}

STDMETHODIMP FakeFrame::GetBorder(LPRECT border) {
    Note(L"Frame.GetBorder");
    return ::GetClientRect(m_window, border) ? S_OK : E_FAIL;
}

STDMETHODIMP FakeFrame::RequestBorderSpace(LPCBORDERWIDTHS) {
    Note(L"Frame.RequestBorderSpace");
    return INPLACE_E_NOTOOLSPACE;
}

STDMETHODIMP FakeFrame::SetBorderSpace(LPCBORDERWIDTHS widths) {
    Note(L"Frame.SetBorderSpace", widths ? L"space" : L"null");
    return S_OK;
}

STDMETHODIMP FakeFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    Note(L"Frame.SetActiveObject", object ? L"control" : L"null");
    m_activeObject = object;
    return S_OK;
}

STDMETHODIMP FakeFrame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) {
    Note(L"Frame.InsertMenus");
    return E_NOTIMPL;
}

STDMETHODIMP FakeFrame::SetMenu(HMENU, HOLEMENU, HWND) {
    Note(L"Frame.SetMenu");
    return S_OK;
}

STDMETHODIMP FakeFrame::RemoveMenus(HMENU) {
    Note(L"Frame.RemoveMenus");
    return S_OK;
}

STDMETHODIMP FakeFrame::SetStatusText(LPCOLESTR text) {
    Note(L"Frame.SetStatusText", text);
    return S_OK;
}

STDMETHODIMP FakeFrame::EnableModeless(BOOL enable) {
    Note(L"Frame.EnableModeless", enable);
    return S_OK;
}

STDMETHODIMP FakeFrame::TranslateAccelerator(LPMSG, WORD) {
    Note(L"Frame.TranslateAccelerator");
    return S_FALSE;
}

}  // namespace kvtest
