#pragma once

#include <cstdint>

class KvDbDatabase;

/// The host's record of a database object; it outlives the object, so ids stay comparable after an erase.
struct KvDbStub {
    KvDbDatabase* database;
    std::uint64_t handle;
    std::uint32_t flags;
};

/// Bit of KvDbStub::flags: the object belongs to the active working set.
inline constexpr std::uint32_t KVDB_STUB_IN_WORKING_SET = 0x80000;

/// Identifier of a database object; a value, null by default.
class KvDbObjectId {
public:
    KvDbObjectId() = default;
    explicit KvDbObjectId(KvDbStub* stub) : m_stub(stub) {}

    [[nodiscard]] bool isNull() const { return m_stub == nullptr; }
    /// Not null, and of a drawing that is still there.
    [[nodiscard]] bool isValid() const { return database() != nullptr; }
    [[nodiscard]] KvDbDatabase* database() const { return m_stub != nullptr ? m_stub->database : nullptr; }
    [[nodiscard]] std::uint64_t handle() const { return m_stub != nullptr ? m_stub->handle : 0; }
    [[nodiscard]] std::uint32_t stubFlags() const { return m_stub != nullptr ? m_stub->flags : 0; }
    [[nodiscard]] KvDbStub* stub() const { return m_stub; }

    friend bool operator==(KvDbObjectId, KvDbObjectId) = default;

private:
    KvDbStub* m_stub = nullptr;
};
