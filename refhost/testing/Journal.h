#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host_sdk/Export.h"

namespace kvhost {

/// One line of the journal: a service call or an event, its arguments and its result as text.
struct JournalEntry {
    std::wstring name;
    std::wstring arguments;
    std::wstring result;

    /// Name and arguments with one blank between, the form that tests compare.
    [[nodiscard]] KVHOST_API std::wstring Line() const;
};

/// Ordered record of host calls and events. At most one is attached at a time; nothing is recorded without
/// one.
class KVHOST_API Journal {
public:
    Journal();
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// The attached journal, null when there is none.
    [[nodiscard]] static Journal* Attached();

    /// Appends an entry and returns its index, by which the result can be added later.
    std::size_t Write(std::wstring_view name, std::wstring_view arguments = {},
                      std::wstring_view result = {});
    void SetResult(std::size_t index, std::wstring_view result);

    [[nodiscard]] const std::vector<JournalEntry>& Entries() const { return m_entries; }
    void Clear() { m_entries.clear(); }

private:
    std::vector<JournalEntry> m_entries;
    Journal* m_previous = nullptr;
};

}  // namespace kvhost
