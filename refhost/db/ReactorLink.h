#pragma once

#include "refhost/db/ObjectReactor.h"

class KvDbObjectReactor;

namespace kvhost {

/// Carries the changes of one object to a reactor of a plug-in. Owned by the object.
class ReactorLink final : public ObjectReactor {
public:
    ReactorLink(const Object& object, KvDbObjectReactor& reactor);
    ReactorLink(const ReactorLink&) = delete;
    ReactorLink& operator=(const ReactorLink&) = delete;
    ~ReactorLink();

    /// Ends the links to a reactor that dies attached.
    static void EndAllTo(const KvDbObjectReactor* reactor);

    [[nodiscard]] bool Leads(const KvDbObjectReactor* reactor) const { return &m_reactor == reactor; }

    // ObjectReactor
    void OpenedForModify(const Object& object) override;
    void Modified(const Object& object) override;
    void PartModified(const Object& object, const Object& part) override;
    void Undone(const Object& object) override;
    void Erased(const Object& object, bool erased) override;
    void Gone(const Object& object) override;

private:
    const Object& m_object;
    KvDbObjectReactor& m_reactor;  // the plug-in's
};

}  // namespace kvhost
