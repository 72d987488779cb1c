#pragma once

#include "core/DispatchIds.h"
#include "framework/com/ComPtr.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"

/// One entry of a control's selection, held while it is read or written: host calls may replace the
/// selection.
struct SelectionEntry {
    fw::ComPtr<IDispatch> object;
    fw::ComPtr<IUnknown> dynamicProperty;
    long dispid = 0;

    [[nodiscard]] bool IsDynamic() const { return dispid == DISPID_DYNAMIC; }
};

/// The two forms of a dynamic property; the one by object is preferred.
struct DynamicForms {
    explicit DynamicForms(IUnknown* dynamicProperty)
        : byObject(fw::QueryFrom<IDynamicPropertyByObject>(dynamicProperty)),
          byId(fw::QueryFrom<IDynamicProperty>(dynamicProperty)) {}

    [[nodiscard]] bool IsMissing() const { return !byObject && !byId; }

    fw::ComPtr<IDynamicPropertyByObject> byObject;
    fw::ComPtr<IDynamicProperty> byId;
};
