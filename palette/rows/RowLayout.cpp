#include "palette/rows/RowLayout.h"

#include <algorithm>

namespace kvpalette {

void RowLayout::SetRows(const std::vector<std::wstring>& categoryOfRow) {
    m_categories.clear();
    m_categoryOfRow.clear();
    for (std::size_t row = 0; row < categoryOfRow.size(); ++row) {
        auto found = std::find_if(m_categories.begin(), m_categories.end(), [&](const Category& category) {
            return category.name == categoryOfRow[row];
        });
        if (found == m_categories.end()) {
            m_categories.push_back({categoryOfRow[row], {}});
            found = m_categories.end() - 1;
        }
        found->rows.push_back(row);
        m_categoryOfRow.push_back(static_cast<std::size_t>(found - m_categories.begin()));
    }
    Arrange();
}

void RowLayout::SetSize(int width, int height) {
    m_width = width;
    m_height = height;
    ScrollTo(m_scroll);
}

void RowLayout::SetNameWidth(int width) {
    m_nameWidth = width;
}

int RowLayout::NameWidth() const {
    const int wanted = m_nameWidth > 0 ? m_nameWidth : m_width * 2 / 5;
    return std::clamp(wanted, LeastColumn(), std::max(LeastColumn(), m_width - LeastColumn()));
}

int RowLayout::LargestScrollOffset() const {
    return std::max(0, m_contentHeight - m_height);
}

void RowLayout::ScrollTo(int offset) {
    m_scroll = std::clamp(offset, 0, LargestScrollOffset());
}

bool RowLayout::IsCollapsed(std::size_t category) const {
    return std::find(m_collapsedNames.begin(), m_collapsedNames.end(), m_categories[category].name) !=
           m_collapsedNames.end();
}

void RowLayout::SetCollapsed(std::size_t category, bool collapsed) {
    std::erase(m_collapsedNames, m_categories[category].name);
    if (collapsed) {
        m_collapsedNames.push_back(m_categories[category].name);
    }
    Arrange();
}

void RowLayout::Arrange() {
    m_lines.clear();
    m_lineOfRow.assign(m_categoryOfRow.size(), c_none);
    int top = 0;
    for (std::size_t category = 0; category < m_categories.size(); ++category) {
        m_lines.push_back({true, category, top, CategoryHeight()});
        top += CategoryHeight();
        if (IsCollapsed(category)) {
            continue;
        }
        for (const std::size_t row : m_categories[category].rows) {
            m_lineOfRow[row] = m_lines.size();
            m_lines.push_back({false, row, top, RowHeight()});
            top += RowHeight();
        }
    }
    m_contentHeight = top;
    ScrollTo(m_scroll);
}

const RowLayout::Line* RowLayout::LineOfRow(std::size_t row) const {
    return row < m_lineOfRow.size() && m_lineOfRow[row] != c_none ? &m_lines[m_lineOfRow[row]] : nullptr;
}

RECT RowLayout::RowBounds(std::size_t row) const {
    const Line* const line = LineOfRow(row);
    return line ? RECT{0, line->top - m_scroll, m_width, line->top - m_scroll + line->height} : RECT{};
}

RECT RowLayout::NameBounds(std::size_t row) const {
    RECT bounds = RowBounds(row);
    bounds.right = std::min<LONG>(bounds.right, NameWidth());
    return bounds;
}

// One pixel stays free on the left and below for the lines between columns and rows.
RECT RowLayout::ValueBounds(std::size_t row) const {
    RECT bounds = RowBounds(row);
    if (::IsRectEmpty(&bounds)) {
        return bounds;
    }
    bounds.left = NameWidth() + 1;
    bounds.bottom -= 1;
    return bounds;
}

RECT RowLayout::CategoryBounds(std::size_t category) const {
    for (const Line& line : m_lines) {
        if (line.isCategory && line.index == category) {
            return {0, line.top - m_scroll, m_width, line.top - m_scroll + line.height};
        }
    }
    return {};
}

bool RowLayout::IsInSight(std::size_t row) const {
    const RECT bounds = RowBounds(row);
    return !::IsRectEmpty(&bounds) && bounds.bottom > 0 && bounds.top < m_height;
}

void RowLayout::Reveal(std::size_t row) {
    if (row < m_categoryOfRow.size() && IsCollapsed(m_categoryOfRow[row])) {
        SetCollapsed(m_categoryOfRow[row], false);
    }
    const Line* const line = LineOfRow(row);
    if (!line) {
        return;
    }
    if (line->top < m_scroll) {
        ScrollTo(line->top);
    } else if (line->top + line->height > m_scroll + m_height) {
        ScrollTo(line->top + line->height - m_height);
    }
}

RowLayout::Hit RowLayout::HitTest(POINT point) const {
    const int y = point.y + m_scroll;
    const auto line = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& candidate) {
        return y >= candidate.top && y < candidate.top + candidate.height;
    });
    if (line == m_lines.end() || point.x < 0 || point.x >= m_width || point.y < 0 || point.y >= m_height) {
        return {};
    }
    if (line->isCategory) {
        return {Place::Category, line->index};
    }
    const int beside = point.x - NameWidth();
    if (beside >= -Scaled(c_splitterGrip) && beside <= Scaled(c_splitterGrip)) {
        return {Place::Splitter, line->index};
    }
    return {beside < 0 ? Place::Name : Place::Value, line->index};
}

std::size_t RowLayout::NextRow(std::size_t row, bool forward) const {
    const Line* const line = LineOfRow(row);
    const std::size_t count = m_lines.size();
    std::size_t index = line ? static_cast<std::size_t>(line - m_lines.data()) : (forward ? c_none : count);
    for (;;) {
        if (forward ? index + 1 >= count && index != c_none : index == 0) {
            return c_none;
        }
        index = forward ? index + 1 : index - 1;
        if (index >= count) {
            return c_none;
        }
        if (!m_lines[index].isCategory) {
            return m_lines[index].index;
        }
    }
}

}  // namespace kvpalette
