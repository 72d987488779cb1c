#pragma once

#include <memory>

#include "host_sdk/KvDbEntity.h"

/// Ends one open of a host object.
struct CloseHostObject {
    void operator()(KvDbObject* object) const;
};

/// A host object that this scope has open; null when the open failed.
template <class T>
using OpenHostObject = std::unique_ptr<T, CloseHostObject>;
using OpenEntity = OpenHostObject<KvDbEntity>;

[[nodiscard]] OpenEntity OpenEntityForRead(KvDbObjectId id);
