#pragma once

#include "refhost/db/EntityFace.h"

namespace kvhost {

/// A path of straight and circular segments, open or closed.
class KVHOST_API Polyline final : public EntityFace<Polyline> {
public:
    Polyline();
    ~Polyline() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] bool IsClosed() const { return m_closed; }
    Tolm::ErrorStatus SetClosed(bool closed) { return Change(m_closed, closed); }
    /// Height of the whole path above the plane.
    [[nodiscard]] double Elevation() const { return m_elevation; }
    Tolm::ErrorStatus SetElevation(double height) { return ChangeNumber(m_elevation, height); }
    [[nodiscard]] const std::vector<PolylineVertex>& Vertices() const { return m_vertices; }
    /// eInvalidInput unless there are at least two vertices, of finite numbers.
    Tolm::ErrorStatus SetVertices(std::vector<PolylineVertex> vertices);
    /// eInvalidInput for an index that is not there.
    Tolm::ErrorStatus SetVertex(std::size_t index, const PolylineVertex& vertex);
    [[nodiscard]] double Length() const;
    /// Area within the path, closed by a straight line where it is open.
    [[nodiscard]] double Area() const;

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Polyline"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    bool m_closed = false;
    double m_elevation = 0;
    std::vector<PolylineVertex> m_vertices;
};

}  // namespace kvhost
