#pragma once

#include "host_sdk/KvDbObject.h"

/// Deletes an object that no database has yet; nothing for others.
KVHOST_API void kvdbDeleteObject(KvDbObject* object);

/// An object as `T`, open for the scope of this pointer. An object that it was given and that has no id yet
/// is deleted in place of closing.
template <class T>
class KvDbObjectPointer {
public:
    KvDbObjectPointer() = default;
    explicit KvDbObjectPointer(KvDbObjectId id, KvDb::OpenMode mode = KvDb::kForRead,
                               bool openErased = false) {
        KvDbObject* object = nullptr;
        m_status = kvdbOpenKvDbObject(object, id, mode, T::desc(), openErased);
        m_object = static_cast<T*>(object);
    }
    KvDbObjectPointer(const KvDbObjectPointer&) = delete;
    KvDbObjectPointer& operator=(const KvDbObjectPointer&) = delete;
    ~KvDbObjectPointer() { Reset(); }

    /// Why there is no object; eOk while there is one.
    [[nodiscard]] Tolm::ErrorStatus openStatus() const { return m_status; }
    [[nodiscard]] T* object() const { return m_object; }
    T* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

    /// Takes over an open object, or one that no database has yet.
    void acquire(T* object) {
        Reset();
        m_object = object;
        m_status = object != nullptr ? Tolm::eOk : Tolm::eNullObjectId;
    }

private:
    void Reset() {
        if (m_object == nullptr) {
            return;
        }
        if (m_object->objectId().isNull()) {
            kvdbDeleteObject(m_object);
        } else {
            static_cast<void>(m_object->close());  // an open that was given is always given back
        }
        m_object = nullptr;
        m_status = Tolm::eNullObjectId;
    }

    T* m_object = nullptr;  // the host's, lent to us while it is open
    Tolm::ErrorStatus m_status = Tolm::eNullObjectId;
};
