#include "refhost/db/Attribute.h"

#include <cmath>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

Attribute::Attribute() = default;
Attribute::~Attribute() = default;

KvRxClass* Attribute::desc() {
    return KvDbAttribute::desc();
}

Tolm::ErrorStatus Attribute::SetTag(std::wstring_view tag) {
    return tag.empty() ? Tolm::eInvalidInput : ChangeText(m_tag, tag);
}

void Attribute::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Text("tag", m_tag, L"");
    visitor.Text("prompt", m_prompt, L"");
    visitor.Text("value", m_value, L"");
    visitor.Point("position", m_position);
    visitor.Number("height", m_height);
    visitor.OptionalNumber("rotation", m_rotation, 0);
    visitor.Flag("invisible", m_invisible, false);
}

std::wstring Attribute::Complaint() const {
    if (m_tag.empty()) {
        return L"tag: a name is needed";
    }
    return m_height > 0 ? Entity::Complaint() : L"height: must be above zero";
}

void Attribute::Draw(GeometrySink& sink, const Transform& transform) const {
    const double turn = std::atan2(transform.yx, transform.xx);
    const double scale = std::hypot(transform.xy, transform.yy);
    if (!m_invisible) {
        sink.Text({transform.Apply(m_position), m_height * scale, m_rotation + turn, 0, m_value});
    }
}

}  // namespace kvhost
