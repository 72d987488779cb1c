#pragma once

#include <string>
#include <vector>

#include "framework/com/ComPtr.h"
#include "framework/com/Variant.h"

namespace kvtest {

/// Makes type information as a type library's compiler does, member by member, for scripted objects to hand
/// out.
class TypeInfoBuilder {
public:
    TypeInfoBuilder();

    struct Constant {
        const wchar_t* name;
        fw::Variant value;
    };
    /// An enumeration of the library.
    [[nodiscard]] fw::ComPtr<ITypeInfo> MakeEnumeration(const wchar_t* name,
                                                        const std::vector<Constant>& constants);
    /// A record, whose members are no constants.
    [[nodiscard]] fw::ComPtr<ITypeInfo> MakeRecord(const wchar_t* name,
                                                   const std::vector<const wchar_t*>& members);

    /// Members of the dispatch interface, in the order of the calls. A null type is a plain VT_I4.
    TypeInfoBuilder& AddVariable(DISPID dispid, const wchar_t* name, ITypeInfo* type);
    TypeInfoBuilder& AddGetter(DISPID dispid, const wchar_t* name, ITypeInfo* type);
    TypeInfoBuilder& AddSetter(DISPID dispid, const wchar_t* name, ITypeInfo* type);
    /// Ends the interface; nothing more can be added to it.
    [[nodiscard]] fw::ComPtr<ITypeInfo> Finish();

private:
    TYPEDESC Describe(ITypeInfo* type);

    fw::ComPtr<ICreateTypeLib2> m_library;
    fw::ComPtr<ICreateTypeInfo> m_interface;
    UINT m_variables = 0;
    UINT m_functions = 0;
};

}  // namespace kvtest
