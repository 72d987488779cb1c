#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvpalette {

/// Cuts a line of a batch file into words by the platform's rules for command lines: blanks part words,
/// quotation marks hold them together, a backslash before a quotation mark makes it a plain one. # at the
/// start of a word begins a remark. False when a quotation mark is not closed.
[[nodiscard]] bool SplitBatchLine(std::wstring_view line, std::vector<std::wstring>& words);

}  // namespace kvpalette
