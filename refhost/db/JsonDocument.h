#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace kvhost {

/// JSON whose members keep their order.
using Json = nlohmann::ordered_json;

/// Way from the top of a document to one of its values, for messages.
struct JsonPath {
    const JsonPath* parent = nullptr;
    const char* member = nullptr;  // Null for an element of an array.
    std::size_t index = 0;

    [[nodiscard]] JsonPath Member(const char* name) const { return {this, name, 0}; }
    [[nodiscard]] JsonPath Element(std::size_t position) const { return {this, nullptr, position}; }
    /// As "/entities/3/radius"; "/" for the top.
    [[nodiscard]] std::wstring Text() const;
};

/// Reads a whole document of UTF-8, with or without byte order mark. False with "line 3, column 7: ..." in
/// `error`.
[[nodiscard]] bool ParseJson(std::string_view content, Json& document, std::wstring& error);

/// Null when the object has no such member.
[[nodiscard]] const Json* FindMember(const Json& object, const char* name);

}  // namespace kvhost
