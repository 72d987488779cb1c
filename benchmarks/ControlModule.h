#pragma once

#include <string>
#include <vector>

#include "framework/base/Handles.h"
#include "framework/com/ComPtr.h"

namespace kvbench {

/// A control class that the module offers.
struct ReadyClass {
    std::string name;
    fw::ComPtr<IClassFactory> factory;
};

/// The module beside the program, loaded as a component server.
class ControlModule {
public:
    ControlModule();

    [[nodiscard]] fw::ComPtr<IClassFactory> FactoryOf(REFCLSID classId) const;
    [[nodiscard]] std::vector<ReadyClass> ReadyClasses() const;

private:
    fw::UniqueModule m_module;
};

}  // namespace kvbench
