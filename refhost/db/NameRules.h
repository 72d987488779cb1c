#pragma once

#include <string>
#include <string_view>

namespace kvhost {

// Rules of texts and names in drawings.

/// Form in which names compare: letter case apart, the same in every locale.
[[nodiscard]] std::wstring FoldName(std::wstring_view name);
[[nodiscard]] bool SameName(std::wstring_view left, std::wstring_view right);

/// Whether layers and blocks can have the name: 1 to 255 units, no control characters, none of <>/\":;?*|,=`
/// External ones contain the bar between drawing and name.
[[nodiscard]] bool IsSymbolName(std::wstring_view name, bool external);
/// The name with an underscore for each unit that it can't have.
[[nodiscard]] std::wstring MakeSymbolName(std::wstring_view text);

/// Well-formed UTF-16: surrogates in pairs only, so that the text can be saved.
[[nodiscard]] bool IsWellFormed(std::wstring_view text);

/// UTF-8 of a well-formed text.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);
/// Text of valid UTF-8.
[[nodiscard]] std::wstring FromUtf8(std::string_view utf8);

}  // namespace kvhost
