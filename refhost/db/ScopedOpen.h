#pragma once

#include "refhost/db/Database.h"

namespace kvhost {

/// Opens an object as `T` for a scope, without journal lines; a class other than `T` counts as
/// eNotThatKindOfClass.
template <class T>
class ScopedOpen {
public:
    explicit ScopedOpen(KvDbObjectId id, KvDb::OpenMode mode = KvDb::kForRead, bool openErased = false) {
        Object* object = nullptr;
        m_status = Database::Open(object, id, mode, openErased);
        m_object = dynamic_cast<T*>(object);
        if (object != nullptr && m_object == nullptr) {
            object->Close();
            m_status = Tolm::eNotThatKindOfClass;
        }
    }
    ScopedOpen(const ScopedOpen&) = delete;
    ScopedOpen& operator=(const ScopedOpen&) = delete;
    ~ScopedOpen() { Close(); }

    [[nodiscard]] Tolm::ErrorStatus Status() const { return m_status; }
    explicit operator bool() const { return m_object != nullptr; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }

    /// Closes before the end of the scope.
    void Close() {
        if (m_object != nullptr) {
            m_object->Close();
            m_object = nullptr;
        }
    }

private:
    Tolm::ErrorStatus m_status = Tolm::eOk;
    T* m_object = nullptr;
};

}  // namespace kvhost
