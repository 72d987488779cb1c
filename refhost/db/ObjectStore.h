#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "refhost/db/FieldVisitor.h"
#include "refhost/db/Object.h"

namespace kvhost {

class Database;

/// Objects and stubs of one database. Slots never move and are never reused.
class ObjectStore {
public:
    struct Slot : KvDbStub {
        std::unique_ptr<Object> object;
        std::vector<KvDbStub*> owned;  // By rising handle.
    };

    explicit ObjectStore(Database& database) : m_database(database) {}
    ObjectStore(const ObjectStore&) = delete;
    ObjectStore& operator=(const ObjectStore&) = delete;
    ~ObjectStore();

    /// Stubs of destroyed databases are kept from now on, so that ids in the hands of plug-ins stay
    /// comparable; or those kept are freed.
    static void KeepRetiredStubs(bool keep);

    [[nodiscard]] KvDbStub* Find(std::uint64_t handle) const;
    /// The object of an id; null for ids that are not those of a living database.
    [[nodiscard]] static Object* ObjectOf(KvDbObjectId id);
    [[nodiscard]] static const std::vector<KvDbStub*>& OwnedBy(const KvDbStub* owner) {
        return static_cast<const Slot*>(owner)->owned;
    }
    [[nodiscard]] const std::deque<Slot>& Slots() const { return *m_slots; }

    /// Handle above all that were given.
    [[nodiscard]] std::uint64_t NextHandle() const { return m_nextHandle; }
    KvDbStub* Add(std::unique_ptr<Object> object, std::uint64_t handle, KvDbStub* owner);

    /// Record of that name among those that are not erased; null when there is none.
    [[nodiscard]] KvDbStub* FindNamed(SymbolKind kind, std::wstring_view name) const;
    /// To be called when names may have changed.
    void ForgetNames() { m_namesKnown = false; }

private:
    using Names = std::unordered_map<std::wstring, KvDbStub*>;

    void LearnNames() const;
    void LearnName(KvDbStub* stub) const;

    Database& m_database;
    std::unique_ptr<std::deque<Slot>> m_slots = std::make_unique<std::deque<Slot>>();
    std::unordered_map<std::uint64_t, KvDbStub*> m_byHandle;
    std::uint64_t m_nextHandle = 1;
    mutable Names m_layers;
    mutable Names m_blocks;
    mutable bool m_namesKnown = false;
};

}  // namespace kvhost
