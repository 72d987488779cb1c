#pragma once

#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// A named node of the drawing's tree of named objects; it owns the nodes below it and keeps its data as
/// custom attributes.
class KVHOST_API Dictionary final : public ObjectFace<Dictionary, KvDbObject, Object> {
public:
    Dictionary();
    ~Dictionary() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const std::wstring& Name() const { return m_name; }
    /// eDuplicateKey when the owner has another of that name (letter case apart).
    Tolm::ErrorStatus SetName(std::wstring_view name);
    /// Null id when there is none of that name, letter case apart.
    [[nodiscard]] KvDbObjectId At(std::wstring_view name) const;

    // Object
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Dictionary"; }
    [[nodiscard]] std::wstring Complaint() const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    std::wstring m_name;
};

}  // namespace kvhost
