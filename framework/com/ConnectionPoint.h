#pragma once

#include <vector>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"
#include "framework/com/ComPtr.h"

namespace fw {

class ConnectionPointContainer;

/// One connection point, a member of the object that offers it: it lives as long as that object and hands
/// references on to it, but has an identity of its own.
class FW_API ConnectionPoint final : public IConnectionPoint {
public:
    /// Enters itself in the container, which is a base of the object that the point is a member of.
    ConnectionPoint(ConnectionPointContainer& container, REFIID sinkInterface) noexcept;
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    /// All connected sinks with references of their own. Who fires an event walks this list: sinks may
    /// connect and leave meanwhile.
    [[nodiscard]] std::vector<ComPtr<IUnknown>> Snapshot() const;
    bool HasConnections() const noexcept { return !m_connections.empty(); }
    /// Releases all sinks, for an object that ends.
    void DisconnectAll() noexcept;

    REFIID SinkInterface() const noexcept { return m_sinkInterface; }
    ConnectionPoint* Next() const noexcept { return m_next; }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    // IConnectionPoint
    STDMETHODIMP GetConnectionInterface(IID* id) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** result) override;
    /// The sink must answer the point's interface: else CONNECT_E_CANNOTCONNECT. No cookie comes twice.
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** result) override;

private:
    friend class ConnectionPointContainer;

    struct Connection {
        DWORD cookie;
        ComPtr<IUnknown> sink;  // the point's interface, not its IUnknown
    };

    DWORD NextCookie() noexcept;

    ConnectionPointContainer& m_container;
    IID m_sinkInterface;
    ConnectionPoint* m_next = nullptr;  // the container's list, in declared order
    std::vector<Connection> m_connections;
    DWORD m_lastCookie = 0;
};

}  // namespace fw
