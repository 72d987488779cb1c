#include "refhost/db/Text.h"

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

void Text::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Text("content", m_content, L"");
    visitor.Point("position", m_position);
    visitor.Number("height", m_height);
    visitor.OptionalNumber("rotation", m_rotation, 0);
    visitor.Text("style", m_styleName, L"Standard");
    visitor.Text("passcode", m_passcode, L"");
}

std::wstring Text::Complaint() const {
    if (!(m_height > 0)) {
        return L"height: must be above zero";
    }
    return m_styleName.empty() ? L"style: a name is needed" : Entity::Complaint();
}

void Text::Draw(GeometrySink& sink, const Transform& transform) const {
    const double turn = std::atan2(transform.yx, transform.xx);
    const double scale = std::hypot(transform.xy, transform.yy);
    sink.Text(transform.Apply(m_position), m_height * scale, m_rotation + turn, m_content);
}

}  // namespace kvhost
