#pragma once

#include <string>
#include <vector>

#include "palette/commands/RowEditor.h"
#include "palette/rows/ControlCatalogue.h"
#include "palette/window/MainWindow.h"

namespace kvpalette {

/// The texts that --rows, --objects and --catalogue print: tables for people, JSON for programs.
class Reports {
public:
    Reports(MainWindow& window, const ControlCatalogue& catalogue)
        : m_window(window), m_catalogue(catalogue) {}

    [[nodiscard]] std::wstring Rows(bool json);
    [[nodiscard]] std::wstring Objects(bool json);
    [[nodiscard]] std::wstring Catalogue(bool json);
    /// The entries of a row's list.
    [[nodiscard]] static std::wstring List(const std::wstring& row, const std::vector<ListEntry>& entries,
                                           bool json);

private:
    MainWindow& m_window;
    const ControlCatalogue& m_catalogue;
};

}  // namespace kvpalette
