#include "tests/conform/faulty/StrayWindow.h"

#include "tests/conform/faulty/Fault.h"

namespace {

class Foreigner final : public IOleWindow {
public:
    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
        const bool isKnown = id == IID_IUnknown || id == IID_IOleWindow;
        *result = isKnown ? this : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetWindow(HWND*) override { return E_FAIL; }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
};

Foreigner s_foreigner;

}  // namespace

IOleWindow* ForeignWindow() {
    return &s_foreigner;
}

bool StrayWindow::IsAskedFor() {
    return HasFault(L"leads-elsewhere") || HasFault(L"leads-nowhere");
}

STDMETHODIMP StrayWindow::QueryInterface(REFIID id, void** result) {
    const bool isWay = id == IID_IQuickActivate;
    if (isWay && HasFault(L"leads-elsewhere")) {
        *result = ForeignWindow();
        return S_OK;
    }
    if (isWay && !m_secondStep) {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    if (id == IID_IOleWindow && m_secondStep && HasFault(L"leads-nowhere")) {
        *result = m_secondStep;
        AddRef();
        return S_OK;
    }
    return m_control.QueryInterface(id, result);
}
