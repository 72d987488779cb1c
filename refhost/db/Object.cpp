#include "refhost/db/Object.h"

#include <algorithm>

#include "refhost/db/Database.h"
#include "refhost/db/NameRules.h"
#include "refhost/db/ReactorLink.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

auto FindPair(auto& pairs, std::wstring_view name) {
    return std::find_if(pairs.begin(), pairs.end(), [&](const auto& pair) { return pair.first == name; });
}

/// A property as it is stored in the list of texts.
template <class Strings>
std::vector<std::wstring> AsList(const Strings& strings) {
    return {strings.begin(), strings.end()};
}

}  // namespace

Object::Object() = default;
Object::~Object() = default;

Object* Object::From(KvDbObject* object) {
    return dynamic_cast<Object*>(object);
}

const Object* Object::From(const KvDbObject* object) {
    return dynamic_cast<const Object*>(object);
}

Tolm::ErrorStatus Object::Open(KvDb::OpenMode mode) {
    switch (mode) {
        case KvDb::kForRead:
            if (m_writing) {
                return Tolm::eWasOpenForWrite;
            }
            ++m_readers;
            return Tolm::eOk;
        case KvDb::kForWrite:
            if (m_writing) {
                return Tolm::eWasOpenForWrite;
            }
            if (m_readers > 0) {
                return Tolm::eWasOpenForRead;
            }
            LeavePreview();
            m_writing = true;
            return Tolm::eOk;
        case KvDb::kForNotify:
            ++m_notified;
            return Tolm::eOk;
    }
    return Tolm::eInvalidInput;
}

void Object::LeavePreview() {
    if (m_database != nullptr) {
        m_database->Undo().Preview().TakeBack();
    }
}

Tolm::ErrorStatus Object::Close() {
    // An open for notification comes within the others, in a reactor, and so ends before them.
    if (m_notified > 0) {
        --m_notified;
        return Tolm::eOk;
    }
    if (m_writing) {
        m_writing = false;
        if (m_changed) {
            m_changed = false;
            m_database->NoteClosedAfterChange(*this);
        }
        return Tolm::eOk;
    }
    if (m_readers > 0) {
        --m_readers;
        return Tolm::eOk;
    }
    return Tolm::eNotOpenForRead;
}

Tolm::ErrorStatus Object::UpgradeOpen() {
    if (m_writing) {
        return Tolm::eWasOpenForWrite;
    }
    if (m_readers == 0) {
        return Tolm::eNotOpenForRead;
    }
    if (m_readers > 1) {
        return Tolm::eWasOpenForRead;
    }
    LeavePreview();
    m_readers = 0;
    m_writing = true;
    return Tolm::eOk;
}

Tolm::ErrorStatus Object::CloseService() {
    ServiceCall call(L"close", Id());
    // A release is done even when it is told to fail: nothing could undo the lock otherwise.
    const Tolm::ErrorStatus status = Close();
    return call.Returns(call.Fails() ? Tolm::eInvalidInput : status);
}

Tolm::ErrorStatus Object::UpgradeOpenService() {
    ServiceCall call(L"upgradeOpen", Id());
    return call.Returns(call.Fails() ? Tolm::eWasOpenForRead : UpgradeOpen());
}

bool Object::IsWatchedBy(const KvDbObjectReactor* reactor) const {
    return std::any_of(m_links.begin(), m_links.end(),
                       [&](const std::unique_ptr<ReactorLink>& link) { return link->Leads(reactor); });
}

Tolm::ErrorStatus Object::AddReactorService(KvDbObjectReactor* reactor) const {
    ServiceCall call(L"addReactor", Id());
    if (m_readers == 0 && !m_writing && m_notified == 0) {
        return call.Returns(Tolm::eNotOpenForRead);
    }
    if (call.Fails() || reactor == nullptr || IsWatchedBy(reactor)) {
        return call.Returns(Tolm::eInvalidInput);
    }
    m_links.push_back(std::make_unique<ReactorLink>(*this, *reactor));
    m_reactors.push_back(m_links.back().get());
    return call.Returns(Tolm::eOk);
}

Tolm::ErrorStatus Object::RemoveReactorService(KvDbObjectReactor* reactor) const {
    ServiceCall call(L"removeReactor", Id());
    if (m_readers == 0 && !m_writing && m_notified == 0) {
        return call.Returns(Tolm::eNotOpenForRead);
    }
    // Removed even when it is told to fail: the reactor is about to die.
    const bool wasAttached = EndLink(reactor);
    return call.Returns(call.Fails() || !wasAttached ? Tolm::eInvalidInput : Tolm::eOk);
}

bool Object::EndLink(const KvDbObjectReactor* reactor) const {
    const auto link = std::find_if(
        m_links.begin(), m_links.end(),
        [&](const std::unique_ptr<ReactorLink>& candidate) { return candidate->Leads(reactor); });
    if (link == m_links.end()) {
        return false;
    }
    std::erase(m_reactors, link->get());
    m_links.erase(link);
    return true;
}

Tolm::ErrorStatus Object::CanChange() const {
    return m_database == nullptr || m_writing ? Tolm::eOk : Tolm::eNotOpenForWrite;
}

Tolm::ErrorStatus Object::BeginChange() {
    const Tolm::ErrorStatus status = CanChange();
    if (status == Tolm::eOk && m_database != nullptr) {
        m_database->NoteBeforeChange(*this);
    }
    return status;
}

Tolm::ErrorStatus Object::ChangeText(std::wstring& field, std::wstring_view value) {
    return IsWellFormed(value) ? Change(field, value) : Tolm::eInvalidInput;
}

Tolm::ErrorStatus Object::ChangeNumber(double& field, double value) {
    return IsFinite(value) ? Change(field, value) : Tolm::eInvalidInput;
}

Tolm::ErrorStatus Object::ChangePoint(Point3& field, const Point3& value) {
    return IsFinite(value) ? Change(field, value) : Tolm::eInvalidInput;
}

Tolm::ErrorStatus Object::ChangePositive(double& field, double value) {
    return value > 0 ? ChangeNumber(field, value) : Tolm::eInvalidInput;
}

Tolm::ErrorStatus Object::Erase(bool erase) {
    Tolm::ErrorStatus status = CanChange();
    if (status != Tolm::eOk || erase == m_erased) {
        return status;
    }
    if (m_database == nullptr) {
        return Tolm::eNotInDatabase;
    }
    status = m_database->CheckErase(*this, erase);
    if (status != Tolm::eOk) {
        return status;
    }
    m_database->NoteBeforeChange(*this);
    m_erased = erase;
    m_database->EraseOwned(*this, erase);
    return Tolm::eOk;
}

const std::wstring* Object::CustomAttribute(std::wstring_view name) const {
    const auto found = FindPair(m_customAttributes, name);
    return found != m_customAttributes.end() ? &found->second : nullptr;
}

Tolm::ErrorStatus Object::SetCustomAttribute(std::wstring_view name, std::wstring_view text) {
    if (name.empty() || !IsWellFormed(name) || !IsWellFormed(text)) {
        return Tolm::eInvalidInput;
    }
    const auto found = FindPair(m_customAttributes, name);
    if (found != m_customAttributes.end()) {
        return Change(found->second, text);
    }
    const Tolm::ErrorStatus status = BeginChange();
    if (status == Tolm::eOk) {
        m_customAttributes.emplace_back(name, text);
    }
    return status;
}

Tolm::ErrorStatus Object::RemoveCustomAttribute(std::wstring_view name) {
    const auto found = FindPair(m_customAttributes, name);
    if (found == m_customAttributes.end()) {
        return Tolm::eKeyNotFound;
    }
    const Tolm::ErrorStatus status = BeginChange();
    if (status == Tolm::eOk) {
        m_customAttributes.erase(found);
    }
    return status;
}

bool Object::IsUnspecified(std::wstring_view property) const {
    return m_unspecified.find(property) != m_unspecified.end();
}

Tolm::ErrorStatus Object::SetUnspecified(std::wstring_view property, bool unspecified) {
    if (property.empty() || !IsWellFormed(property)) {
        return Tolm::eInvalidInput;
    }
    if (IsUnspecified(property) == unspecified) {
        return CanChange();
    }
    const Tolm::ErrorStatus status = BeginChange();
    if (status == Tolm::eOk) {
        if (unspecified) {
            m_unspecified.emplace(property);
        } else {
            m_unspecified.erase(m_unspecified.find(property));
        }
    }
    return status;
}

std::wstring Object::Expression(std::wstring_view property) const {
    const auto found = m_expressions.find(property);
    return found != m_expressions.end() ? found->second : std::wstring();
}

Tolm::ErrorStatus Object::SetExpression(std::wstring_view property, std::wstring_view expression) {
    if (property.empty() || !IsWellFormed(property) || !IsWellFormed(expression)) {
        return Tolm::eInvalidInput;
    }
    if (Expression(property) == expression) {
        return CanChange();
    }
    const Tolm::ErrorStatus status = BeginChange();
    if (status == Tolm::eOk) {
        if (expression.empty()) {
            m_expressions.erase(m_expressions.find(property));
        } else {
            m_expressions.insert_or_assign(std::wstring(property), std::wstring(expression));
        }
    }
    return status;
}

void Object::AddReactor(ObjectReactor* reactor) {
    if (reactor != nullptr && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end()) {
        m_reactors.push_back(reactor);
    }
}

void Object::RemoveReactor(ObjectReactor* reactor) {
    std::erase(m_reactors, reactor);
}

void Object::VisitAllFields(FieldVisitor& visitor) {
    VisitFields(visitor);
    visitor.Pairs("properties", m_customAttributes);
    std::vector<std::wstring> unspecified = AsList(m_unspecified);
    visitor.Texts("unspecified", unspecified);
    m_unspecified = {unspecified.begin(), unspecified.end()};
    TextPairs expressions(m_expressions.begin(), m_expressions.end());
    visitor.Pairs("expressions", expressions);
    m_expressions = {expressions.begin(), expressions.end()};
}

}  // namespace kvhost
