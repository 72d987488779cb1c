#include "refhost/db/Block.h"

#include "host_sdk/KvRxClass.h"
#include "refhost/db/Database.h"
#include "refhost/db/NameRules.h"

namespace kvhost {

Block::Block() = default;
Block::~Block() = default;

KvRxClass* Block::desc() {
    static KvRxClass s_class(L"KvDbBlockTableRecord", KvDbObject::desc());
    return &s_class;
}

Tolm::ErrorStatus Block::SetName(std::wstring_view name) {
    if (GetDatabase() != nullptr) {
        if (m_external || Id() == GetDatabase()->ModelSpaceId()) {
            return Tolm::eNotAllowed;
        }
        const KvDbObjectId other = GetDatabase()->BlockNamed(name);
        if (!other.isNull() && other != Id()) {
            return Tolm::eDuplicateKey;
        }
    }
    return IsSymbolName(name, m_external) ? Change(m_name, name) : Tolm::eInvalidInput;
}

void Block::VisitFields(FieldVisitor& visitor) {
    visitor.Text("name", m_name, L"");
    visitor.OptionalPoint("origin", m_origin, {});
    visitor.Text("description", m_description, L"");
    visitor.Flag("external", m_external, false);
}

std::wstring Block::Complaint() const {
    return IsSymbolName(m_name, m_external) ? std::wstring()
                                            : L"name: '" + m_name + L"' is no name for a block";
}

}  // namespace kvhost
