#include "refhost/testing/ServiceCall.h"

#include "refhost/testing/FaultState.h"
#include "refhost/testing/Journal.h"
#include "refhost/testing/Watch.h"

namespace kvhost {

Journal* Watch::journal = nullptr;
bool Watch::faults = false;
bool Watch::active = false;

bool ServiceCall::IsWatched() {
    return Watch::active;
}

void ServiceCall::Begin(const wchar_t* name, const std::wstring& arguments) {
    if (Journal* const journal = Journal::Attached()) {
        m_journal = journal;
        m_entry = journal->Write(name, arguments);
    }
    m_fails = CountCallForFaults(name);
}

void ServiceCall::End(const std::wstring& result) {
    // The journal of the call's beginning may have been detached by the call itself.
    if (Journal::Attached() == m_journal && m_journal != nullptr) {
        m_journal->SetResult(m_entry, result);
    }
}

}  // namespace kvhost
