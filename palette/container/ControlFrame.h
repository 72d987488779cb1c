#pragma once

#include <span>
#include <vector>

#include "framework/com/CComObject.h"
#include "framework/com/ComObjectRoot.h"

namespace kvpalette {

class HostedControl;

/// The palette as the container and the frame of its controls. It outlives the palette when a control keeps a
/// reference; Disconnect cuts it off.
class ControlFrame : public fw::ComObjectRoot, public IOleContainer, public IOleInPlaceFrame {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    void Connect(HWND frameWindow) { m_frameWindow = frameWindow; }
    void Disconnect();
    HWND FrameWindow() const { return m_frameWindow; }

    /// Controls are listed for IOleContainer::EnumObjects; they are not owned.
    void AddControl(HostedControl* control);
    void RemoveControl(HostedControl* control);

    /// Offers a key to the active control before the palette uses it. True when the control took it.
    bool TranslateAccelerator(MSG& message);

    // IParseDisplayName
    STDMETHODIMP ParseDisplayName(IBindCtx* context, LPOLESTR name, ULONG* eaten, IMoniker** result) override;
    // IOleContainer
    STDMETHODIMP EnumObjects(DWORD flags, IEnumUnknown** result) override;
    STDMETHODIMP LockContainer(BOOL lock) override;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* result) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    // IOleInPlaceUIWindow: the palette gives controls no room for tools of their own
    STDMETHODIMP GetBorder(LPRECT border) override;
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    // IOleInPlaceFrame
    STDMETHODIMP InsertMenus(HMENU menu, LPOLEMENUGROUPWIDTHS widths) override;
    STDMETHODIMP SetMenu(HMENU menu, HOLEMENU sharedMenu, HWND activeObject) override;
    STDMETHODIMP RemoveMenus(HMENU menu) override;
    STDMETHODIMP SetStatusText(LPCOLESTR text) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD id) override;

protected:
    ~ControlFrame() = default;

private:
    HWND m_frameWindow = nullptr;
    std::vector<HostedControl*> m_controls;
    fw::ComPtr<IOleInPlaceActiveObject> m_active;
};

}  // namespace kvpalette
