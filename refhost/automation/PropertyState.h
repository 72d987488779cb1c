#pragma once

#include <functional>
#include <string_view>

#include "framework/base/WindowsApi.h"
#include "host_sdk/ErrorStatus.h"
#include "host_sdk/KvDbObjectId.h"
#include "refhost/automation/Expression.h"

namespace kvhost {

class Object;
struct PropertyDescription;

// State of properties beside their values, kept in the database object so that undo brings it back.
// Properties are named as in the property tables; dynamic ones have names of their own. All writes ask
// Database::CanWrite.

using ObjectWriter = std::function<Tolm::ErrorStatus(Object& object)>;
using ExpressionWriter = std::function<Tolm::ErrorStatus(Object& object, const ExpressionValue& value)>;

/// Opens the object for write, lets `write` change it and closes it: one step of undo outside any group.
[[nodiscard]] Tolm::ErrorStatus ChangeObject(KvDbObjectId id, const ObjectWriter& write);
/// Writes a value, which takes the unspecified state and an expression away.
[[nodiscard]] Tolm::ErrorStatus WritePlainValue(KvDbObjectId id, std::wstring_view property,
                                                const ObjectWriter& write);

[[nodiscard]] HRESULT ReadUnspecified(KvDbObjectId id, std::wstring_view property, VARIANT_BOOL* unspecified);
[[nodiscard]] Tolm::ErrorStatus WriteUnspecified(KvDbObjectId id, std::wstring_view property,
                                                 VARIANT_BOOL unspecified);

[[nodiscard]] HRESULT ReadExpression(KvDbObjectId id, std::wstring_view property, BSTR* expression);
/// Evaluates the expression, in which the object's properties and attributes are names, writes the value and
/// binds the property to it. An empty expression only takes the binding away. eInvalidInput for what can't be
/// evaluated; nothing is changed then.
[[nodiscard]] Tolm::ErrorStatus WriteExpression(KvDbObjectId id, std::wstring_view property,
                                                const wchar_t* expression, const ExpressionWriter& write);

/// Sets a table's property to an expression's value: texts take both kinds, numbers only numbers.
[[nodiscard]] Tolm::ErrorStatus SetFromExpression(Object& object, const PropertyDescription& property,
                                                  const ExpressionValue& value);

}  // namespace kvhost
