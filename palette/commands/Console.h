#pragma once

#include <string>
#include <string_view>

namespace kvpalette {

/// UTF-8 of a text; single surrogates become the replacement character.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);
/// False when the bytes are no UTF-8.
[[nodiscard]] bool FromUtf8(std::string_view bytes, std::wstring& text);

/// Write to the standard streams: UTF-8 into files and pipes, wide text to a console. What was written is
/// flushed.
void PrintText(std::wstring_view text);
void PrintError(std::wstring_view text);

/// Reads a UTF-8 text file; false when it is not there or no UTF-8.
[[nodiscard]] bool ReadTextFile(const std::wstring& path, std::wstring& text);

}  // namespace kvpalette
