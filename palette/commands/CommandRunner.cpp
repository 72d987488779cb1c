#include "palette/commands/CommandRunner.h"

#include <cwchar>

#include "palette/commands/CommandParser.h"
#include "palette/commands/Console.h"
#include "palette/commands/MessageLoop.h"
#include "palette/commands/Screenshot.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Answers.h"

namespace kvpalette {

namespace {

// "--set Content", as the user finds it again in what he wrote.
std::wstring NameOf(const Command& command) {
    std::wstring name = command.origin.empty() ? L"" : command.origin + L": ";
    name += CommandName(command.kind);
    return command.target.empty() ? name : name + L" " + command.target;
}

}  // namespace

ExitStatus CommandRunner::Run(const std::vector<Command>& commands) {
    for (const Command& command : commands) {
        CommandResult result = RunOne(command);
        PumpMessages();
        if (m_trace.IsOpen() && !m_trace.Write() && result) {
            result = CommandResult::Failed(L"the trace cannot be written");
        }
        if (!result) {
            PrintError(L"kvpalette: " + NameOf(command) + L": " + result.reason + L"\n");
            return result.status;
        }
    }
    return ExitStatus::Done;
}

CommandResult CommandRunner::RunOne(const Command& command) {
    switch (command.kind) {
        case CommandKind::Set:
        case CommandKind::Unspecify:
        case CommandKind::Edit:
        case CommandKind::Type:
        case CommandKind::Tip:
        case CommandKind::Escape:
        case CommandKind::List:
        case CommandKind::Hover:
        case CommandKind::Click:
        case CommandKind::Pick:
            return RunRowCommand(command);
        case CommandKind::Select:
        case CommandKind::Undo:
        case CommandKind::Redo:
        case CommandKind::Save:
        case CommandKind::Open:
        case CommandKind::Zoom:
            return RunDrawingCommand(command);
        default:
            return RunProgramCommand(command);
    }
}

CommandResult CommandRunner::RunRowCommand(const Command& command) {
    switch (command.kind) {
        case CommandKind::Set:
            return m_editor.Set(command.target, command.value);
        case CommandKind::Unspecify:
            return m_editor.Unspecify(command.target);
        case CommandKind::Edit:
            return m_editor.Edit(command.target);
        case CommandKind::Type:
            return m_editor.Type(command.target);
        case CommandKind::Tip:
            return m_editor.ShowTip(command.target);
        case CommandKind::List:
            return PrintList(command);
        case CommandKind::Hover:
            return m_editor.Hover(command.target, command.value);
        case CommandKind::Click:
            return m_editor.Click(command.target, command.value);
        case CommandKind::Pick:
            return CommandResult::Refused(L"no row waits for a point");
        default:
            return m_editor.Escape();
    }
}

CommandResult CommandRunner::PrintList(const Command& command) {
    std::vector<ListEntry> entries;
    CommandResult listed = m_editor.List(command.target, entries);
    if (listed) {
        PrintText(Reports::List(command.target, entries, command.json));
    }
    return listed;
}

CommandResult CommandRunner::RunDrawingCommand(const Command& command) {
    if (command.kind != CommandKind::Zoom) {
        m_editor.CancelOpenList();  // a user's next step elsewhere closes it too
    }
    std::wstring error;
    switch (command.kind) {
        case CommandKind::Select:
            error = m_window.Document().GetSelection().Select(command.target);
            return error.empty() ? CommandResult::Done() : CommandResult::Failed(error);
        case CommandKind::Undo:
            return m_window.Undo(command.count) ? CommandResult::Done()
                                                : CommandResult::Failed(L"there is not that much to undo");
        case CommandKind::Redo:
            return m_window.Redo(command.count) ? CommandResult::Done()
                                                : CommandResult::Failed(L"there is not that much to redo");
        case CommandKind::Save:
            return m_window.SaveDrawing(command.target, error) ? CommandResult::Done()
                                                               : CommandResult::BadDrawing(error);
        case CommandKind::Open:
            return m_window.OpenDrawing(command.target, error) ? CommandResult::Done()
                                                               : CommandResult::BadDrawing(error);
        default:
            return Zoom(command);
    }
}

CommandResult CommandRunner::RunProgramCommand(const Command& command) {
    switch (command.kind) {
        case CommandKind::Rows:
            PrintText(m_reports.Rows(command.json));
            return CommandResult::Done();
        case CommandKind::Objects:
            PrintText(m_reports.Objects(command.json));
            return CommandResult::Done();
        case CommandKind::Catalogue:
            PrintText(m_reports.Catalogue(command.json));
            return CommandResult::Done();
        case CommandKind::SetVar:
            return SetVariable(command);
        case CommandKind::Trace:
            return StartTrace(command);
        case CommandKind::Answer:
            kvhost::Answers::QueueFromCommandLine(command.target);
            return CommandResult::Done();
        case CommandKind::Say:
            PrintText(command.target + L"\n");
            return CommandResult::Done();
        case CommandKind::Screenshot:
            return WriteScreenshot(m_window.m_hWnd, command.target)
                       ? CommandResult::Done()
                       : CommandResult::Failed(L"the picture cannot be written");
        default:
            Resize(command.target);
            return CommandResult::Done();
    }
}

void CommandRunner::Resize(const std::wstring& size) {
    const std::size_t cut = size.find(L'x');
    const int width = static_cast<int>(std::wcstol(size.c_str(), nullptr, 10));
    const int height = static_cast<int>(std::wcstol(size.c_str() + cut + 1, nullptr, 10));
    // From the corner of the screen: what lies beyond its edges cannot be seen in a picture.
    m_window.SetWindowPos(nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

CommandResult CommandRunner::SetVariable(const Command& command) {
    using Outcome = kvhost::SystemVariables::Outcome;
    const Outcome outcome = m_window.SetVariable(command.target, command.value);
    return outcome == Outcome::Done
               ? CommandResult::Done()
               : CommandResult::Failed(kvhost::SystemVariables::Explain(command.target, outcome));
}

CommandResult CommandRunner::StartTrace(const Command& command) {
    return m_trace.Open(command.target) ? CommandResult::Done()
                                        : CommandResult::Failed(L"the trace cannot be written");
}

CommandResult CommandRunner::Zoom(const Command& command) {
    if (command.target == L"extents") {
        m_window.View().ZoomExtents();
    } else if (command.target == L"selection") {
        m_window.View().ZoomHighlighted();
    } else {
        m_window.View().ZoomBy(std::wcstod(command.target.c_str(), nullptr));
    }
    return CommandResult::Done();
}

}  // namespace kvpalette
