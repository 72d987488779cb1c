#pragma once

#include <vector>

#include "KvPEXCtl_h.h"
#include "framework/com/ComPtr.h"

/// A sink that was connected through a PointDetour. It is held only where the run asks for a fault that calls
/// it.
struct FaultySink {
    fw::ComPtr<IKvPiPropertyEditEventsSink2> events;
    DWORD cookie = 0;
    bool hasGone = false;
};

/// Stands between clients and the control's connection point, wrong in the ways that the run asks for.
class PointDetour final : public IConnectionPoint {
public:
    /// Takes over the reference to the point and gives one to its place-holder. The sinks are their
    /// control's, which outlives the calls of its clients.
    static IConnectionPoint* Around(IConnectionPoint* point, std::vector<FaultySink>& sinks);

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
        return m_point->QueryInterface(id, result);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    // IConnectionPoint
    STDMETHODIMP GetConnectionInterface(IID* id) override { return m_point->GetConnectionInterface(id); }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** result) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** result) override {
        return m_point->EnumConnections(result);
    }

private:
    explicit PointDetour(std::vector<FaultySink>& sinks) : m_sinks(sinks) {}
    ~PointDetour() = default;

    fw::ComPtr<IConnectionPoint> m_point;
    std::vector<FaultySink>& m_sinks;
    DWORD m_lastCookie = 0;
    ULONG m_references = 1;
};
