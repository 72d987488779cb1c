#include "refhost/db/Dictionary.h"

#include "host_sdk/KvRxClass.h"
#include "refhost/db/Database.h"
#include "refhost/db/NameRules.h"

namespace kvhost {

Dictionary::Dictionary() = default;
Dictionary::~Dictionary() = default;

KvRxClass* Dictionary::desc() {
    static KvRxClass s_class(L"KvDbDictionary", KvDbObject::desc());
    return &s_class;
}

Tolm::ErrorStatus Dictionary::SetName(std::wstring_view name) {
    if (name.empty()) {
        return Tolm::eInvalidInput;
    }
    if (GetDatabase() != nullptr) {
        const Dictionary* const owner = Database::PeekAs<Dictionary>(OwnerId());
        if (owner == nullptr) {
            return Tolm::eNotAllowed;
        }
        const KvDbObjectId other = owner->At(name);
        if (!other.isNull() && other != Id()) {
            return Tolm::eDuplicateKey;
        }
    }
    return ChangeText(m_name, name);
}

KvDbObjectId Dictionary::At(std::wstring_view name) const {
    if (GetDatabase() == nullptr) {
        return {};
    }
    for (const KvDbObjectId id : GetDatabase()->OwnedBy(Id())) {
        const Dictionary* const entry = Database::PeekAs<Dictionary>(id);
        if (entry != nullptr && SameName(entry->Name(), name)) {
            return id;
        }
    }
    return {};
}

void Dictionary::VisitFields(FieldVisitor& visitor) {
    visitor.Text("name", m_name, L"");
}

std::wstring Dictionary::Complaint() const {
    return m_name.empty() ? L"name: a name is needed" : std::wstring();
}

}  // namespace kvhost
