#include "refhost/automation/PolylineVertexObject.h"

#include <array>

#include "framework/base/Hresult.h"
#include "framework/com/CComObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/automation/PropertyState.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/automation/SegmentShape.h"
#include "refhost/db/Database.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

double* NumberOf(PolylineVertex& vertex, DISPID dispid) {
    switch (dispid) {
        case DispidVertexX:
            return &vertex.x;
        case DispidVertexY:
            return &vertex.y;
        default:
            return &vertex.bulge;
    }
}

}  // namespace

std::span<const fw::InterfaceEntry> PolylineVertexObject::Interfaces() {
    static constexpr std::array interfaces{fw::Implements<PolylineVertexObject, IDispatch>(),
                                           fw::Implements<PolylineVertexObject, ITransientObjectIdentity>()};
    return interfaces;
}

void PolylineVertexObject::Attach(KvDbObjectId polyline, std::size_t index) {
    m_polyline = polyline;
    m_index = index;
}

const PropertyTable& PolylineVertexObject::Table() const {
    return PolylineVertexProperties();
}

std::wstring PolylineVertexObject::JournalName() const {
    return AsText(m_polyline) + L'.' + AsText(m_index);
}

STDMETHODIMP PolylineVertexObject::GetFullSubentPath(KvDbFullSubentPath* path) {
    RETURN_IF_NULL_POINTER(path);
    *path = {};
    ServiceCall call(L"GetFullSubentPath", [this] { return JournalName(); });
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *path = KvDbFullSubentPath(m_polyline, SubentVertex, static_cast<std::intptr_t>(m_index));
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP PolylineVertexObject::GetClassId(CLSID* classId) {
    RETURN_IF_NULL_POINTER(classId);
    *classId = {};
    ServiceCall call(L"GetClassId", [this] { return JournalName(); });
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *classId = Table().ClassId();
    return call.ReturnsCode(S_OK);
}

Tolm::ErrorStatus PolylineVertexObject::Read(const PropertyDescription& property, fw::Variant& value) {
    const ScopedOpen<Polyline> polyline(m_polyline);
    if (!polyline) {
        return polyline.Status();
    }
    if (m_index >= polyline->Vertices().size()) {
        return Tolm::eInvalidInput;
    }
    PolylineVertex vertex = polyline->Vertices()[m_index];
    value = property.dispid == DispidVertexSegment
                ? fw::Variant::FromLong(static_cast<long>(ShapeOfSegment(vertex)))
                : fw::Variant::FromDouble(*NumberOf(vertex, property.dispid));
    return Tolm::eOk;
}

Tolm::ErrorStatus PolylineVertexObject::Write(const PropertyDescription& property, const fw::Variant& value) {
    return ChangeObject(m_polyline, [&](Object& object) {
        auto& polyline = static_cast<Polyline&>(object);
        if (m_index >= polyline.Vertices().size()) {
            return Tolm::eInvalidInput;
        }
        PolylineVertex vertex = polyline.Vertices()[m_index];
        if (property.dispid != DispidVertexSegment) {
            *NumberOf(vertex, property.dispid) = value.DoubleOr(0);
        } else if (!BendSegment(vertex, static_cast<SegmentShape>(value.LongOr(-1)))) {
            return Tolm::eInvalidInput;
        }
        return polyline.SetVertex(m_index, vertex);
    });
}

HRESULT GetPolylineVertexObject(KvDbObjectId polyline, std::size_t index, IDispatch** object) {
    RETURN_IF_NULL_POINTER(object);
    *object = nullptr;
    const auto* const subject = Database::PeekAs<Polyline>(polyline);
    RETURN_HR_IF(E_INVALIDARG, subject == nullptr || index >= subject->Vertices().size());
    CComObject<PolylineVertexObject>* made = nullptr;
    RETURN_IF_FAILED(CComObject<PolylineVertexObject>::CreateInstance(nullptr, &made));
    made->Attach(polyline, index);
    *object = made;
    return S_OK;
}

}  // namespace kvhost
