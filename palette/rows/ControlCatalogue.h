#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvpalette {

/// One control class of the module.
struct ControlClass {
    std::wstring name;
    CLSID classId;
};

/// The control classes, as the module's type library lists them.
class ControlCatalogue {
public:
    /// Fails when the module's type library is neither registered nor named by the program's manifest.
    [[nodiscard]] HRESULT Load();

    const std::vector<ControlClass>& Classes() const { return m_classes; }
    /// Null when there is no class of that name.
    const ControlClass* Find(std::wstring_view name) const;
    /// The class of another module, by the name under which it is registered. False when there is none.
    [[nodiscard]] static bool FindRegistered(const std::wstring& progId, ControlClass& result);

    /// Whether an object of the class can be made now.
    [[nodiscard]] static bool IsCreatable(const ControlClass& controlClass);

private:
    std::vector<ControlClass> m_classes;
};

/// A class id in its usual form, braces and capitals.
[[nodiscard]] std::wstring ClassIdText(const CLSID& classId);

}  // namespace kvpalette
