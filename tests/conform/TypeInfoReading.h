#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "framework/com/ComPtr.h"

namespace kvconform {

/// One operation of an interface as its description tells it.
struct DescribedFunction {
    std::wstring name;
    DISPID id;
    INVOKEKIND kind;
    int slot;                ///< its place in the table of the interface, from 0
    std::wstring signature;  ///< "(in VARIANT*, out retval long*)", with " -> void" for another than HRESULT
};

[[nodiscard]] GUID IdOf(ITypeInfo& info);
[[nodiscard]] std::wstring NameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL);
[[nodiscard]] WORD MajorVersionOf(ITypeInfo& info);
/// The description's help text.
[[nodiscard]] std::wstring DescriptionOf(ITypeInfo& info);
/// True for an interface that is called through its table and by id.
[[nodiscard]] bool IsDual(ITypeInfo& info);
/// The description of a dual interface as compiled clients see it; of another interface, the description
/// itself.
[[nodiscard]] fw::ComPtr<ITypeInfo> TableFaceOf(ITypeInfo& info);
/// The interface from which it is derived; null when it tells none.
[[nodiscard]] fw::ComPtr<ITypeInfo> BaseOf(ITypeInfo& info);
/// The operations that the description itself lists, in its order.
[[nodiscard]] std::vector<DescribedFunction> FunctionsOf(ITypeInfo& info);
/// All operations that clients reach by id, inherited ones included, those of IDispatch itself not.
[[nodiscard]] std::vector<DescribedFunction> DispatchFunctionsOf(ITypeInfo& info);

}  // namespace kvconform
