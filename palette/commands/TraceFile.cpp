#include "palette/commands/TraceFile.h"

#include <nlohmann/json.hpp>

#include "palette/commands/Console.h"

namespace kvpalette {

bool TraceFile::Open(const std::wstring& path) {
    m_file.Reset(::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
    m_journal.reset();
    if (m_file) {
        m_journal = std::make_unique<kvhost::Journal>();
    }
    return static_cast<bool>(m_file);
}

bool TraceFile::Write() {
    std::string lines;
    for (const kvhost::JournalEntry& entry : m_journal->Entries()) {
        const nlohmann::ordered_json line{{"name", ToUtf8(entry.name)},
                                          {"arguments", ToUtf8(entry.arguments)},
                                          {"result", ToUtf8(entry.result)}};
        lines += line.dump() + "\n";
    }
    m_journal->Clear();
    DWORD written = 0;
    return lines.empty() ||
           (::WriteFile(m_file.Get(), lines.data(), static_cast<DWORD>(lines.size()), &written, nullptr) &&
            written == lines.size());
}

}  // namespace kvpalette
