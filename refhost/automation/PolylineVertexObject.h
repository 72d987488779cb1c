#pragma once

#include <span>

#include "framework/com/ComObjectRoot.h"
#include "framework/com/InterfaceMap.h"
#include "host_sdk/ITransientObjectIdentity.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyDispatch.h"

namespace kvhost {

/// Automation object of one corner of a polyline: a part of a database object, known by its path.
class PolylineVertexObject : public fw::ComObjectRoot,
                             public PropertyDispatch,
                             public ITransientObjectIdentity,
                             private LiveObject {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    void Attach(KvDbObjectId polyline, std::size_t index);

    // ITransientObjectIdentity
    STDMETHODIMP GetFullSubentPath(KvDbFullSubentPath* path) override;
    STDMETHODIMP GetClassId(CLSID* classId) override;

protected:
    ~PolylineVertexObject() = default;

private:
    // PropertyDispatch
    [[nodiscard]] const PropertyTable& Table() const override;
    [[nodiscard]] std::wstring JournalName() const override;
    [[nodiscard]] Tolm::ErrorStatus Read(const PropertyDescription& property, fw::Variant& value) override;
    [[nodiscard]] Tolm::ErrorStatus Write(const PropertyDescription& property,
                                          const fw::Variant& value) override;

    KvDbObjectId m_polyline;
    std::size_t m_index = 0;
};

}  // namespace kvhost
