#pragma once

#include "core/DispatchIds.h"
#include "framework/com/ComPtr.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"

/// One entry of a control's selection. Its user sees to it that the objects live as long.
struct SelectionEntry {
    IDispatch* object = nullptr;
    IUnknown* dynamicProperty = nullptr;
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
