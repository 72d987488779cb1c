#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "refhost/db/Database.h"

namespace kvhost {

/// Fills a new database with the objects of a file, at their handles and without undo record. Operations that
/// can fail give the reason, empty when all is well.
class DrawingBuilder {
public:
    DrawingBuilder();
    ~DrawingBuilder();

    [[nodiscard]] Database& GetDatabase() { return *m_database; }
    /// An object that every drawing has, or that was added.
    [[nodiscard]] static Object& At(KvDbObjectId id);

    /// Adds `object` with its fields; handle 0 gives it one above all others. A layer "0" is not added: its
    /// fields go to that of the drawing.
    [[nodiscard]] std::wstring Add(std::unique_ptr<Object> object, std::uint64_t handle, KvDbObjectId owner,
                                   KvDbObjectId& id);
    /// Handles below this one belong to the objects that every drawing has.
    static constexpr std::uint64_t c_firstHandle = 16;
    /// Higher ones are kept free, so that there is always a next one.
    static constexpr std::uint64_t c_lastHandle = 0xFFFFFFFFFFFFFFF;

    /// Reads a handle as files write it: hexadecimal, capital letters, no leading zero. 0 when it is none.
    [[nodiscard]] static std::uint64_t HandleOf(std::wstring_view text);

    /// The database, with all its objects.
    [[nodiscard]] std::unique_ptr<Database> Finish();

private:
    std::unique_ptr<Database> m_database;
    bool m_hasLayerZero = false;  // that of the file
};

/// Hexadecimal text of a handle.
[[nodiscard]] std::wstring HandleText(std::uint64_t handle);

}  // namespace kvhost
