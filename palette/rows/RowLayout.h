#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "palette/theme/Scale.h"

namespace kvpalette {

/// Where the lines of the palette lie: categories with their rows below them, collapsed or not, scrolled,
/// with a splitter between names and values. Pure arithmetic in the client coordinates of the rows' window.
class RowLayout {
public:
    /// A value is one pixel lower than its row and even, so that controls centre their text as the palette
    /// does.
    static int RowHeightAt(const Scale& scale) { return scale.Pixels(c_rowHeight - 1) | 1; }
    static int RowHeight() { return RowHeightAt(Scale::OfScreen()); }
    static int CategoryHeight() { return Scaled(c_categoryHeight); }
    static int LeastColumn() { return Scaled(c_leastColumn); }
    static constexpr std::size_t c_none = static_cast<std::size_t>(-1);

    /// One line: a category's heading or a row.
    struct Line {
        bool isCategory;
        /// Index of the row, or of the category.
        std::size_t index;
        int top;
        int height;
    };

    /// What lies under a point.
    enum class Place { Nothing, Category, Name, Value, Splitter };
    struct Hit {
        Place place = Place::Nothing;
        std::size_t index = c_none;
    };

    /// The category of each row, in row order; categories come in the order of their first row. Collapsed
    /// ones stay collapsed by name.
    void SetRows(const std::vector<std::wstring>& categoryOfRow);
    void SetSize(int width, int height);
    void SetNameWidth(int width);
    void ScrollTo(int offset);
    void SetCollapsed(std::size_t category, bool collapsed);

    std::size_t CategoryCount() const { return m_categories.size(); }
    const std::wstring& CategoryName(std::size_t category) const { return m_categories[category].name; }
    bool IsCollapsed(std::size_t category) const;
    const std::vector<Line>& Lines() const { return m_lines; }
    int ContentHeight() const { return m_contentHeight; }
    int ScrollOffset() const { return m_scroll; }
    int LargestScrollOffset() const;
    int NameWidth() const;
    int Width() const { return m_width; }
    int Height() const { return m_height; }

    /// Empty for a row whose category is collapsed. Bounds may lie outside the window.
    RECT RowBounds(std::size_t row) const;
    RECT NameBounds(std::size_t row) const;
    RECT ValueBounds(std::size_t row) const;
    RECT CategoryBounds(std::size_t category) const;
    bool IsInSight(std::size_t row) const;
    /// The offset that brings the whole row into sight with the least movement; opens its category.
    void Reveal(std::size_t row);

    Hit HitTest(POINT point) const;
    /// The row before or behind, in the order of the lines, collapsed ones left out; c_none at the ends. From
    /// c_none it is the last or the first.
    std::size_t NextRow(std::size_t row, bool forward) const;
    std::size_t CategoryOf(std::size_t row) const { return m_categoryOfRow[row]; }

private:
    static constexpr int c_rowHeight = 19;
    static constexpr int c_categoryHeight = 22;
    static constexpr int c_splitterGrip = 3;
    static constexpr int c_leastColumn = 60;

    struct Category {
        std::wstring name;
        std::vector<std::size_t> rows;
    };

    void Arrange();
    const Line* LineOfRow(std::size_t row) const;

    std::vector<Category> m_categories;
    std::vector<std::size_t> m_categoryOfRow;
    std::vector<std::wstring> m_collapsedNames;
    std::vector<Line> m_lines;
    std::vector<std::size_t> m_lineOfRow;
    int m_width = 0;
    int m_height = 0;
    int m_nameWidth = 0;
    int m_scroll = 0;
    int m_contentHeight = 0;
};

}  // namespace kvpalette
