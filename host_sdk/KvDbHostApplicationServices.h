#pragma once

#include "host_sdk/Export.h"

class KvDbDatabase;

/// What a host tells the database code that runs in it.
class KVHOST_API KvDbHostApplicationServices {
public:
    /// The database that new objects and settings go to, owned by its document; null when there is none.
    [[nodiscard]] virtual KvDbDatabase* workingDatabase() const = 0;

protected:
    ~KvDbHostApplicationServices() = default;
};

/// Null before the host has started.
[[nodiscard]] KVHOST_API KvDbHostApplicationServices* kvdbHostApplicationServices();
