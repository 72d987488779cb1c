#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvconform {

/// One operation of an interface as its description tells it.
struct DescribedFunction {
    std::wstring name;
    DISPID id;
    INVOKEKIND kind;
};

[[nodiscard]] GUID IdOf(ITypeInfo& info);
[[nodiscard]] std::wstring NameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL);
[[nodiscard]] WORD MajorVersionOf(ITypeInfo& info);
/// True for the operations of IUnknown and IDispatch.
[[nodiscard]] bool IsOfTheBases(DISPID id);
/// The description's help text.
[[nodiscard]] std::wstring DescriptionOf(ITypeInfo& info);
/// The interface's own operations in the order of its slots.
[[nodiscard]] std::vector<DescribedFunction> FunctionsOf(ITypeInfo& info);
/// All operations that clients reach by id, inherited ones included, those of IDispatch itself not.
[[nodiscard]] std::vector<DescribedFunction> DispatchFunctionsOf(ITypeInfo& info);

}  // namespace kvconform
