#pragma once

#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// A named group of entities that block references show; the drawing's own contents are the block
/// "*Model_Space". It owns its entities.
class KVHOST_API Block final : public ObjectFace<Block, KvDbObject, Object> {
public:
    Block();
    ~Block() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const std::wstring& Name() const { return m_name; }
    /// As Layer::SetName; the model space keeps its name.
    Tolm::ErrorStatus SetName(std::wstring_view name);
    /// The point that comes to the position of a reference.
    [[nodiscard]] const Point3& Origin() const { return m_origin; }
    Tolm::ErrorStatus SetOrigin(const Point3& point) { return ChangePoint(m_origin, point); }
    [[nodiscard]] const std::wstring& Description() const { return m_description; }
    Tolm::ErrorStatus SetDescription(std::wstring_view text) { return ChangeText(m_description, text); }
    /// The block's contents are those of another drawing that is only referred to.
    [[nodiscard]] bool IsExternal() const { return m_external; }
    Tolm::ErrorStatus SetExternal(bool external) { return Change(m_external, external); }

    // Object
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Block"; }
    [[nodiscard]] std::wstring Complaint() const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    friend class Database;

    std::wstring m_name;
    Point3 m_origin;
    std::wstring m_description;
    bool m_external = false;
};

}  // namespace kvhost
