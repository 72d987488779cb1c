#pragma once

#include <memory>

#include "KvPEXCtl_h.h"
#include "core/CIPropEditUIEvents.h"
#include "core/CKvPeBasePrivate.h"
#include "core/CKvPeCtrlBase.h"
#include "core/Export.h"
#include "framework/com/CComControl.h"
#include "framework/com/Guarded.h"
#include "framework/com/TypeLibDispatch.h"

/// What all shells share: the embedded control that the palette sees. It holds the logic of one row, forwards
/// to it what the container and the user do, and carries the logic's events to the palette's sinks.
class KVPEX_API CKvPeShell : public CComControl,
                             public fw::TypeLibDispatch<CKvPeShell, IKvPiPropertyEditControl2>,
                             public CIPropEditUIEvents,
                             public CKvPeBasePrivate {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    // IKvPiPropertyEditControl. E_UNEXPECTED from each while there is no logic.
    STDMETHODIMP InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                 VARIANT_BOOL readOnly) override;
    STDMETHODIMP Refresh(ULONG flags) override;
    STDMETHODIMP get_KeepFocus(VARIANT_BOOL* keepFocus) override;
    STDMETHODIMP put_BackColor(OLE_COLOR color) override;
    STDMETHODIMP get_BackColor(OLE_COLOR* color) override;
    STDMETHODIMP put_ForeColor(OLE_COLOR color) override;
    STDMETHODIMP get_ForeColor(OLE_COLOR* color) override;
    STDMETHODIMP put_ReadOnlyBackColor(OLE_COLOR color) override;
    STDMETHODIMP get_ReadOnlyBackColor(OLE_COLOR* color) override;
    STDMETHODIMP put_ReadOnlyForeColor(OLE_COLOR color) override;
    STDMETHODIMP get_ReadOnlyForeColor(OLE_COLOR* color) override;
    STDMETHODIMP put_Font(IUnknown* font) override;
    STDMETHODIMP get_Font(IUnknown** font) override;
    // IKvPiPropertyEditControl2
    STDMETHODIMP get_PropertyIdentifier(IUnknown** identifier) override;
    STDMETHODIMP put_PropertyIdentifier(IUnknown* identifier) override;
    STDMETHODIMP SetValue(VARIANT* value, LONG valueType) override;
    STDMETHODIMP LaunchDialog(BSTR text, LONG flags) override;

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;

    // CIPropEditUIEvents
    HRESULT FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) override;
    HRESULT FireKeyUpEvent(UINT_PTR key, LONG_PTR keyData) override;
    HRESULT FireRButtonDownEvent(UINT_PTR keys, LONG_PTR point) override;
    HRESULT FireMButtonDownEvent(UINT_PTR keys, LONG_PTR point) override;
    HRESULT FireBeginPropertyUpdateEvent() override;
    HRESULT FireEndPropertyUpdateEvent() override;
    HRESULT FireClickEvent() override;
    HRESULT FireBeginModalEvent(UINT code) override;
    HRESULT FireEndModalEvent(UINT code) override;

    // CKvPeBasePrivate
    HWND* GetControlWindowPtr() override { return &m_hWnd; }
    IOleInPlaceSite* GetInPlaceSite() override { return m_spInPlaceSite.Get(); }

    // CWnd. The shell holds itself: a handler may lead the palette to let the row go.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    CKvPeShell();
    ~CKvPeShell() override;
    void FinalRelease();

    using LogicHandler = LRESULT (CKvPeCtrlBase::*)(UINT message, WPARAM wParam, LPARAM lParam,
                                                    BOOL& handled);
    /// Leaves the message unhandled while there is no logic.
    LRESULT ToLogic(LogicHandler handler, UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    /// The border of each method of an interface: holds the shell, asks for the logic and lets no exception
    /// out.
    template <class Work>
    HRESULT WithLogic(Work work) noexcept {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        return fw::Guarded([&]() -> HRESULT { return m_logic ? work(*m_logic) : E_UNEXPECTED; });
    }

    // What only some logic classes have; the shell of such a class asks them.

    /// True, with the answer in result, if a preview takes the place of the event.
    virtual bool BeginUpdateIsPreview(HRESULT& result);
    virtual bool EndUpdateIsPreview(HRESULT& result);
    virtual LRESULT OnListHover(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    /// Presses the row's first small button.
    virtual HRESULT PressCustomButton();

    // CComControl
    HRESULT OnDrawAdvanced(ATL_DRAWINFO& info) override;
    HRESULT DoVerbShow(const RECT* position, HWND parent) override;
    HRESULT DoVerbHide(const RECT* position, HWND parent) override;
    HRESULT OnUserActivated(const RECT& client) override;
    HRESULT OnUIDeactivating() override;
    HRESULT OnObjectRectsSet(const RECT& position, const RECT& clip) override;

    std::unique_ptr<CKvPeCtrlBase> m_logic;

private:
    LRESULT OnCreate(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLButtonDblClk(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseActivate(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnCtlColor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseLeave(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnDrawTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnGetDlgCode(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnListHoverMessage(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    template <class Work>
    HRESULT FireToSinks(Work work);
    HRESULT FireDblClickEvent();
    void TakeAmbientBackColor();
    void TakeAmbientForeColor();
    void TakeAmbientFont();
    bool GetAmbientColor(DISPID id, OLE_COLOR& color);
    LPARAM ToParentPoint(LPARAM clientPoint) const;

    fw::ConnectionPoint m_sinks;
    fw::ConnectionPoint m_propertyNotifySinks;
};
