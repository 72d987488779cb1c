#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvRxObject.h"

/// Run-time class record: a name and the record of the parent class, both living as long as the host.
class KVHOST_API KvRxClass final : public KvRxObject {
public:
    KvRxClass(const wchar_t* name, const KvRxClass* parent);

    [[nodiscard]] KvRxClass* isA() const override;
    [[nodiscard]] const wchar_t* name() const;
    [[nodiscard]] const KvRxClass* parent() const;
    /// True for the class itself and for every class above it.
    [[nodiscard]] bool isDerivedFrom(const KvRxClass* other) const;

    [[nodiscard]] static KvRxClass* desc();

private:
    const wchar_t* m_name;
    const KvRxClass* m_parent;
};
