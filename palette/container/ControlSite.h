#pragma once

#include <span>

#include "framework/com/CComObject.h"
#include "framework/com/ComObjectRoot.h"
#include "palette/container/AmbientValues.h"

namespace kvpalette {

class ControlFrame;
class HostedControl;

/// The place in the palette that one control lives in: its site in all the forms that a control may ask for,
/// and the ambient properties. It outlives the row when the control keeps a reference; Disconnect cuts it
/// from the row.
class ControlSite : public fw::ComObjectRoot,
                    public IOleClientSite,
                    public IOleInPlaceSiteEx,
                    public IOleControlSite,
                    public IDispatch {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    /// The owner, the frame and the values are not owned and live until Disconnect.
    void Connect(HostedControl* owner, ControlFrame* frame, const AmbientValues* ambient);
    void Disconnect();

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
    // IOleInPlaceSiteEx
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL noRedraw) override;
    STDMETHODIMP RequestUIActivate() override;

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override;
    STDMETHODIMP LockInPlaceActive(BOOL lock) override;
    STDMETHODIMP GetExtendedControl(IDispatch** result) override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, DWORD modifiers) override;
    STDMETHODIMP OnFocus(BOOL focused) override;
    STDMETHODIMP ShowPropertyFrame() override;

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

protected:
    ~ControlSite() = default;

private:
    HostedControl* m_owner = nullptr;
    ControlFrame* m_frame = nullptr;
    const AmbientValues* m_ambient = nullptr;
};

}  // namespace kvpalette
