#include "refhost/testing/Journal.h"

#include "refhost/testing/Watch.h"

namespace kvhost {

std::wstring JournalEntry::Line() const {
    return arguments.empty() ? name : name + L' ' + arguments;
}

Journal::Journal() : m_previous(Watch::journal) {
    Watch::journal = this;
    Watch::Update();
}

Journal::~Journal() {
    Watch::journal = m_previous;
    Watch::Update();
}

Journal* Journal::Attached() {
    return Watch::journal;
}

std::size_t Journal::Write(std::wstring_view name, std::wstring_view arguments, std::wstring_view result) {
    m_entries.push_back({std::wstring(name), std::wstring(arguments), std::wstring(result)});
    return m_entries.size() - 1;
}

void Journal::SetResult(std::size_t index, std::wstring_view result) {
    // A call that cleared the journal on its way has no entry any more.
    if (index < m_entries.size()) {
        m_entries[index].result = result;
    }
}

}  // namespace kvhost
