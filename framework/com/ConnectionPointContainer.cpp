#include "framework/com/ConnectionPointContainer.h"

#include "framework/base/Hresult.h"
#include "framework/com/ComEnumerator.h"
#include "framework/com/ConnectionPoint.h"
#include "framework/com/Guarded.h"

namespace fw {

namespace {

struct PointTraits {
    using Interface = IEnumConnectionPoints;
    using Stored = ComPtr<IConnectionPoint>;
    using Given = IConnectionPoint*;

    static HRESULT Copy(const Stored& from, Given& to) noexcept { return from.CopyTo(&to); }
    static void Destroy(Given& given) noexcept { std::exchange(given, nullptr)->Release(); }
};

}  // namespace

void ConnectionPointContainer::Enter(ConnectionPoint& point) noexcept {
    ConnectionPoint** place = &m_first;
    while (*place) {
        place = &(*place)->m_next;
    }
    *place = &point;
}

ConnectionPoint* ConnectionPointContainer::FindPoint(REFIID sinkInterface) const noexcept {
    ConnectionPoint* point = m_first;
    while (point && !::IsEqualIID(point->SinkInterface(), sinkInterface)) {
        point = point->Next();
    }
    return point;
}

void ConnectionPointContainer::DisconnectAllPoints() noexcept {
    for (ConnectionPoint* point = m_first; point; point = point->Next()) {
        point->DisconnectAll();
    }
}

STDMETHODIMP ConnectionPointContainer::EnumConnectionPoints(IEnumConnectionPoints** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return Guarded([&] {
        std::vector<ComPtr<IConnectionPoint>> points;
        for (ConnectionPoint* point = m_first; point; point = point->Next()) {
            points.emplace_back(point);
        }
        return ComEnumerator<PointTraits>::Make(nullptr, std::move(points), this, result);
    });
}

STDMETHODIMP ConnectionPointContainer::FindConnectionPoint(REFIID sinkInterface, IConnectionPoint** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = FindPoint(sinkInterface);
    RETURN_HR_IF(CONNECT_E_NOCONNECTION, !*result);
    (*result)->AddRef();
    return S_OK;
}

}  // namespace fw
