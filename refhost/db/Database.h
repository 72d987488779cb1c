#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host_sdk/KvDbDatabase.h"
#include "host_sdk/KvDbGlobals.h"
#include "host_sdk/KvDbObject.h"
#include "refhost/db/Object.h"
#include "refhost/db/UndoController.h"

namespace kvhost {

class DatabaseReactor;
class ObjectStore;
class Settings;

/// A drawing: owns its objects and keeps their records (stubs) for as long as it lives, erased objects
/// included.
class KVHOST_API Database final : public KvDbDatabase {
public:
    /// An empty drawing: tables, model space, layer "0", settings.
    Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    /// While on, ids of destroyed drawings stay valid as values (they name no database then); switching it
    /// off frees their records.
    static void KeepRetiredIds(bool keep);

    /// Null for null.
    [[nodiscard]] static Database* From(KvDbDatabase* database);

    // KvDbDatabase
    [[nodiscard]] static KvRxClass* desc();
    [[nodiscard]] KvRxClass* isA() const override;
    [[nodiscard]] KvDbUndoController* undoController() const override;
    [[nodiscard]] KvDbObjectId layerTableId() const override;

    /// Tells the drawings of a process apart; no two ever have the same.
    [[nodiscard]] long long SerialNumber() const { return m_serialNumber; }

    [[nodiscard]] UndoController& Undo() { return *m_undo; }
    [[nodiscard]] const UndoController& Undo() const { return *m_undo; }
    /// Whether plug-ins are given the undo controller; the host's own undo works in any case.
    void ShowUndoController(bool show) { m_showUndoController = show; }

    // The objects that every drawing has.
    [[nodiscard]] KvDbObjectId LayerTableId() const { return IdOf(c_layerTable); }
    [[nodiscard]] KvDbObjectId BlockTableId() const { return IdOf(c_blockTable); }
    [[nodiscard]] KvDbObjectId ModelSpaceId() const { return IdOf(c_modelSpace); }
    [[nodiscard]] KvDbObjectId NamedObjectsId() const { return IdOf(c_namedObjects); }
    [[nodiscard]] KvDbObjectId SettingsId() const { return IdOf(c_settings); }
    [[nodiscard]] const Settings& GetSettings() const;

    // Looking, without opening and without journal.
    /// Null id for a handle that no object of this drawing has or had.
    [[nodiscard]] KvDbObjectId IdOf(std::uint64_t handle) const;
    /// The object of an id, erased or not; null for a null id.
    [[nodiscard]] static const Object* Peek(KvDbObjectId id);
    /// Null also when the object is no `T`.
    template <class T>
    [[nodiscard]] static const T* PeekAs(KvDbObjectId id) {
        return dynamic_cast<const T*>(Peek(id));
    }
    /// What `owner` owns and is not erased, by rising handle: entities of a block, attributes of a block
    /// reference, records of a table.
    [[nodiscard]] std::vector<KvDbObjectId> OwnedBy(KvDbObjectId owner) const;
    /// The same with what is erased.
    [[nodiscard]] std::vector<KvDbObjectId> AllOwnedBy(KvDbObjectId owner) const;
    [[nodiscard]] std::vector<KvDbObjectId> ModelSpaceEntities() const { return OwnedBy(ModelSpaceId()); }
    /// Null id when there is none of that name, letter case apart.
    [[nodiscard]] KvDbObjectId LayerNamed(std::wstring_view name) const;
    [[nodiscard]] KvDbObjectId BlockNamed(std::wstring_view name) const;
    /// Viewports are the records of the dictionary "Viewports". Null id when there is none of that name.
    [[nodiscard]] KvDbObjectId ViewportNamed(std::wstring_view name) const;
    /// The viewport in which the drawing is worked on; null in the model without one.
    [[nodiscard]] KvDbObjectId CurrentViewport() const;
    /// Whether references within `block`, at any depth, or `block` itself are of `inner`.
    [[nodiscard]] static bool ContainsBlock(KvDbObjectId block, KvDbObjectId inner);
    /// Opens that were not closed, all objects together.
    [[nodiscard]] int OpenCount() const;

    // Opening, without journal: the body of kvdbOpenKvDbObject. ScopedOpen is the handy form.
    [[nodiscard]] static Tolm::ErrorStatus Open(Object*& object, KvDbObjectId id, KvDb::OpenMode mode,
                                                bool openErased = false);
    /// Whether a user's edit may change the object: eOnLockedLayer for an entity on a locked or external
    /// layer (also an attribute whose block reference lies on one), eNotAllowed for a record of an external
    /// drawing, eWasErased, eNullObjectId.
    [[nodiscard]] static Tolm::ErrorStatus CanWrite(KvDbObjectId id);

    // Changing.
    /// Gives the object a handle and an owner; it is closed afterwards. An entity without layer gets the
    /// current one. eInvalidInput when the owner can't own it, eDuplicateKey for a taken name.
    Tolm::ErrorStatus Append(std::unique_ptr<Object> object, KvDbObjectId owner, KvDbObjectId& id);
    Tolm::ErrorStatus AppendEntity(std::unique_ptr<Object> entity, KvDbObjectId& id) {
        return Append(std::move(entity), ModelSpaceId(), id);
    }
    Tolm::ErrorStatus AddLayer(std::wstring_view name, KvDbObjectId& id);
    Tolm::ErrorStatus AddBlock(std::wstring_view name, KvDbObjectId& id);
    Tolm::ErrorStatus AddViewport(std::wstring_view name, KvDbObjectId& id);

    void AddReactor(DatabaseReactor* reactor);
    void RemoveReactor(DatabaseReactor* reactor);

    // State of an edit of a block in place.
    [[nodiscard]] KvDbGlobals& Globals() { return m_globals; }
    [[nodiscard]] const KvDbGlobals& Globals() const { return m_globals; }
    /// Sets or clears the working-set flag of an id.
    static void SetInWorkingSet(KvDbObjectId id, bool inWorkingSet);

private:
    friend class ChangeSet;
    friend class DrawingBuilder;
    friend class Object;
    friend class ObjectStore;
    friend class SwapNotice;

    static constexpr std::uint64_t c_layerTable = 1;
    static constexpr std::uint64_t c_blockTable = 2;
    static constexpr std::uint64_t c_modelSpace = 3;
    static constexpr std::uint64_t c_namedObjects = 4;
    static constexpr std::uint64_t c_settings = 5;
    static constexpr std::uint64_t c_layerZero = 16;

    void MakeFixedObjects();
    void NoteBeforeChange(Object& object);
    void NoteClosedAfterChange(Object& object);
    /// Erases or brings back what the object owns; CheckErase has looked whether that goes.
    void EraseOwned(Object& object, bool erase);
    /// Marks as undo and readers do: without record and notice.
    void PutErased(Object& object, bool erased);
    void NotifyModified(Object& object);
    void NotifyUndone(Object& object);
    void NotifyErased(Object& object, bool erased);
    void NotifyOwnerModified(const Object& object);
    [[nodiscard]] Tolm::ErrorStatus CheckErase(const Object& object, bool erase) const;
    [[nodiscard]] Tolm::ErrorStatus CheckUnerase(const Object& object) const;
    /// Whether entities or the current layer need this layer or block.
    [[nodiscard]] bool IsUsed(const Object& object) const;
    [[nodiscard]] Tolm::ErrorStatus CheckAppend(const Object& object, KvDbObjectId owner) const;

    std::unique_ptr<ObjectStore> m_store;
    std::unique_ptr<UndoController> m_undo;
    std::vector<DatabaseReactor*> m_reactors;
    KvDbGlobals m_globals;
    long long m_serialNumber;
    bool m_showUndoController = true;
};

}  // namespace kvhost
