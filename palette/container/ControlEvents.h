#pragma once

#include "framework/base/WindowsApi.h"

namespace kvpalette {

class HostedControl;

/// What happens in a row's control. The calls come from inside the control: it must live until they return.
class ControlEvents {
public:
    virtual void OnControlClick(HostedControl& control) = 0;
    virtual void OnControlDoubleClick(HostedControl& control) = 0;
    /// A key that the control leaves to the palette. Its release comes as a second call of the same kind.
    virtual void OnControlKey(HostedControl& control, WPARAM key, LPARAM data) = 0;
    /// The point is in the client coordinates of the window that the control lies in.
    virtual void OnControlRightButton(HostedControl& control, WPARAM keys, POINT point) = 0;
    virtual void OnControlMiddleButton(HostedControl& control, WPARAM keys, POINT point) = 0;
    virtual void OnControlBeginUpdate(HostedControl& control) = 0;
    virtual void OnControlEndUpdate(HostedControl& control) = 0;
    /// A dialog of the control begins or ends.
    virtual void OnControlModal(HostedControl& control, bool begins) = 0;
    /// The control has become, or is no longer, the one that the user works in.
    virtual void OnControlActive(HostedControl& control, bool active) = 0;

protected:
    ~ControlEvents() = default;
};

}  // namespace kvpalette
