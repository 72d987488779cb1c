#pragma once

namespace kvhost {

class Journal;

/// What a service call looks at before it does any work: whether a journal or a fault switch is in force.
/// Host calls come on one thread only, so plain variables do.
struct Watch {
    static Journal* journal;
    static bool faults;
    static bool active;

    static void Update() { active = journal != nullptr || faults; }
};

}  // namespace kvhost
