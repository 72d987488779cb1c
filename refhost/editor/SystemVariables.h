#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host_sdk/Export.h"

namespace kvhost {

/// Value of a system variable.
using VariableValue = std::variant<int, double, std::wstring>;

/// The system variables: some the session's, some the working drawing's, some read-only.
class KVHOST_API SystemVariables {
public:
    SystemVariables();
    SystemVariables(const SystemVariables&) = delete;
    SystemVariables& operator=(const SystemVariables&) = delete;
    ~SystemVariables();

    enum class Outcome { Done, Unknown, ReadOnly, WrongType, OutOfRange };

    [[nodiscard]] Outcome Get(std::wstring_view name, VariableValue& value) const;
    /// An integer is taken for a real variable.
    Outcome Set(std::wstring_view name, const VariableValue& value);
    /// As Set, from the text of a user: a number is read for a numeric variable.
    Outcome SetText(std::wstring_view name, std::wstring_view text);
    /// Names in alphabetical order.
    [[nodiscard]] std::vector<std::wstring> Names() const;
    /// Message for the user.
    [[nodiscard]] static std::wstring Explain(std::wstring_view name, Outcome outcome);

    /// Value of an integer variable of the session; 0 when it is none.
    [[nodiscard]] int Integer(std::wstring_view name) const;

private:
    std::map<std::wstring, VariableValue, std::less<>> m_sessionValues;
};

}  // namespace kvhost
