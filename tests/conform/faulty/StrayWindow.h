#pragma once

#include "framework/base/WindowsApi.h"

/// An interface that is no part of the control: it knows itself alone, and lives for ever.
IOleWindow* ForeignWindow();

/// A part of the control that has its identity and lives as long as it, but leads astray on the way to
/// IQuickActivate: to an object that is no part of the control, or, by a second step, to nothing.
class StrayWindow final : public IOleWindow {
public:
    /// True when the run asks for one of these faults.
    static bool IsAskedFor();

    /// secondStep is what the part answers for its own interface; null for the second step itself.
    StrayWindow(IOleObject& control, StrayWindow* secondStep)
        : m_control(control), m_secondStep(secondStep) {}
    StrayWindow(const StrayWindow&) = delete;
    StrayWindow& operator=(const StrayWindow&) = delete;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override { return m_control.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_control.Release(); }
    // IOleWindow
    STDMETHODIMP GetWindow(HWND*) override { return E_FAIL; }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

private:
    IOleObject& m_control;
    StrayWindow* m_secondStep;  // owned by the control, as this one is
};
