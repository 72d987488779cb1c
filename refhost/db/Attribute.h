#pragma once

#include "host_sdk/KvDbAttribute.h"
#include "refhost/db/EntityFace.h"

namespace kvhost {

/// A named text of one block reference, its owner.
class KVHOST_API Attribute final : public EntityFace<Attribute, KvDbAttribute> {
public:
    Attribute();
    ~Attribute() override;
    [[nodiscard]] static KvRxClass* desc();

    /// Name of the attribute within its block reference.
    [[nodiscard]] const std::wstring& Tag() const { return m_tag; }
    /// eInvalidInput for an empty tag.
    Tolm::ErrorStatus SetTag(std::wstring_view tag);
    [[nodiscard]] const std::wstring& Prompt() const { return m_prompt; }
    Tolm::ErrorStatus SetPrompt(std::wstring_view text) { return ChangeText(m_prompt, text); }
    [[nodiscard]] const std::wstring& Value() const { return m_value; }
    Tolm::ErrorStatus SetValue(std::wstring_view text) { return ChangeText(m_value, text); }
    [[nodiscard]] const Point3& Position() const { return m_position; }
    Tolm::ErrorStatus SetPosition(const Point3& point) { return ChangePoint(m_position, point); }
    /// Above zero.
    [[nodiscard]] double Height() const { return m_height; }
    Tolm::ErrorStatus SetHeight(double height) { return ChangePositive(m_height, height); }
    /// In radians.
    [[nodiscard]] double Rotation() const { return m_rotation; }
    Tolm::ErrorStatus SetRotation(double angle) { return ChangeNumber(m_rotation, angle); }

    /// Its value is kept and edited, but not drawn.
    [[nodiscard]] bool IsInvisible() const { return m_invisible; }
    Tolm::ErrorStatus SetInvisible(bool invisible) { return Change(m_invisible, invisible); }

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Attribute"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    std::wstring m_tag;
    std::wstring m_prompt;
    std::wstring m_value;
    Point3 m_position;
    double m_height = 1;
    double m_rotation = 0;
    bool m_invisible = false;
};

}  // namespace kvhost
