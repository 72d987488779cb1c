#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host_sdk/KvDbObject.h"
#include "refhost/db/FieldVisitor.h"

namespace kvhost {

class Database;
class ObjectReactor;
class ReactorLink;

/// What every object of a database has, whatever its class: identity, open state, change record and the state
/// of its named properties. The concrete class joins it with the host interface that plug-ins see
/// (ObjectFace).
///
/// Setters answer eNotOpenForWrite unless the object is open for write or not in a database yet,
/// eInvalidInput for a value that the object can't have, and change nothing then. They never ask for layers:
/// see Database::CanWrite.
class KVHOST_API Object {
public:
    Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

    /// The object behind the host interface; null for null.
    [[nodiscard]] static Object* From(KvDbObject* object);
    [[nodiscard]] static const Object* From(const KvDbObject* object);
    /// The host interface of this object.
    [[nodiscard]] virtual KvDbObject* DbObject() = 0;
    [[nodiscard]] virtual KvRxClass* RuntimeClass() const = 0;
    /// Name of the class in drawings and on the command line, as "Circle".
    [[nodiscard]] virtual const wchar_t* ClassName() const = 0;

    [[nodiscard]] KvDbObjectId Id() const { return KvDbObjectId(m_stub); }
    [[nodiscard]] KvDbObjectId OwnerId() const { return KvDbObjectId(m_owner); }
    [[nodiscard]] bool IsErased() const { return m_erased; }
    /// Null before the object is appended.
    [[nodiscard]] Database* GetDatabase() const { return m_database; }

    [[nodiscard]] bool IsOpenForRead() const { return m_readers > 0; }
    [[nodiscard]] bool IsOpenForWrite() const { return m_writing; }
    Tolm::ErrorStatus Close();
    Tolm::ErrorStatus UpgradeOpen();

    /// Erases the object and those that it owns, or brings them back. Needs the object open for write.
    Tolm::ErrorStatus Erase(bool erase = true);

    // Texts that the drawing's maker attached to the object, in their order. Names compare exactly.
    [[nodiscard]] const TextPairs& CustomAttributes() const { return m_customAttributes; }
    /// Null when there is none of that name.
    [[nodiscard]] const std::wstring* CustomAttribute(std::wstring_view name) const;
    /// Changes the attribute or adds it at the end.
    Tolm::ErrorStatus SetCustomAttribute(std::wstring_view name, std::wstring_view text);
    /// eKeyNotFound when there is none.
    Tolm::ErrorStatus RemoveCustomAttribute(std::wstring_view name);

    // State of named properties beside their values; which properties have it is the automation layer's
    // business.
    [[nodiscard]] bool IsUnspecified(std::wstring_view property) const;
    Tolm::ErrorStatus SetUnspecified(std::wstring_view property, bool unspecified);
    /// Empty when the property has no expression.
    [[nodiscard]] std::wstring Expression(std::wstring_view property) const;
    /// An empty text takes the expression away.
    Tolm::ErrorStatus SetExpression(std::wstring_view property, std::wstring_view expression);

    void AddReactor(ObjectReactor* reactor);
    void RemoveReactor(ObjectReactor* reactor);
    [[nodiscard]] bool IsWatchedBy(const KvDbObjectReactor* reactor) const;
    /// False when the reactor is not attached.
    bool EndLink(const KvDbObjectReactor* reactor) const;

    /// Shows every stored field; see FieldVisitor.
    void VisitAllFields(FieldVisitor& visitor);
    /// Why the fields, as read from a file, can't be: empty when they can.
    [[nodiscard]] virtual std::wstring Complaint() const { return {}; }

    // Bodies of the services that plug-ins call, with journal and faults.
    Tolm::ErrorStatus CloseService();
    Tolm::ErrorStatus UpgradeOpenService();
    Tolm::ErrorStatus AddReactorService(KvDbObjectReactor* reactor) const;
    Tolm::ErrorStatus RemoveReactorService(KvDbObjectReactor* reactor) const;

protected:
    /// Shows the stored fields of the class; overrides call the base first.
    virtual void VisitFields(FieldVisitor& /*visitor*/) {}

    /// Call before each change of a field; the fields may change only if it gives eOk.
    [[nodiscard]] Tolm::ErrorStatus BeginChange();

    template <class Field, class Value>
    Tolm::ErrorStatus Change(Field& field, const Value& value) {
        const Tolm::ErrorStatus status = field == value ? CanChange() : BeginChange();
        if (status == Tolm::eOk && !(field == value)) {
            field = value;
        }
        return status;
    }
    /// As Change, for texts that must be well-formed UTF-16.
    Tolm::ErrorStatus ChangeText(std::wstring& field, std::wstring_view value);
    Tolm::ErrorStatus ChangeNumber(double& field, double value);
    Tolm::ErrorStatus ChangePoint(Point3& field, const Point3& value);
    /// As ChangeNumber, for lengths that must be above zero.
    Tolm::ErrorStatus ChangePositive(double& field, double value);
    [[nodiscard]] Tolm::ErrorStatus CanChange() const;

private:
    friend class ChangeSet;
    friend class Database;
    friend class DrawingBuilder;
    friend class ObjectStore;
    friend class RecordReader;

    [[nodiscard]] Tolm::ErrorStatus Open(KvDb::OpenMode mode);
    /// A write that is none of the preview's begins with what the drawing really holds.
    void LeavePreview();

    /// Where a record of changes keeps the object's state.
    struct ChangePlace {
        std::uint64_t record = 0;
        std::size_t index = 0;
    };

    KvDbStub* m_stub = nullptr;
    KvDbStub* m_owner = nullptr;
    Database* m_database = nullptr;
    int m_readers = 0;
    int m_notified = 0;
    bool m_writing = false;
    bool m_changed = false;
    bool m_erased = false;
    bool m_erasedBefore = false;
    std::array<ChangePlace, 2> m_changePlaces;  // by ChangeSet::Kind
    TextPairs m_customAttributes;
    std::set<std::wstring, std::less<>> m_unspecified;
    std::map<std::wstring, std::wstring, std::less<>> m_expressions;
    // Reactors are no part of the object's state.
    mutable std::vector<ObjectReactor*> m_reactors;
    mutable std::vector<std::unique_ptr<ReactorLink>> m_links;  // each is among m_reactors
};

}  // namespace kvhost
