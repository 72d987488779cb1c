#include "tests/conform/faulty/PointDetour.h"

#include <algorithm>

#include "tests/conform/faulty/Fault.h"

namespace {

bool IsToBeHeld() {
    return HasFault(L"tells-newcomers") || HasFault(L"tells-the-mute") || HasFault(L"tells-those-gone");
}

}  // namespace

IConnectionPoint* PointDetour::Around(IConnectionPoint* point, std::vector<FaultySink>& sinks) {
    auto* const detour = new PointDetour(sinks);
    detour->m_point.Attach(point);
    return detour;
}

STDMETHODIMP_(ULONG) PointDetour::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP PointDetour::GetConnectionPointContainer(IConnectionPointContainer** result) {
    if (HasFault(L"point-without-owner")) {
        *result = nullptr;
        return E_UNEXPECTED;
    }
    return m_point->GetConnectionPointContainer(result);
}

STDMETHODIMP PointDetour::Advise(IUnknown* sink, DWORD* cookie) {
    HRESULT advised = m_point->Advise(sink, cookie);
    if (FAILED(advised) && HasFault(L"takes-any-sink")) {
        advised = S_OK;
    }
    if (FAILED(advised) && HasFault(L"cookie-for-refused")) {
        *cookie = 5;
    }
    if (SUCCEEDED(advised) && HasFault(L"keeps-event-sink")) {
        sink->AddRef();
    }
    if (SUCCEEDED(advised) && IsToBeHeld()) {
        m_sinks.push_back({fw::QueryFrom<IKvPiPropertyEditEventsSink2>(sink), *cookie});
    }
    if (SUCCEEDED(advised) && m_lastCookie != 0 && HasFault(L"same-cookie")) {
        *cookie = m_lastCookie;
    }
    m_lastCookie = *cookie;
    return advised;
}

STDMETHODIMP PointDetour::Unadvise(DWORD cookie) {
    const auto gone = std::ranges::find(m_sinks, cookie, &FaultySink::cookie);
    if (gone != m_sinks.end() && HasFault(L"tells-those-gone")) {
        gone->hasGone = true;
    } else if (gone != m_sinks.end()) {
        m_sinks.erase(gone);
    }
    const HRESULT result = m_point->Unadvise(cookie);
    return HasFault(L"any-cookie") ? S_OK : result;
}
