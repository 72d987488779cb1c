#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"

/// Global state of the database that a module may read. A working set (edit of a block in place) is active
/// while both of its fields are set.
struct KvDbGlobals {
    int workingSetDepth = 0;
    KvDbStub* workingSetOwner = nullptr;
};

/// Globals of the working database; null while no database works.
[[nodiscard]] KVHOST_API const KvDbGlobals* kvdbWorkingGlobals();
/// Globals that hold while there are no working ones; never null.
[[nodiscard]] KVHOST_API const KvDbGlobals* kvdbDefaultGlobals();
