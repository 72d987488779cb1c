#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvconform {

struct NamedInterface {
    const char* name;
    const IID* id;
};

/// What every control answers.
[[nodiscard]] std::span<const NamedInterface> CommonInterfaces();
/// What some classes answer on top of that.
[[nodiscard]] std::span<const NamedInterface> FurtherInterfaces();
/// True when the list of the class table, "(IFirst, ISecond)", names the interface.
[[nodiscard]] bool IsListed(std::string_view list, std::string_view name);
/// All that a class with these further interfaces answers, IUnknown included.
[[nodiscard]] std::vector<NamedInterface> InterfacesOf(std::string_view list);

}  // namespace kvconform
