#pragma once

#include <string>
#include <vector>

namespace kvpalette {

/// A table with aligned columns for reading on a screen.
class TextTable {
public:
    explicit TextTable(std::vector<std::wstring> heading);

    /// As many cells as the heading has. Line breaks and tabs in a cell become blanks.
    void Add(std::vector<std::wstring> cells);
    /// The table with a line break after each line; nothing when there are no lines but the heading.
    [[nodiscard]] std::wstring Text() const;

private:
    static constexpr std::size_t c_widestColumn = 48;

    std::vector<std::vector<std::wstring>> m_lines;
};

}  // namespace kvpalette
