#pragma once

#include "framework/base/WindowsApi.h"

class CComModule;

namespace fw {

/// Base of every class that CComObject makes an object of. The class adds its interfaces as further bases and
///   static std::span<const fw::InterfaceEntry> Interfaces();
/// with one static array whose first entry is the identity, and may hide FinalConstruct and FinalRelease. A
/// class that inherits Interfaces has its owner as the first base, since the entries start from the address
/// of the object.
class ComObjectRoot {
public:
    /// The object's identity, without a reference of its own.
    virtual IUnknown* GetUnknown() noexcept = 0;
    /// The module whose lock the object holds; null for an object that holds none.
    virtual CComModule* GetModule() const noexcept = 0;

protected:
    /// Runs when the object is complete. A failure destroys the object and goes to the creator.
    HRESULT FinalConstruct() { return S_OK; }
    /// Runs when the last reference has gone; the object may still be asked and referenced here.
    void FinalRelease() {}

    ~ComObjectRoot() = default;
};

}  // namespace fw
