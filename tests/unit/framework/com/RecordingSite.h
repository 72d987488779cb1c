#pragma once

#include <functional>
#include <map>
#include <string>

#include "framework/com/CComObject.h"
#include "framework/com/Variant.h"

namespace kvtest {

/// What a test wants a call of the container to answer or to do; the call is known by its name in the log.
class Reactions {
public:
    /// Writes the call and gives the answer that the test has set for it, S_OK by default.
    HRESULT Answer(const std::string& call, const std::string& arguments = {});

    std::map<std::string, HRESULT> results;
    std::map<std::string, std::function<void()>> actions;
};

/// The frame or the document window of a container.
class RecordingFrame : public fw::ComObjectRoot, public IOleInPlaceFrame {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    std::string name = "frame";
    Reactions* reactions = nullptr;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* result) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    // IOleInPlaceUIWindow
    STDMETHODIMP GetBorder(LPRECT border) override;
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    // IOleInPlaceFrame
    STDMETHODIMP InsertMenus(HMENU menu, LPOLEMENUGROUPWIDTHS widths) override;
    STDMETHODIMP SetMenu(HMENU menu, HOLEMENU oleMenu, HWND window) override;
    STDMETHODIMP RemoveMenus(HMENU menu) override;
    STDMETHODIMP SetStatusText(LPCOLESTR text) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD id) override;

    fw::ComPtr<IOleInPlaceActiveObject> activeObject;
};

/// A container's side of one control. It answers only what a test lets it answer and writes down every call.
class RecordingSite : public fw::ComObjectRoot,
                      public IOleClientSite,
                      public IOleInPlaceSite,
                      public IOleControlSite,
                      public IDispatch {
public:
    RecordingSite();
    ~RecordingSite();
    static std::span<const fw::InterfaceEntry> Interfaces();

    Reactions reactions;
    HWND parent = nullptr;
    RECT place{10, 20, 110, 40};
    RECT clip{10, 20, 110, 40};
    fw::ComPtr<CComObject<RecordingFrame>> frame;
    fw::ComPtr<CComObject<RecordingFrame>> document;
    std::map<DISPID, fw::Variant> ambients;

    // IOleClientSite
    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** result) override;
    STDMETHODIMP GetContainer(IOleContainer** result) override;
    STDMETHODIMP ShowObject() override;
    STDMETHODIMP OnShowWindow(BOOL show) override;
    STDMETHODIMP RequestNewObjectLayout() override;
    // IOleInPlaceSite
    STDMETHODIMP GetWindow(HWND* result) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP CanInPlaceActivate() override;
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frameResult, IOleInPlaceUIWindow** documentResult,
                                  LPRECT position, LPRECT clipping, LPOLEINPLACEFRAMEINFO info) override;
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
    STDMETHODIMP TranslateAccelerator(LPMSG message, DWORD modifiers) override;
    STDMETHODIMP OnFocus(BOOL got) override;
    STDMETHODIMP ShowPropertyFrame() override;
    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;
};

fw::ComPtr<CComObject<RecordingSite>> MakeSite(HWND parent);

}  // namespace kvtest
