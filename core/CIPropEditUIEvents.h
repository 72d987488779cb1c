#pragma once

#include "framework/base/WindowsApi.h"

/// The way from a control's logic to the palette's event sinks; implemented by the shell. Each operation
/// returns the result of the last sink.
class CIPropEditUIEvents {
public:
    [[nodiscard]] virtual HRESULT FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) = 0;
    [[nodiscard]] virtual HRESULT FireKeyUpEvent(UINT_PTR key, LONG_PTR keyData) = 0;
    [[nodiscard]] virtual HRESULT FireRButtonDownEvent(UINT_PTR keys, LONG_PTR point) = 0;
    [[nodiscard]] virtual HRESULT FireMButtonDownEvent(UINT_PTR keys, LONG_PTR point) = 0;
    [[nodiscard]] virtual HRESULT FireBeginPropertyUpdateEvent() = 0;
    [[nodiscard]] virtual HRESULT FireEndPropertyUpdateEvent() = 0;
    [[nodiscard]] virtual HRESULT FireClickEvent() = 0;
    [[nodiscard]] virtual HRESULT FireBeginModalEvent(UINT code) = 0;
    [[nodiscard]] virtual HRESULT FireEndModalEvent(UINT code) = 0;

protected:
    ~CIPropEditUIEvents() = default;
};
