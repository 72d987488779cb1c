#pragma once

#include "palette/commands/Command.h"
#include "palette/commands/CommandResult.h"
#include "palette/commands/Reports.h"
#include "palette/commands/RowEditor.h"
#include "palette/commands/TraceFile.h"
#include "palette/rows/ControlCatalogue.h"
#include "palette/window/MainWindow.h"

namespace kvpalette {

/// Runs the commands of a command line in their order, until one fails.
class CommandRunner {
public:
    CommandRunner(MainWindow& window, const ControlCatalogue& catalogue)
        : m_window(window), m_editor(window), m_reports(window, catalogue) {}

    /// Tells a failure on standard error.
    [[nodiscard]] ExitStatus Run(const std::vector<Command>& commands);

private:
    CommandResult RunOne(const Command& command);
    CommandResult RunRowCommand(const Command& command);
    CommandResult RunDrawingCommand(const Command& command);
    CommandResult RunProgramCommand(const Command& command);
    CommandResult PrintList(const Command& command);
    CommandResult SetVariable(const Command& command);
    CommandResult StartTrace(const Command& command);
    CommandResult Zoom(const Command& command);
    void Resize(const std::wstring& size);

    MainWindow& m_window;
    RowEditor m_editor;
    Reports m_reports;
    TraceFile m_trace;
};

}  // namespace kvpalette
