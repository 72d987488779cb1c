#include "framework/com/ConnectionPoint.h"

#include <algorithm>
#include <utility>

#include "framework/base/Hresult.h"
#include "framework/com/ComEnumerator.h"
#include "framework/com/ConnectionPointContainer.h"
#include "framework/com/Guarded.h"

namespace fw {

namespace {

struct ConnectionTraits {
    using Interface = IEnumConnections;
    struct Stored {
        DWORD cookie;
        ComPtr<IUnknown> sink;
    };
    using Given = CONNECTDATA;

    static HRESULT Copy(const Stored& from, Given& to) noexcept {
        to.dwCookie = from.cookie;
        return from.sink.CopyTo(&to.pUnk);
    }
    static void Destroy(Given& given) noexcept { std::exchange(given.pUnk, nullptr)->Release(); }
};

}  // namespace

ConnectionPoint::ConnectionPoint(ConnectionPointContainer& container, REFIID sinkInterface) noexcept
    : m_container(container), m_sinkInterface(sinkInterface) {
    container.Enter(*this);
}

std::vector<ComPtr<IUnknown>> ConnectionPoint::Snapshot() const {
    std::vector<ComPtr<IUnknown>> sinks;
    sinks.reserve(m_connections.size());
    for (const Connection& connection : m_connections) {
        sinks.push_back(connection.sink);
    }
    return sinks;
}

void ConnectionPoint::DisconnectAll() noexcept {
    // The list is emptied first: a sink that is released may call Unadvise.
    std::exchange(m_connections, {}).clear();
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID id, void** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    RETURN_HR_IF(E_NOINTERFACE, !::IsEqualIID(id, IID_IUnknown) && !::IsEqualIID(id, IID_IConnectionPoint));
    *result = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ConnectionPoint::AddRef() {
    return m_container.AddRef();
}

STDMETHODIMP_(ULONG) ConnectionPoint::Release() {
    return m_container.Release();
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* id) {
    RETURN_IF_NULL_POINTER(id);
    *id = m_sinkInterface;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = &m_container;
    m_container.AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    RETURN_IF_NULL_POINTER(cookie);
    *cookie = 0;
    RETURN_IF_NULL_POINTER(sink);
    return Guarded([&] {
        ComPtr<IUnknown> connected;
        RETURN_HR_IF(CONNECT_E_CANNOTCONNECT,
                     FAILED(sink->QueryInterface(m_sinkInterface, connected.PutVoid())));
        const DWORD given = NextCookie();
        m_connections.push_back({given, std::move(connected)});
        *cookie = given;
        return S_OK;
    });
}

DWORD ConnectionPoint::NextCookie() noexcept {
    const auto isInUse = [this](DWORD cookie) {
        return std::ranges::any_of(
            m_connections, [cookie](const Connection& connection) { return connection.cookie == cookie; });
    };
    do {
        ++m_lastCookie;
    } while (m_lastCookie == 0 || isInUse(m_lastCookie));
    return m_lastCookie;
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::ranges::find_if(
        m_connections, [cookie](const Connection& each) { return each.cookie == cookie; });
    RETURN_HR_IF(CONNECT_E_NOCONNECTION, found == m_connections.end());
    // The sink is let go after the list is in order: its end may come back here.
    const ComPtr<IUnknown> leaving = std::move(found->sink);
    m_connections.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return Guarded([&] {
        std::vector<ConnectionTraits::Stored> connections;
        for (const Connection& connection : m_connections) {
            connections.push_back({connection.cookie, connection.sink});
        }
        return ComEnumerator<ConnectionTraits>::Make(nullptr, std::move(connections), &m_container, result);
    });
}

}  // namespace fw
