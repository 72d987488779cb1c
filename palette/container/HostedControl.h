#pragma once

#include <optional>
#include <string>

#include "KvPEXCtl_h.h"
#include "framework/com/CComObject.h"
#include "framework/com/ComPtr.h"
#include "framework/com/Variant.h"
#include "framework/window/Geometry.h"
#include "palette/container/AmbientValues.h"
#include "palette/container/ControlEvents.h"
#include "palette/container/ControlSink.h"
#include "palette/container/ControlSite.h"
#include "palette/container/RowIdentifier.h"

namespace kvpalette {

class ControlFrame;

/// What a control needs of the palette around it. Everything named here outlives the control.
struct ControlSurroundings {
    HWND parent = nullptr;
    ControlFrame* frame = nullptr;
    const AmbientValues* ambient = nullptr;
    ControlEvents* events = nullptr;
};

/// The three parallel arrays that tell a control its objects and their property, and the row's read-only
/// answer.
struct RowSelection {
    fw::Variant objects;
    fw::Variant dynamicProperties;
    fw::Variant dispids;
    /// Keys of the elements of a group, for controls over grouped properties; empty for all others.
    fw::Variant cookies;
    bool readOnly = false;
    /// What the property's number means; for controls that ask.
    std::optional<KvPeNumericType> numericType;
    /// The property is a number, so that a calculator makes sense beside it.
    bool isNumber = false;
};

/// One property control and the container's side of it: made by class id, placed in the palette, talked to by
/// its published interfaces only. The row owns it.
class HostedControl {
public:
    explicit HostedControl(const ControlSurroundings& surroundings);
    ~HostedControl();
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;

    /// Makes the control, gives it its site, listens to it, and tells it its selection. What is half made
    /// when a step fails is taken back. With a position it is active in place there before it is told its
    /// selection: a control may need its window to read.
    [[nodiscard]] HRESULT Create(const CLSID& classId, const std::wstring& rowName, RowSelection& selection,
                                 const RECT* position = nullptr);
    /// Takes the control out of the palette; called by the destructor too.
    void Close();

    bool IsCreated() const { return static_cast<bool>(m_object); }
    IUnknown* Object() const { return m_object.Get(); }
    ControlEvents& Events() const { return *m_surroundings.events; }
    HWND ParentWindow() const { return m_surroundings.parent; }
    /// Null while the control is not in place.
    HWND Window() const;
    const RowIdentifier& Identifier() const { return *m_identifier; }

    /// Shows the control's window at the position, in the parent's client coordinates.
    [[nodiscard]] HRESULT Activate(const RECT& position);
    /// Moves an active control.
    [[nodiscard]] HRESULT SetPosition(const RECT& position);
    const RECT& Position() const { return m_position; }
    bool IsInPlace() const { return m_inPlace; }
    void Hide();

    /// Makes it the control that the user works in: an editable row goes into edit.
    [[nodiscard]] HRESULT UiActivate();
    HRESULT UiDeactivate();
    bool IsUiActive() const { return m_uiActive; }

    /// Reads the value anew and repaints.
    [[nodiscard]] HRESULT Refresh();
    /// The user has begun in the control: the palette leaves the focus there.
    bool KeepsFocus() const;
    /// Draws the value as the row shows it, with or without a window.
    [[nodiscard]] HRESULT Draw(HDC dc, const RECT& bounds) const;
    /// Tells the control that the palette's look has changed.
    void LookHasChanged();

    // The site reports.
    void NoteActive(bool active);

private:
    HRESULT Connect();
    HRESULT TellElements(const RowSelection& selection);
    /// What the control is told once, before its selection.
    void Configure(const RowSelection& selection);
    HRESULT QuickActivate();
    HRESULT ActivateStepByStep();
    HRESULT Advise(REFIID id, DWORD& cookie);
    void Unadvise(REFIID id, DWORD& cookie);
    HRESULT DoVerb(LONG verb);

    ControlSurroundings m_surroundings;
    fw::ComPtr<IOleObject> m_object;
    fw::ComPtr<IKvPiPropertyEditControl> m_control;
    fw::ComPtr<IOleInPlaceObject> m_inPlaceObject;
    fw::ComPtr<CComObject<ControlSite>> m_site;
    fw::ComPtr<CComObject<ControlSink>> m_sink;
    fw::ComPtr<CComObject<RowIdentifier>> m_identifier;
    RECT m_position{};
    DWORD m_eventCookie = 0;
    DWORD m_notifyCookie = 0;
    bool m_inPlace = false;
    bool m_uiActive = false;
};

}  // namespace kvpalette
