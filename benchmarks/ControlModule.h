#pragma once

#include "framework/base/Handles.h"
#include "framework/com/ComPtr.h"

namespace kvbench {

/// The module beside the program, loaded as a component server.
class ControlModule {
public:
    ControlModule();

    [[nodiscard]] fw::ComPtr<IClassFactory> FactoryOf(REFCLSID classId) const;

private:
    fw::UniqueModule m_module;
};

}  // namespace kvbench
