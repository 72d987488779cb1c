#include "refhost/db/Text.h"

#include <array>
#include <cmath>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

Text::Text() = default;
Text::~Text() = default;

KvRxClass* Text::desc() {
    static KvRxClass s_class(L"KvDbText", KvDbEntity::desc());
    return &s_class;
}

Tolm::ErrorStatus Text::SetStyleName(std::wstring_view name) {
    return name.empty() ? Tolm::eInvalidInput : ChangeText(m_styleName, name);
}

Tolm::ErrorStatus Text::SetAlignment(TextAlignment alignment) {
    const auto place = static_cast<std::int32_t>(alignment);
    const bool isKnown = place >= 0 && static_cast<std::size_t>(place) < c_textAlignmentNames.size();
    return isKnown ? Change(m_alignment, place) : Tolm::eInvalidInput;
}

void Text::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Text("content", m_content, L"");
    visitor.Point("position", m_position);
    visitor.Number("height", m_height);
    visitor.OptionalNumber("rotation", m_rotation, 0);
    visitor.Choice("alignment", m_alignment, c_textAlignmentNames, 0);
    visitor.Text("style", m_styleName, L"Standard");
    visitor.Text("passcode", m_passcode, L"");
}

std::wstring Text::Complaint() const {
    if (!(m_height > 0)) {
        return L"height: must be above zero";
    }
    return m_styleName.empty() ? L"style: a name is needed" : Entity::Complaint();
}

// Alignments come in rows of three, from left to right.
double Text::Anchor() const {
    return (m_alignment % 3) / 2.0;
}

Point3 Text::BaseLinePoint() const {
    constexpr std::array c_rises{0.0, 0.5, 1.0, -c_descent};
    const double rise = c_rises[static_cast<std::size_t>(m_alignment) / 3] * m_height;
    return {m_position.x + rise * std::sin(m_rotation), m_position.y - rise * std::cos(m_rotation),
            m_position.z};
}

void Text::Draw(GeometrySink& sink, const Transform& transform) const {
    const double turn = std::atan2(transform.yx, transform.xx);
    const double scale = std::hypot(transform.xy, transform.yy);
    sink.Text({transform.Apply(BaseLinePoint()), m_height * scale, m_rotation + turn, Anchor(), m_content});
}

}  // namespace kvhost
