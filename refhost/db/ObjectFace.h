#pragma once

#include "host_sdk/KvDbObject.h"
#include "refhost/db/Object.h"

namespace kvhost {

/// Joins the host interface `Sdk` that plug-ins see with the body that holds the data. `Concrete` is the
/// class that derives from this one; its static `desc` is its run-time class.
template <class Concrete, class Sdk, class Body>
class ObjectFace : public Sdk, public Body {
public:
    // KvRxObject
    [[nodiscard]] KvRxClass* isA() const override { return Concrete::desc(); }

    // KvDbObject
    [[nodiscard]] KvDbObjectId objectId() const override { return Body::Id(); }
    [[nodiscard]] KvDbObjectId ownerId() const override { return Body::OwnerId(); }
    [[nodiscard]] bool isErased() const override { return Body::IsErased(); }
    Tolm::ErrorStatus close() override { return Body::CloseService(); }
    Tolm::ErrorStatus upgradeOpen() override { return Body::UpgradeOpenService(); }
    Tolm::ErrorStatus addReactor(KvDbObjectReactor* reactor) const override {
        return Body::AddReactorService(reactor);
    }
    Tolm::ErrorStatus removeReactor(KvDbObjectReactor* reactor) const override {
        return Body::RemoveReactorService(reactor);
    }

    // Object
    [[nodiscard]] KvDbObject* DbObject() override { return this; }
    [[nodiscard]] KvRxClass* RuntimeClass() const override { return Concrete::desc(); }
};

}  // namespace kvhost
