#pragma once

#include <functional>
#include <string>

#include "KvPEXCtl_h.h"
#include "framework/com/ComPtr.h"

namespace kvtest {

/// A palette's sink for the events of one control. Writes each event to the journal as "OnKeyDown 13 1"
/// behind an optional name, and lets the test act in the middle of it.
class RecordingSink final : public IKvPiPropertyEditEventsSink2 {
public:
    static fw::ComPtr<RecordingSink> Make(std::wstring name = {});
    static long LiveCount();
    ULONG References() const { return m_references; }

    /// Runs after the event is noted; what it returns is the sink's result.
    std::function<HRESULT(const std::wstring& event)> onEvent;
    /// False: the sink no longer answers the query for the second interface.
    bool answersSecondInterface = true;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    // IDispatch
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
    STDMETHODIMP OnRButtonDown(UINT_PTR keys, LONG_PTR point) override;
    STDMETHODIMP OnMButtonDown(UINT_PTR keys, LONG_PTR point) override;
    STDMETHODIMP OnBeginPropertyUpdate() override;
    STDMETHODIMP OnEndPropertyUpdate() override;
    // IKvPiPropertyEditEventsSink2
    STDMETHODIMP OnBeginModal(UINT code) override;
    STDMETHODIMP OnEndModal(UINT code) override;

private:
    explicit RecordingSink(std::wstring name);
    ~RecordingSink();

    template <class... Arguments>
    HRESULT Tell(const wchar_t* event, const Arguments&... arguments);

    ULONG m_references = 0;
    std::wstring m_name;
};

/// A point as mouse events carry it.
inline LONG_PTR PackedPoint(int x, int y) {
    return MAKELPARAM(x, y);
}

}  // namespace kvtest
