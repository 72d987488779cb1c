#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

namespace fw {

class ConnectionPoint;

/// Answers IConnectionPointContainer for an object whose ConnectionPoint members enter themselves here.
class FW_API ConnectionPointContainer : public IConnectionPointContainer {
public:
    /// The point for a sink interface, not owned by the caller; null when the object has none.
    ConnectionPoint* FindPoint(REFIID sinkInterface) const noexcept;
    ConnectionPoint* FirstPoint() const noexcept { return m_first; }

    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** result) override;
    STDMETHODIMP FindConnectionPoint(REFIID sinkInterface, IConnectionPoint** result) override;

protected:
    ConnectionPointContainer() = default;
    ~ConnectionPointContainer() = default;
    ConnectionPointContainer(const ConnectionPointContainer&) = delete;
    ConnectionPointContainer& operator=(const ConnectionPointContainer&) = delete;

    /// Releases every sink of every point: for FinalRelease.
    void DisconnectAllPoints() noexcept;

private:
    friend class ConnectionPoint;
    void Enter(ConnectionPoint& point) noexcept;

    ConnectionPoint* m_first = nullptr;
};

}  // namespace fw
