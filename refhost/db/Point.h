#pragma once

#include <array>
#include <cstdint>

#include "refhost/db/EntityFace.h"

namespace kvhost {

/// How a point is drawn: all but dots are one drawing unit wide.
enum class PointStyle : std::int32_t { Dot, Plus, Cross, Circle, Square };

/// How drawings write the styles, in their order.
inline constexpr std::array<const wchar_t*, 5> c_pointStyleNames{L"dot", L"plus", L"cross", L"circle",
                                                                 L"square"};

/// A single point.
class KVHOST_API Point final : public EntityFace<Point> {
public:
    Point();
    ~Point() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const Point3& Position() const { return m_position; }
    Tolm::ErrorStatus SetPosition(const Point3& point) { return ChangePoint(m_position, point); }

    [[nodiscard]] PointStyle Style() const { return static_cast<PointStyle>(m_style); }
    Tolm::ErrorStatus SetStyle(PointStyle style);

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Point"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    Point3 m_position;
    std::int32_t m_style = 0;
};

}  // namespace kvhost
