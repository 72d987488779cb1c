#pragma once

#include <span>
#include <string>
#include <vector>

#include "framework/com/ComObjectRoot.h"
#include "framework/com/ComPtr.h"
#include "framework/com/InterfaceMap.h"
#include "host_sdk/Export.h"
#include "host_sdk/IHostApplication.h"

namespace kvhost {

/// The application's automation object. Macros are journalled and kept; the host has no macro language of its
/// own, so that running one has no further effect.
class ApplicationObject : public fw::ComObjectRoot, public IHostApplication {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    // IHostApplication
    STDMETHODIMP RunMacro(BSTR macro) override;

protected:
    ~ApplicationObject() = default;
};

/// A new application object with one reference; the host keeps one for as long as it runs.
[[nodiscard]] KVHOST_API fw::ComPtr<IHostApplication> MakeApplicationObject();
/// Macros that were run since the last call, in their order.
[[nodiscard]] KVHOST_API std::vector<std::wstring> TakeRunMacros();

}  // namespace kvhost
