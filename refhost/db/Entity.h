#pragma once

#include <string>
#include <vector>

#include "host_sdk/KvDbFullSubentPath.h"
#include "refhost/db/Bounds.h"
#include "refhost/db/Object.h"
#include "refhost/db/Transform.h"

namespace kvhost {

class GeometrySink;

/// What every drawn object has: layer, colour, linetype and the texts that describe it.
class KVHOST_API Entity : public Object {
public:
    Entity();
    ~Entity() override;

    /// Null before the entity is appended, when no layer was set: the current layer is taken then.
    [[nodiscard]] KvDbObjectId LayerId() const { return m_layer; }
    /// eInvalidInput for what is no layer of the same database.
    Tolm::ErrorStatus SetLayerId(KvDbObjectId layer);
    [[nodiscard]] std::wstring LayerName() const;
    /// eKeyNotFound when the drawing has no layer of that name.
    Tolm::ErrorStatus SetLayerName(std::wstring_view name);

    [[nodiscard]] const ColorValue& Color() const { return m_color; }
    Tolm::ErrorStatus SetColor(const ColorValue& color);
    /// The colour shown: that of the layer where it says so.
    [[nodiscard]] ColorValue EffectiveColor() const;

    /// "ByLayer" when it is the layer's.
    [[nodiscard]] const std::wstring& Linetype() const { return m_linetype; }
    Tolm::ErrorStatus SetLinetype(std::wstring_view name);

    /// In hundredths of a millimetre, or one of the numbers of Lineweight.h that stand for something else.
    [[nodiscard]] std::int32_t Lineweight() const { return m_lineweight; }
    /// eInvalidInput for what is no lineweight.
    Tolm::ErrorStatus SetLineweight(std::int32_t weight);
    /// The weight that it is drawn with.
    [[nodiscard]] std::int32_t EffectiveLineweight() const;
    /// An entity that is not visible is not drawn, whatever its layer says.
    [[nodiscard]] bool IsVisible() const { return m_visible; }
    Tolm::ErrorStatus SetVisible(bool visible) { return Change(m_visible, visible); }

    [[nodiscard]] const std::wstring& Description() const { return m_description; }
    Tolm::ErrorStatus SetDescription(std::wstring_view text) { return ChangeText(m_description, text); }
    [[nodiscard]] const std::wstring& Hyperlink() const { return m_hyperlink; }
    Tolm::ErrorStatus SetHyperlink(std::wstring_view text) { return ChangeText(m_hyperlink, text); }

    /// Shape of the entity, brought to its place by `transform`.
    virtual void Draw(GeometrySink& sink, const Transform& transform) const = 0;
    [[nodiscard]] Bounds GetBounds() const;

    // Highlight of parts, a state of the display and not of the drawing.
    [[nodiscard]] int HighlightCount(const KvDbFullSubentPath& path) const;
    [[nodiscard]] std::size_t HighlightedPathCount() const { return m_highlights.size(); }

    // Object
    [[nodiscard]] std::wstring Complaint() const override;

    // Bodies of the services that plug-ins call, with journal and faults.
    Tolm::ErrorStatus PushHighlightService(const KvDbFullSubentPath& path, int style);
    Tolm::ErrorStatus PopHighlightService(const KvDbFullSubentPath& path);

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    struct Highlight {
        KvDbFullSubentPath path;
        std::vector<int> styles;
    };
    friend class Database;

    KvDbObjectId m_layer;
    ColorValue m_color;
    std::wstring m_linetype;
    std::int32_t m_lineweight = -1;
    bool m_visible = true;
    std::wstring m_description;
    std::wstring m_hyperlink;
    std::vector<Highlight> m_highlights;
};

}  // namespace kvhost
