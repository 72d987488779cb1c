#include "palette/commands/TextTable.h"

#include <algorithm>
#include <utility>

namespace kvpalette {

TextTable::TextTable(std::vector<std::wstring> heading) {
    m_lines.push_back(std::move(heading));
}

void TextTable::Add(std::vector<std::wstring> cells) {
    for (std::wstring& cell : cells) {
        std::replace_if(
            cell.begin(), cell.end(), [](wchar_t character) { return character < L' '; }, L' ');
    }
    cells.resize(m_lines.front().size());
    m_lines.push_back(std::move(cells));
}

std::wstring TextTable::Text() const {
    if (m_lines.size() == 1) {
        return {};
    }
    std::vector<std::size_t> widths(m_lines.front().size());
    for (const auto& line : m_lines) {
        for (std::size_t column = 0; column < line.size(); ++column) {
            widths[column] = std::max(widths[column], std::min(line[column].size(), c_widestColumn));
        }
    }
    std::wstring text;
    for (const auto& line : m_lines) {
        std::wstring written;
        for (std::size_t column = 0; column < line.size(); ++column) {
            written += line[column];
            if (line[column].size() < widths[column]) {
                written.append(widths[column] - line[column].size(), L' ');
            }
            written += L"  ";
        }
        written.erase(written.find_last_not_of(L' ') + 1);
        text += written + L"\n";
    }
    return text;
}

}  // namespace kvpalette
