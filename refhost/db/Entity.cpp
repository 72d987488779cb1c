#include "refhost/db/Entity.h"

#include <algorithm>
#include <cmath>

#include "refhost/db/Database.h"
#include "refhost/db/GeometrySink.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Lineweight.h"
#include "refhost/db/Settings.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

constexpr const wchar_t* c_linetypeOfLayer = L"ByLayer";
class BoundsSink final : public GeometrySink {
public:
    Bounds bounds;

    void Path(std::span<const Point3> points, bool /*closed*/) override {
        std::for_each(points.begin(), points.end(), [this](const Point3& point) { bounds.Add(point); });
    }
    void Text(const TextLine& line) override {
        const double width = c_characterWidth * line.height * static_cast<double>(line.content.size());
        const double along = std::cos(line.rotation);
        const double up = std::sin(line.rotation);
        for (const double run : {-line.anchor * width, (1 - line.anchor) * width}) {
            for (const double rise : {0.0, line.height}) {
                bounds.Add({line.position.x + along * run - up * rise,
                            line.position.y + up * run + along * rise, 0});
            }
        }
    }
    void Dot(const Point3& position) override { bounds.Add(position); }
};

}  // namespace

Entity::Entity() : m_linetype(c_linetypeOfLayer) {
}
Entity::~Entity() = default;

Tolm::ErrorStatus Entity::SetLayerId(KvDbObjectId layer) {
    const Layer* const record = Database::PeekAs<Layer>(layer);
    if (record == nullptr || record->IsErased() ||
        (GetDatabase() != nullptr && record->GetDatabase() != GetDatabase())) {
        return Tolm::eInvalidInput;
    }
    return Change(m_layer, layer);
}

std::wstring Entity::LayerName() const {
    const Layer* const record = Database::PeekAs<Layer>(m_layer);
    return record != nullptr ? record->Name() : std::wstring();
}

Tolm::ErrorStatus Entity::SetLayerName(std::wstring_view name) {
    if (GetDatabase() == nullptr) {
        return Tolm::eNotInDatabase;
    }
    const KvDbObjectId layer = GetDatabase()->LayerNamed(name);
    return layer.isNull() ? Tolm::eKeyNotFound : SetLayerId(layer);
}

Tolm::ErrorStatus Entity::SetColor(const ColorValue& color) {
    if (color.method == ColorValue::Method::Index && color.index == 0) {
        return Tolm::eInvalidInput;
    }
    return Change(m_color, color);
}

ColorValue Entity::EffectiveColor() const {
    const Layer* const record = Database::PeekAs<Layer>(m_layer);
    return m_color.method == ColorValue::Method::ByLayer && record != nullptr
               ? record->ColorIn(GetDatabase()->GetSettings().CurrentViewport())
               : m_color;
}

Tolm::ErrorStatus Entity::SetLinetype(std::wstring_view name) {
    return name.empty() ? Tolm::eInvalidInput : ChangeText(m_linetype, name);
}

Tolm::ErrorStatus Entity::SetLineweight(std::int32_t weight) {
    return IsLineweight(weight) ? Change(m_lineweight, weight) : Tolm::eInvalidInput;
}

std::int32_t Entity::EffectiveLineweight() const {
    return m_lineweight < 0 ? c_plainLineweight : m_lineweight;
}

Bounds Entity::GetBounds() const {
    BoundsSink sink;
    Draw(sink, Transform());
    return sink.bounds;
}

int Entity::HighlightCount(const KvDbFullSubentPath& path) const {
    for (const Highlight& highlight : m_highlights) {
        if (highlight.path == path) {
            return static_cast<int>(highlight.styles.size());
        }
    }
    return 0;
}

void Entity::VisitFields(FieldVisitor& visitor) {
    visitor.Symbol("layer", SymbolKind::Layer, m_layer);
    visitor.Color("color", m_color, ColorValue::ByLayer());
    visitor.Text("linetype", m_linetype, c_linetypeOfLayer);
    visitor.Integer("lineweight", m_lineweight, c_lineweightByLayer);
    visitor.Flag("visible", m_visible, true);
    visitor.Text("description", m_description, L"");
    visitor.Text("hyperlink", m_hyperlink, L"");
}

std::wstring Entity::Complaint() const {
    if (!IsLineweight(m_lineweight)) {
        return L"lineweight: there is no such weight";
    }
    return m_linetype.empty() ? L"linetype: a name is needed" : std::wstring();
}

Tolm::ErrorStatus Entity::PushHighlightService(const KvDbFullSubentPath& path, int style) {
    ServiceCall call(L"pushHighlight", Id(), path.kind(), path.index(), style);
    if (call.Fails()) {
        return call.Returns(Tolm::eInvalidInput);
    }
    for (Highlight& highlight : m_highlights) {
        if (highlight.path == path) {
            highlight.styles.push_back(style);
            return call.Returns(Tolm::eOk);
        }
    }
    m_highlights.push_back({path, {style}});
    return call.Returns(Tolm::eOk);
}

Tolm::ErrorStatus Entity::PopHighlightService(const KvDbFullSubentPath& path) {
    ServiceCall call(L"popHighlight", Id(), path.kind(), path.index());
    const auto found = std::find_if(m_highlights.begin(), m_highlights.end(),
                                    [&](const Highlight& highlight) { return highlight.path == path; });
    if (found == m_highlights.end()) {
        return call.Returns(Tolm::eInvalidInput);
    }
    found->styles.pop_back();
    if (found->styles.empty()) {
        m_highlights.erase(found);
    }
    return call.Returns(call.Fails() ? Tolm::eInvalidInput : Tolm::eOk);
}

}  // namespace kvhost
