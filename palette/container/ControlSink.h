#pragma once

#include <span>

#include "KvPEXCtl_h.h"
#include "framework/com/CComObject.h"
#include "framework/com/ComObjectRoot.h"

namespace kvpalette {

class HostedControl;

/// Hears what a control tells and hands it to the row. Each event goes to the journal too.
class ControlSink : public fw::ComObjectRoot,
                    public IKvPiPropertyEditEventsSink2,
                    public IPropertyNotifySink {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    /// The owner is not owned and lives until Disconnect.
    void Connect(HostedControl* owner) { m_owner = owner; }
    void Disconnect() { m_owner = nullptr; }

    // IDispatch: events by number, as a control fires them that knows no sink interface
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    // IKvPiPropertyEditEventsSink
    STDMETHODIMP OnClick() override;
    STDMETHODIMP OnDblClick() override;
    STDMETHODIMP OnKeyDown(LONG_PTR key, LONG_PTR keyData) override;
    STDMETHODIMP OnKeyUp(LONG_PTR key, LONG_PTR keyData) override;
    STDMETHODIMP OnRButtonDown(UINT_PTR wParam, LONG_PTR lParam) override;
    STDMETHODIMP OnMButtonDown(UINT_PTR wParam, LONG_PTR lParam) override;
    STDMETHODIMP OnBeginPropertyUpdate() override;
    STDMETHODIMP OnEndPropertyUpdate() override;
    // IKvPiPropertyEditEventsSink2
    STDMETHODIMP OnBeginModal(UINT code) override;
    STDMETHODIMP OnEndModal(UINT code) override;

    // IPropertyNotifySink
    STDMETHODIMP OnChanged(DISPID id) override;
    STDMETHODIMP OnRequestEdit(DISPID id) override;

protected:
    ~ControlSink() = default;

private:
    template <class Work>
    HRESULT Tell(const wchar_t* event, const std::wstring& arguments, Work&& work);

    HostedControl* m_owner = nullptr;
};

}  // namespace kvpalette
