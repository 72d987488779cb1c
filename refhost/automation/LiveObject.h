#pragma once

#include "host_sdk/Export.h"

namespace kvhost {

/// Counts the host's automation objects that somebody still holds.
class KVHOST_API LiveObject {
public:
    [[nodiscard]] static long Count();

    LiveObject(const LiveObject&) = delete;
    LiveObject& operator=(const LiveObject&) = delete;

protected:
    LiveObject();
    ~LiveObject();
};

}  // namespace kvhost
