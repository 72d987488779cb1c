#include "palette/view/DisplayList.h"

#include <algorithm>
#include <cmath>

#include "palette/theme/Theme.h"
#include "refhost/db/Database.h"
#include "refhost/db/Entity.h"
#include "refhost/db/GeometrySink.h"
#include "refhost/db/Layer.h"

namespace kvpalette {

namespace {

class ShapeMaker final : public kvhost::GeometrySink {
public:
    explicit ShapeMaker(Shape& shape) : m_shape(shape) {}

    void Path(std::span<const kvhost::Point3> points, bool closed) override {
        m_shape.paths.push_back({{points.begin(), points.end()}, closed});
        std::for_each(points.begin(), points.end(), [this](const auto& point) { m_shape.bounds.Add(point); });
    }
    void Text(const kvhost::TextLine& line) override {
        m_shape.texts.push_back(
            {line.position, line.height, line.rotation, line.anchor, std::wstring(line.content)});
        const double length =
            line.height * kvhost::c_characterWidth * static_cast<double>(line.content.size());
        const double alongX = std::cos(line.rotation);
        const double alongY = std::sin(line.rotation);
        for (const double along : {-line.anchor * length, (1 - line.anchor) * length}) {
            for (const double up : {-kvhost::c_descent * line.height, line.height}) {
                m_shape.bounds.Add({line.position.x + along * alongX - up * alongY,
                                    line.position.y + along * alongY + up * alongX, line.position.z});
            }
        }
    }
    void Dot(const kvhost::Point3& position) override {
        m_shape.dots.push_back(position);
        m_shape.bounds.Add(position);
    }

private:
    Shape& m_shape;
};

COLORREF ColorOfIndex(int index) {
    static constexpr COLORREF s_first[] = {
        theme::c_paperText,    RGB(0xFF, 0x5C, 0x57), RGB(0xF2, 0xD9, 0x4A), RGB(0x5F, 0xD3, 0x6C),
        RGB(0x4F, 0xD2, 0xE3), RGB(0x5B, 0x8D, 0xFF), RGB(0xE0, 0x6B, 0xE8), theme::c_paperText,
        RGB(0x8A, 0x94, 0xA0), RGB(0xB9, 0xC1, 0xCA),
    };
    if (index < static_cast<int>(std::size(s_first))) {
        return s_first[index];
    }
    // The others go round the colour circle, lighter and darker by their last digit.
    const int round = index / 10 - 1;
    const int shade = index % 10 / 2;
    const double hue = round * 15.0 / 60.0;
    const double value = 1.0 - shade * 0.14;
    const double saturation = index % 2 == 0 ? 0.85 : 0.45;
    const auto channel = [&](double offset) {
        const double place = std::fmod(hue + offset, 6.0);
        const double part = std::clamp(std::min(place, 4.0 - place), 0.0, 1.0);
        return static_cast<BYTE>(255 * value * (1.0 - saturation * part));
    };
    return RGB(channel(5), channel(3), channel(1));
}

bool IsShown(const kvhost::Entity& entity) {
    const auto* const layer = kvhost::Database::PeekAs<kvhost::Layer>(entity.LayerId());
    return !entity.IsErased() && entity.IsVisible() && (!layer || (layer->IsOn() && !layer->IsFrozen()));
}

Shape ShapeOf(const kvhost::Entity& entity) {
    Shape shape;
    shape.id = entity.Id();
    shape.color = ScreenColorOf(entity);
    shape.lineweight = entity.EffectiveLineweight();
    ShapeMaker maker(shape);
    entity.Draw(maker, kvhost::Transform());
    return shape;
}

}  // namespace

COLORREF ScreenColorOf(const kvhost::Entity& entity) {
    const kvhost::ColorValue color = entity.EffectiveColor();
    switch (color.method) {
        case kvhost::ColorValue::Method::Rgb:
            return RGB(color.red, color.green, color.blue);
        case kvhost::ColorValue::Method::Index:
            return ColorOfIndex(color.index);
        default:
            return theme::c_paperText;
    }
}

DisplayList::DisplayList(std::function<void()> onStale) : m_onStale(std::move(onStale)) {
}

DisplayList::~DisplayList() {
    SetDatabase(nullptr);
}

void DisplayList::SetDatabase(kvhost::Database* database) {
    if (m_database) {
        m_database->RemoveReactor(this);
    }
    m_database = database;
    if (m_database) {
        m_database->AddReactor(this);
    }
    m_allChanged = true;
}

const std::vector<Shape>& DisplayList::Shapes() {
    Update();
    return m_shapes;
}

const Shape* DisplayList::Find(KvDbObjectId id) {
    Update();
    const auto found = m_indexOfHandle.find(id.handle());
    return found == m_indexOfHandle.end() ? nullptr : &m_shapes[found->second];
}

kvhost::Bounds DisplayList::Extents() {
    kvhost::Bounds all;
    for (const Shape& shape : Shapes()) {
        if (!shape.bounds.IsEmpty()) {
            all.Add({shape.bounds.left, shape.bounds.bottom, 0});
            all.Add({shape.bounds.right, shape.bounds.top, 0});
        }
    }
    return all;
}

void DisplayList::ObjectAppended(const kvhost::Database&, const kvhost::Object& object) {
    Note(object, true);
}

void DisplayList::ObjectModified(const kvhost::Database&, const kvhost::Object& object) {
    Note(object, false);
}

void DisplayList::ObjectErased(const kvhost::Database&, const kvhost::Object& object, bool) {
    Note(object, true);
}

void DisplayList::DatabaseGone(const kvhost::Database&) {
    m_database = nullptr;
    m_allChanged = true;
}

// Only an entity of the list itself can change alone; parts of blocks and layers show in many places.
void DisplayList::Note(const kvhost::Object& object, bool listChanges) {
    TellStale();
    const std::uint64_t handle = object.Id().handle();
    if (listChanges || !dynamic_cast<const kvhost::Entity*>(&object) || !m_indexOfHandle.contains(handle)) {
        m_allChanged = true;
    } else {
        m_changed.insert(handle);
    }
}

void DisplayList::TellStale() {
    if (!m_allChanged && m_changed.empty()) {
        m_onStale();
    }
}

void DisplayList::Update() {
    if (m_allChanged) {
        Rebuild();
        return;
    }
    for (const std::uint64_t handle : m_changed) {
        const auto* const entity = kvhost::Database::PeekAs<kvhost::Entity>(m_database->IdOf(handle));
        if (!entity || !IsShown(*entity)) {
            Rebuild();
            return;
        }
        m_shapes[m_indexOfHandle[handle]] = ShapeOf(*entity);
    }
    m_changed.clear();
}

void DisplayList::Rebuild() {
    m_shapes.clear();
    m_indexOfHandle.clear();
    m_changed.clear();
    m_allChanged = false;
    if (!m_database) {
        return;
    }
    for (const KvDbObjectId id : m_database->ModelSpaceEntities()) {
        const auto* const entity = kvhost::Database::PeekAs<kvhost::Entity>(id);
        if (entity && IsShown(*entity)) {
            m_indexOfHandle[id.handle()] = m_shapes.size();
            m_shapes.push_back(ShapeOf(*entity));
        }
    }
}

}  // namespace kvpalette
