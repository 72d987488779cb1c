// From the logic to the palette: the events that the logic fires and the control's own.
#include "core/CKvPeShell.h"
#include "framework/com/Guarded.h"

// A sink may connect or leave while it is called, so the walk goes over a copy. One that throws keeps nobody
// else from being told.
template <class Work>
HRESULT CKvPeShell::FireToSinks(Work work) {
    HRESULT result = S_OK;
    for (const fw::ComPtr<IUnknown>& connection : m_sinks.Snapshot()) {
        if (const auto sink = connection.As<IKvPiPropertyEditEventsSink2>()) {
            result = fw::Guarded([&] { return work(*sink); });
        }
    }
    return result;
}

HRESULT CKvPeShell::FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) {
    return FireToSinks([&](IKvPiPropertyEditEventsSink2& sink) {
        return sink.OnKeyDown(static_cast<LONG_PTR>(key), keyData);
    });
}

// Deliberate: key-up reaches the palette as a second key-down. Palettes in use rely on it.
HRESULT CKvPeShell::FireKeyUpEvent(UINT_PTR key, LONG_PTR keyData) {
    return FireKeyDownEvent(key, keyData);
}

HRESULT CKvPeShell::FireRButtonDownEvent(UINT_PTR keys, LONG_PTR point) {
    return FireToSinks([&](IKvPiPropertyEditEventsSink2& sink) { return sink.OnRButtonDown(keys, point); });
}

HRESULT CKvPeShell::FireMButtonDownEvent(UINT_PTR keys, LONG_PTR point) {
    return FireToSinks([&](IKvPiPropertyEditEventsSink2& sink) { return sink.OnMButtonDown(keys, point); });
}

HRESULT CKvPeShell::FireBeginPropertyUpdateEvent() {
    HRESULT result = S_OK;
    if (BeginUpdateIsPreview(result)) {
        return result;
    }
    return FireToSinks([](IKvPiPropertyEditEventsSink2& sink) { return sink.OnBeginPropertyUpdate(); });
}

HRESULT CKvPeShell::FireEndPropertyUpdateEvent() {
    HRESULT result = S_OK;
    if (EndUpdateIsPreview(result)) {
        return result;
    }
    return FireToSinks([](IKvPiPropertyEditEventsSink2& sink) { return sink.OnEndPropertyUpdate(); });
}

HRESULT CKvPeShell::FireClickEvent() {
    return FireToSinks([](IKvPiPropertyEditEventsSink2& sink) { return sink.OnClick(); });
}

HRESULT CKvPeShell::FireDblClickEvent() {
    return FireToSinks([](IKvPiPropertyEditEventsSink2& sink) { return sink.OnDblClick(); });
}

HRESULT CKvPeShell::FireBeginModalEvent(UINT code) {
    return FireToSinks([&](IKvPiPropertyEditEventsSink2& sink) { return sink.OnBeginModal(code); });
}

HRESULT CKvPeShell::FireEndModalEvent(UINT code) {
    return FireToSinks([&](IKvPiPropertyEditEventsSink2& sink) { return sink.OnEndModal(code); });
}

bool CKvPeShell::BeginUpdateIsPreview(HRESULT&) {
    return false;
}

bool CKvPeShell::EndUpdateIsPreview(HRESULT&) {
    return false;
}
