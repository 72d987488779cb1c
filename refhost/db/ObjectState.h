#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "refhost/db/Object.h"

namespace kvhost {

/// The whole state of an object as bytes: equal bytes mean equal states.
[[nodiscard]] std::string StateOf(const Object& object);
/// Appends the state with a mark of erasure that need not be the object's own.
void AppendState(const Object& object, bool erased, std::string& bytes);
/// Whether a state that StateOf gave says that the object is erased.
[[nodiscard]] bool IsErasedState(std::string_view state);
/// The fields part of a state.
[[nodiscard]] std::string_view FieldsOfState(std::string_view state);

/// A new object of the class that ClassName calls so; null when there is none. Tables and settings are not
/// among them: each drawing has its own.
[[nodiscard]] std::unique_ptr<Object> MakeObject(std::wstring_view className);

}  // namespace kvhost
