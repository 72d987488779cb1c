#pragma once

#include <optional>

#include "host_sdk/KvDbLayerTableRecord.h"
#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// A layer of the drawing.
class KVHOST_API Layer final : public ObjectFace<Layer, KvDbLayerTableRecord, Object> {
public:
    Layer();
    ~Layer() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const std::wstring& Name() const { return m_name; }
    /// eInvalidInput for a name that no symbol can have, eDuplicateKey for one that is taken (letter case
    /// apart), eNotAllowed for layer "0" and external layers.
    Tolm::ErrorStatus SetName(std::wstring_view name);
    [[nodiscard]] const ColorValue& Color() const { return m_color; }
    /// eInvalidInput for ByLayer and ByBlock.
    Tolm::ErrorStatus SetColor(const ColorValue& color);
    [[nodiscard]] bool IsOn() const { return m_on; }
    Tolm::ErrorStatus SetOn(bool on) { return Change(m_on, on); }
    [[nodiscard]] bool IsFrozen() const { return m_frozen; }
    Tolm::ErrorStatus SetFrozen(bool frozen) { return Change(m_frozen, frozen); }
    [[nodiscard]] bool IsLocked() const { return m_locked; }
    Tolm::ErrorStatus SetLocked(bool locked) { return Change(m_locked, locked); }
    /// The layer comes from another drawing that is only referred to.
    [[nodiscard]] bool IsExternal() const { return m_external; }
    Tolm::ErrorStatus SetExternal(bool external) { return Change(m_external, external); }
    [[nodiscard]] const std::wstring& Linetype() const { return m_linetype; }
    Tolm::ErrorStatus SetLinetype(std::wstring_view name) { return ChangeText(m_linetype, name); }
    [[nodiscard]] const std::wstring& Description() const { return m_description; }
    Tolm::ErrorStatus SetDescription(std::wstring_view text) { return ChangeText(m_description, text); }

    // What the layer looks like in single viewports, by their name (letter case apart).
    [[nodiscard]] bool HasOverrides(std::wstring_view viewport) const;
    [[nodiscard]] ColorValue ColorIn(std::wstring_view viewport) const;
    /// Nothing takes the override away. eInvalidInput for ByLayer and ByBlock, and for an empty name.
    Tolm::ErrorStatus SetOverrideColor(std::wstring_view viewport, const std::optional<ColorValue>& color);

    // KvDbSymbolTableRecord
    [[nodiscard]] Tolm::ErrorStatus getName(wchar_t*& name) const override;
    [[nodiscard]] bool isDependent() const override;
    // KvDbLayerTableRecord
    [[nodiscard]] bool isLocked() const override;
    [[nodiscard]] bool isFrozen() const override;
    [[nodiscard]] bool isOff() const override;
    [[nodiscard]] bool hasOverrides(KvDbObjectId viewport) const override;

    // Object
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Layer"; }
    [[nodiscard]] std::wstring Complaint() const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    friend class Database;

    std::wstring m_name;
    ColorValue m_color = ColorValue::OfIndex(7);
    bool m_on = true;
    bool m_frozen = false;
    bool m_locked = false;
    bool m_external = false;
    std::wstring m_linetype = L"Continuous";
    std::wstring m_description;
    TextPairs m_overrides;  // colour by viewport
};

}  // namespace kvhost
