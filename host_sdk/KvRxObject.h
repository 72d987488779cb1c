#pragma once

#include "host_sdk/Export.h"

class KvRxClass;

/// Root of the host's run-time typed classes. Objects are owned by the host.
class KVHOST_API KvRxObject {
public:
    /// Most derived run-time class of the object; never null.
    [[nodiscard]] virtual KvRxClass* isA() const = 0;

    [[nodiscard]] bool isKindOf(const KvRxClass* runtimeClass) const;
    [[nodiscard]] static KvRxClass* desc();

protected:
    ~KvRxObject() = default;
};

/// Null when `object` is null or is no `T`.
template <class T>
[[nodiscard]] T* kvrxCast(KvRxObject* object) {
    return object != nullptr && object->isKindOf(T::desc()) ? static_cast<T*>(object) : nullptr;
}
