#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "host_sdk/Export.h"

namespace kvhost {

/// Value of an expression: a number or a text.
using ExpressionValue = std::variant<double, std::wstring>;
/// Value of a name in an expression; nothing for an unknown one.
using ExpressionNames = std::function<std::optional<ExpressionValue>(std::wstring_view name)>;

/// Evaluates numbers, texts in double quotes, names, + - * / with their usual ranks, & joining texts, signs
/// and parentheses. Nothing for what is no expression, divides by zero, or calculates with texts.
[[nodiscard]] KVHOST_API std::optional<ExpressionValue> EvaluateExpression(std::wstring_view text,
                                                                           const ExpressionNames& names);

/// A number as expressions join it to a text: the shortest form that reads back as the same.
[[nodiscard]] KVHOST_API std::wstring ExpressionText(const ExpressionValue& value);

}  // namespace kvhost
