#pragma once

#include "host_sdk/Export.h"

/// Typed reading of the host's system variables. Names compare without regard to case.
class KVHOST_API KvRxVariablesDictionary {
public:
    KvRxVariablesDictionary() = delete;

    /// `otherwise` for a variable that is unknown or can't be read as a truth value.
    [[nodiscard]] static bool getBool(const wchar_t* name, bool otherwise);
};
