#pragma once

#include <functional>
#include <string>

#include "TestRow_h.h"
#include "framework/com/CComControl.h"
#include "framework/com/CComModule.h"
#include "framework/com/CComObject.h"
#include "framework/com/TypeLibDispatch.h"

namespace kvtest {

/// The smallest control: shows a text, and writes what the framework asks of it to the log.
class TestRow : public CComControl, public fw::TypeLibDispatch<TestRow, ITestRow> {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    // ITestRow
    STDMETHODIMP get_Text(BSTR* text) override;
    STDMETHODIMP put_Text(BSTR text) override;
    STDMETHODIMP Add(LONG left, LONG right, LONG* sum) override;
    /// Fails with an error text.
    STDMETHODIMP Refuse() override;
    /// Fails without one.
    STDMETHODIMP Quit() override;

    // CComControl
    const CLSID& ClassId() const noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;

    using CComControl::AreEventsFrozen;
    using CComControl::FireViewChange;
    using CComControl::GetAmbientBackColor;
    using CComControl::GetAmbientFont;
    using CComControl::GetAmbientForeColor;
    using CComControl::GetAmbientProperty;
    using CComControl::m_bClosing;
    using CComControl::m_bInPlaceActive;
    using CComControl::m_bUIActive;
    using CComControl::m_rcPos;
    using CComControl::m_spClientSite;
    using CComControl::m_spInPlaceSite;

    fw::ConnectionPoint events{*this, __uuidof(ITestRowEvents)};
    fw::ConnectionPoint notifications{*this, IID_IPropertyNotifySink};
    std::function<HRESULT(ATL_DRAWINFO&)> draw;
    std::function<void()> whenActivated;
    bool swallowsKeys = false;
    bool logsHooks = true;

protected:
    HRESULT OnDrawAdvanced(ATL_DRAWINFO& info) override;
    HRESULT OnUserActivated(const RECT& client) override;
    HRESULT OnUIDeactivating() override;
    HRESULT OnObjectRectsSet(const RECT& position, const RECT& clip) override;
    bool OnTranslateAccelerator(MSG* message) override;

private:
    void NoteHook(const std::string& hook) const;

    fw::Bstr m_text;
};

/// The module of the test program, with TestRow as its one class. Its lock count belongs to every leak check.
CComModule& TestModule();

/// Makes a control with one reference.
fw::ComPtr<CComObject<TestRow>> MakeRow();

inline constexpr const wchar_t* TestRowDescription = L"TestRow Class";

}  // namespace kvtest
