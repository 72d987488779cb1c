#pragma once

#include "framework/com/ComPtr.h"

namespace kvtest {

/// A container's sink for the platform's own notices of a control: changes of view and of properties. Writes
/// each to the journal as "Notice.Operation arguments".
class NoticeSink final : public IAdviseSinkEx, public IPropertyNotifySink {
public:
    static fw::ComPtr<NoticeSink> Make();

    ULONG References() const { return m_references; }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    // IAdviseSink
    STDMETHODIMP_(void) OnDataChange(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP_(void) OnViewChange(DWORD aspect, LONG index) override;
    STDMETHODIMP_(void) OnRename(IMoniker* moniker) override;
    STDMETHODIMP_(void) OnSave() override;
    STDMETHODIMP_(void) OnClose() override;
    // IAdviseSinkEx
    STDMETHODIMP_(void) OnViewStatusChange(DWORD status) override;
    // IPropertyNotifySink
    STDMETHODIMP OnChanged(DISPID id) override;
    STDMETHODIMP OnRequestEdit(DISPID id) override;

private:
    NoticeSink() = default;
    ~NoticeSink() = default;

    ULONG m_references = 0;
};

}  // namespace kvtest
