#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"

namespace kvhost {

/// Hears when an object is asked to bring its picture in line with its properties. Detach before it dies.
class RedrawObserver {
public:
    virtual void ObjectRedrawn(KvDbObjectId id) = 0;

protected:
    ~RedrawObserver() = default;
};

KVHOST_API void AddRedrawObserver(RedrawObserver* observer);
KVHOST_API void RemoveRedrawObserver(RedrawObserver* observer);
/// Redraws asked for since the program's start.
[[nodiscard]] KVHOST_API long RedrawCount();
/// Counts and tells the observers.
void NotifyRedrawn(KvDbObjectId id);

}  // namespace kvhost
