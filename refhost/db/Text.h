#pragma once

#include "refhost/db/EntityFace.h"
#include "refhost/db/TextLine.h"

namespace kvhost {

/// A line of text.
class KVHOST_API Text final : public EntityFace<Text> {
public:
    Text();
    ~Text() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const std::wstring& Content() const { return m_content; }
    Tolm::ErrorStatus SetContent(std::wstring_view text) { return ChangeText(m_content, text); }
    [[nodiscard]] const Point3& Position() const { return m_position; }
    Tolm::ErrorStatus SetPosition(const Point3& point) { return ChangePoint(m_position, point); }
    /// Above zero.
    [[nodiscard]] double Height() const { return m_height; }
    Tolm::ErrorStatus SetHeight(double height) { return ChangePositive(m_height, height); }
    /// In radians.
    [[nodiscard]] double Rotation() const { return m_rotation; }
    Tolm::ErrorStatus SetRotation(double angle) { return ChangeNumber(m_rotation, angle); }
    [[nodiscard]] TextAlignment Alignment() const { return static_cast<TextAlignment>(m_alignment); }
    Tolm::ErrorStatus SetAlignment(TextAlignment alignment);
    [[nodiscard]] const std::wstring& StyleName() const { return m_styleName; }
    Tolm::ErrorStatus SetStyleName(std::wstring_view name);
    /// A secret that goes with the text (the code of a door, say), never shown in clear.
    [[nodiscard]] const std::wstring& Passcode() const { return m_passcode; }
    Tolm::ErrorStatus SetPasscode(std::wstring_view text) { return ChangeText(m_passcode, text); }

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Text"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    /// Share of the text's run before its position.
    [[nodiscard]] double Anchor() const;
    /// The point of the base line beside the position.
    [[nodiscard]] Point3 BaseLinePoint() const;

    std::wstring m_content;
    Point3 m_position;
    double m_height = 1;
    double m_rotation = 0;
    std::int32_t m_alignment = 0;
    std::wstring m_styleName = L"Standard";
    std::wstring m_passcode;
};

}  // namespace kvhost
