#pragma once

#include "framework/com/ComPtr.h"

namespace kvtest {

/// A container's frame window for one control. Writes each call to the journal as "Frame.Operation
/// arguments".
class FakeFrame final : public IOleInPlaceFrame {
public:
    static fw::ComPtr<FakeFrame> Make(HWND window);
    static long LiveCount();

    /// What SetActiveObject gave last, not owned.
    IOleInPlaceActiveObject* ActiveObject() const { return m_activeObject; }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    // IOleWindow
    STDMETHODIMP GetWindow(HWND* result) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    // IOleInPlaceUIWindow
    STDMETHODIMP GetBorder(LPRECT border) override;
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    // IOleInPlaceFrame
    STDMETHODIMP InsertMenus(HMENU menu, LPOLEMENUGROUPWIDTHS widths) override;
    STDMETHODIMP SetMenu(HMENU menu, HOLEMENU oleMenu, HWND window) override;
    STDMETHODIMP RemoveMenus(HMENU menu) override;
    STDMETHODIMP SetStatusText(LPCOLESTR text) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD id) override;

private:
    explicit FakeFrame(HWND window);
    ~FakeFrame();

    ULONG m_references = 0;
    HWND m_window;
    IOleInPlaceActiveObject* m_activeObject = nullptr;  // not owned
};

}  // namespace kvtest
