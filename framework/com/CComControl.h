#pragma once

#include <array>
#include <span>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"
#include "framework/com/ComObjectRoot.h"
#include "framework/com/ComPtr.h"
#include "framework/com/ConnectionPoint.h"
#include "framework/com/ConnectionPointContainer.h"
#include "framework/com/DrawInfo.h"
#include "framework/com/InterfaceMap.h"
#include "framework/com/Variant.h"
#include "framework/window/CWnd.h"
#include "framework/window/WindowClass.h"

/// An embedded control that always has a window of its own while it is active in place: all interfaces that a
/// container asks of a control, except those that the derived class adds. Made an object by CComObject.
class FW_API CComControl : public fw::ComObjectRoot,
                           public IOleControl,
                           public IOleObject,
                           public IOleInPlaceActiveObject,
                           public IViewObjectEx,
                           public IOleInPlaceObjectWindowless,
                           public fw::ConnectionPointContainer,
                           public IQuickActivate,
                           public CWnd {
public:
    /// The class id, by which the class table's row (description, OLEMISC bits) is found.
    virtual const CLSID& ClassId() const noexcept = 0;

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(MSG* message) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** result) override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR object) override;
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** result) override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** result) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** result) override;
    STDMETHODIMP Update() override;
    STDMETHODIMP IsUpToDate() override;
    STDMETHODIMP GetUserClassID(CLSID* classId) override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* result) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* extent) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* extent) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** result) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) override;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* result) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) override;
    STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;

    // IViewObject
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC targetDc,
                      HDC dc, LPCRECTL bounds, LPCRECTL metafileBounds,
                      BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR goOnArgument) override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC targetDc,
                             LOGPALETTE** result) override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* cookie) override;
    STDMETHODIMP Unfreeze(DWORD cookie) override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** result) override;
    // IViewObject2
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL extent) override;
    // IViewObjectEx
    STDMETHODIMP GetRect(DWORD aspect, LPRECTL result) override;
    STDMETHODIMP GetViewStatus(DWORD* status) override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeHint,
                               DWORD* result) override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG closeHint,
                              DWORD* result) override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC targetDc,
                                  DVEXTENTINFO* info, LPSIZEL extent) override;

    // IOleInPlaceObject
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override;
    // IOleInPlaceObjectWindowless: a control with a window leaves these messages to it
    STDMETHODIMP OnWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    STDMETHODIMP GetDropTarget(IDropTarget** result) override;

    // IQuickActivate
    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetContentExtent(LPSIZEL extent) override;
    STDMETHODIMP GetContentExtent(LPSIZEL extent) override;

    // CWnd. A derived class asks its own message table first and comes here for the rest: painting
    // (WM_PAINT, WM_PRINTCLIENT), focus, and UI activation by focus or mouse.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// What a control measures before its container says: 2 by 1/4 inch, a row of a palette.
    static constexpr SIZEL s_defaultExtent{5080, 635};

    CComControl() = default;
    ~CComControl() override = default;
    void FinalRelease();

    // What a derived class makes of the control. Each may be called without a window.

    /// Draws into info.prcBounds. Windows, view objects and metafiles all end here.
    virtual HRESULT OnDrawAdvanced(ATL_DRAWINFO& info);

    /// One per standard verb. position and parent are what the container gave and may be null.
    virtual HRESULT DoVerbPrimary(const RECT* position, HWND parent);
    virtual HRESULT DoVerbShow(const RECT* position, HWND parent);
    virtual HRESULT DoVerbOpen(const RECT* position, HWND parent);
    virtual HRESULT DoVerbHide(const RECT* position, HWND parent);
    virtual HRESULT DoVerbUIActivate(const RECT* position, HWND parent);
    virtual HRESULT DoVerbInPlaceActivate(const RECT* position, HWND parent);
    virtual HRESULT DoVerbDiscardUndo(const RECT* position, HWND parent);

    /// The user or a verb has made the control UI active: client is its window's client rectangle. Not called
    /// while the control closes. A failure does not undo the activation.
    virtual HRESULT OnUserActivated(const RECT& client);
    /// UIDeactivate was asked for, before the site hears of it; also when the control was not UI active. Not
    /// called by DoVerbHide, which takes back the UI activation without it.
    virtual HRESULT OnUIDeactivating();
    /// The window has its new place.
    virtual HRESULT OnObjectRectsSet(const RECT& position, const RECT& clip);
    /// TRUE swallows a key that the container offers to the active control. Asked before the control site.
    virtual bool OnTranslateAccelerator(MSG* message);
    /// The window class. Its module is the control's, so that the module stays while the window lives.
    virtual fw::WindowClass ControlWindowClass() const;
    /// Makes the window as a child of parent.
    virtual bool CreateControlWindow(HWND parent, const RECT& position);

    // What a derived class may ask of its container.

    /// Reads an ambient property; fails when the site has none. What the value held is cleared first.
    HRESULT GetAmbientProperty(DISPID id, VARIANT& value);
    HRESULT GetAmbientBackColor(OLE_COLOR& color);
    HRESULT GetAmbientForeColor(OLE_COLOR& color);
    /// S_OK with a font, or a failure.
    HRESULT GetAmbientFont(fw::ComPtr<IFont>& font);

    /// The picture has changed: repaints the window, or tells the view sinks when there is none.
    void FireViewChange();
    /// Brings the control up in place; OLEIVERB_PRIMARY and OLEIVERB_UIACTIVATE make it UI active too.
    /// position counts only where the site gives no place.
    HRESULT InPlaceActivate(LONG verb, const RECT* position = nullptr);
    bool AreEventsFrozen() const noexcept { return m_freezeCount > 0; }

    fw::ComPtr<IOleClientSite> m_spClientSite;
    fw::ComPtr<IOleInPlaceSite> m_spInPlaceSite;  // from the first in-place activation to its end
    fw::ComPtr<IDispatch> m_spAmbientDispatch;    // null: the site offers no ambient properties
    RECT m_rcPos{};                               // in the parent window's client coordinates
    SIZEL m_sizeExtent = s_defaultExtent;         // HIMETRIC
    SIZEL m_sizeNatural = s_defaultExtent;        // HIMETRIC
    bool m_bInPlaceActive = false;
    bool m_bUIActive = false;
    bool m_bClosing = false;  // from the start to the end of Close

private:
    // What a container that has no ambient properties handed over with QuickActivate.
    struct QuickAmbients {
        bool haveColors = false;
        OLE_COLOR foreColor = 0;
        OLE_COLOR backColor = 0;
        fw::ComPtr<IFont> font;
    };

    const wchar_t* Description() const noexcept;
    HRESULT DoStandardVerb(LONG verb, const RECT* position, HWND parent);
    HRESULT EnterInPlace();
    HRESULT PlaceWindow(const RECT* position);
    HRESULT EnterUserInterface();
    void LeaveUserInterface();
    void ClipWindow(const RECT& clip);
    void TakeFocus();
    void ActivateByUser();
    void TellFocus(bool focused, HWND other);
    void Paint(HDC dc);
    HRESULT DrawAt(ATL_DRAWINFO& info);
    void NotifyViewSink();
    void TakeQuickAmbients(const QACONTAINER& container);
    DWORD ConnectQuickly(fw::ConnectionPoint* point, IUnknown* sink);
    fw::ConnectionPoint* EventPoint() const noexcept;

    fw::ComPtr<IOleInPlaceFrame> m_frame;        // while in-place active
    fw::ComPtr<IOleInPlaceUIWindow> m_uiWindow;  // likewise; null in a container that has only a frame
    fw::ComPtr<IOleAdviseHolder> m_adviseHolder;
    fw::ComPtr<IAdviseSink> m_viewSink;
    DWORD m_viewAspects = 0;
    DWORD m_viewFlags = 0;
    QuickAmbients m_quickAmbients;
    LONG m_freezeCount = 0;
    unsigned m_closings = 0;  // how often Close was called, to notice one inside a call to the site
};

namespace fw {

/// The interfaces of CComControl, to be joined behind those of the derived class.
template <class Control>
inline constexpr std::array ControlInterfaces{
    Implements<Control, IOleControl>(),
    Implements<Control, IOleObject>(),
    Implements<Control, IOleInPlaceActiveObject>(),
    Implements<Control, IViewObjectEx>(),
    Implements<Control, IViewObject2, IViewObjectEx>(),
    Implements<Control, IViewObject, IViewObjectEx>(),
    Implements<Control, IOleInPlaceObjectWindowless>(),
    Implements<Control, IOleInPlaceObject, IOleInPlaceObjectWindowless>(),
    Implements<Control, IOleWindow, IOleInPlaceObjectWindowless>(),
    Implements<Control, IConnectionPointContainer>(),
    Implements<Control, IQuickActivate>(),
};

}  // namespace fw
