#pragma once

#include "refhost/testing/Journal.h"
#include "refhost/testing/JournalText.h"

namespace kvtest {

/// Writes what a test's own object was asked to the attached journal, between the host's lines.
template <class... Arguments>
void Note(const wchar_t* name, const Arguments&... arguments) {
    if (kvhost::Journal* const journal = kvhost::Journal::Attached()) {
        journal->Write(name, kvhost::JoinAsText(arguments...));
    }
}

}  // namespace kvtest
