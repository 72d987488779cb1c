#pragma once

#include <map>

#include "framework/com/ComPtr.h"
#include "framework/com/Variant.h"
#include "tests/support/FakeFrame.h"

namespace kvtest {

/// A container's side of one control: client site, in-place site, control site and ambient properties. Writes
/// each call of the control to the journal as "Site.Operation arguments".
class FakeSite final : public IOleClientSite,
                       public IOleInPlaceSite,
                       public IOleControlSite,
                       public IDispatch {
public:
    /// The control is to lie in `parent` at `place`, in its client coordinates.
    static fw::ComPtr<FakeSite> Make(HWND parent, const RECT& place);
    static long LiveCount();
    /// The container shows the control in another of its windows from the next activation on.
    void MoveTo(HWND parent);

    /// Ambient properties; one that is not here gives DISP_E_MEMBERNOTFOUND. In whatever locale, but only as
    /// a property without arguments: containers know no ambient methods.
    std::map<DISPID, fw::Variant> ambients;
    bool offersAmbients = true;  ///< false: the site answers no query for IDispatch
    RECT place;
    HRESULT canInPlaceActivate = S_OK;
    HRESULT windowContextResult = S_OK;
    bool isActive = false;    ///< between OnInPlaceActivate and OnInPlaceDeactivate
    bool isUIActive = false;  ///< between OnUIActivate and OnUIDeactivate
    ULONG References() const { return m_references; }
    FakeFrame& Frame() { return *m_frame; }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    // IOleClientSite
    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** result) override;
    STDMETHODIMP GetContainer(IOleContainer** result) override;
    STDMETHODIMP ShowObject() override;
    STDMETHODIMP OnShowWindow(BOOL show) override;
    STDMETHODIMP RequestNewObjectLayout() override;
    // IOleWindow
    STDMETHODIMP GetWindow(HWND* result) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() override;
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE extent) override;
    STDMETHODIMP OnUIDeactivate(BOOL undoable) override;
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override;
    STDMETHODIMP DeactivateAndUndo() override;
    STDMETHODIMP OnPosRectChange(LPCRECT position) override;
    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override;
    STDMETHODIMP LockInPlaceActive(BOOL lock) override;
    STDMETHODIMP GetExtendedControl(IDispatch** result) override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override;
    STDMETHODIMP OnFocus(BOOL gotFocus) override;
    STDMETHODIMP ShowPropertyFrame() override;
    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

private:
    FakeSite(HWND parent, const RECT& bounds);
    ~FakeSite();

    ULONG m_references = 0;
    HWND m_parent;
    fw::ComPtr<FakeFrame> m_frame;
};

}  // namespace kvtest
