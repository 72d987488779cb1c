#pragma once

#include <string>
#include <vector>

#include "KvPEXCtl_h.h"
#include "framework/com/CComControl.h"
#include "framework/com/CComObject.h"

namespace kvtest {

/// A row's control that writes down what its container does with it. Made by class id, as the palette makes
/// controls.
class FakeControl : public CComControl, public IKvPiPropertyEditControl2, public IPersistStreamInit {
public:
    /// How the next control behaves.
    struct Behaviour {
        bool offersQuickActivation = true;
        HRESULT initResult = S_OK;
    };
    static Behaviour s_behaviour;
    /// What the container did, in order.
    static std::vector<std::wstring> s_calls;
    /// The one that lives; null for none.
    static FakeControl* s_living;

    static const CLSID& Id();
    static std::span<const fw::InterfaceEntry> Interfaces();

    fw::ConnectionPoint& Events() { return m_events; }
    HRESULT Ambient(DISPID id, VARIANT& value) { return GetAmbientProperty(id, value); }
    fw::ComPtr<IOleInPlaceSite> Site() const { return m_spInPlaceSite; }
    fw::ComPtr<IOleClientSite> ClientSite() const { return m_spClientSite; }

    // CComControl
    const CLSID& ClassId() const noexcept override { return Id(); }
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;

    // IPersistStreamInit
    STDMETHODIMP GetClassID(CLSID* classId) override;
    STDMETHODIMP IsDirty() override { return S_FALSE; }
    STDMETHODIMP Load(IStream*) override { return E_NOTIMPL; }
    STDMETHODIMP Save(IStream*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() override;

    // IDispatch: no container of ours asks
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    // IKvPiPropertyEditControl
    STDMETHODIMP InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                 VARIANT_BOOL readOnly) override;
    STDMETHODIMP Refresh(ULONG flags) override;
    STDMETHODIMP get_KeepFocus(VARIANT_BOOL* keep) override;
    STDMETHODIMP put_BackColor(OLE_COLOR) override { return S_OK; }
    STDMETHODIMP get_BackColor(OLE_COLOR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ForeColor(OLE_COLOR) override { return S_OK; }
    STDMETHODIMP get_ForeColor(OLE_COLOR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ReadOnlyBackColor(OLE_COLOR) override { return S_OK; }
    STDMETHODIMP get_ReadOnlyBackColor(OLE_COLOR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ReadOnlyForeColor(OLE_COLOR) override { return S_OK; }
    STDMETHODIMP get_ReadOnlyForeColor(OLE_COLOR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Font(IUnknown*) override { return S_OK; }
    STDMETHODIMP get_Font(IUnknown**) override { return E_NOTIMPL; }
    // IKvPiPropertyEditControl2
    STDMETHODIMP get_PropertyIdentifier(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP put_PropertyIdentifier(IUnknown* identifier) override;
    STDMETHODIMP SetValue(VARIANT*, long) override { return E_NOTIMPL; }
    STDMETHODIMP LaunchDialog(BSTR, long) override { return E_NOTIMPL; }

protected:
    FakeControl();
    ~FakeControl() override;
    void FinalRelease();
    HRESULT OnDrawAdvanced(ATL_DRAWINFO& info) override;

private:
    fw::ConnectionPoint m_events{*this, __uuidof(IKvPiPropertyEditEventsSink2)};
    fw::ComPtr<IUnknown> m_identifier;
};

/// The fake control's class, known to the component library for a scope.
class FakeControlClass {
public:
    FakeControlClass();
    ~FakeControlClass();
    FakeControlClass(const FakeControlClass&) = delete;
    FakeControlClass& operator=(const FakeControlClass&) = delete;

private:
    DWORD m_cookie = 0;
};

}  // namespace kvtest
