#pragma once

#include <string>
#include <vector>

namespace kvpalette {

/// What one command of the command line does.
enum class CommandKind {
    Select,
    Rows,
    Set,
    Unspecify,
    List,
    Hover,
    Escape,
    Click,
    Answer,
    Pick,
    Undo,
    Redo,
    Objects,
    Catalogue,
    SetVar,
    Trace,
    Screenshot,
    Save,
    Open,
    Edit,
    Type,
    Tip,
    Zoom,
    Size,
    Say,
};

/// One command with its argument taken apart.
struct Command {
    CommandKind kind = CommandKind::Rows;
    /// The argument as written; for ROW=TEXT and its kin the part before the separator.
    std::wstring target;
    /// The part behind the separator.
    std::wstring value;
    int count = 1;
    bool json = false;
    /// Place in a batch file, for messages; empty for a command of the command line.
    std::wstring origin;
};

/// What the command line asks for.
struct CommandLine {
    /// Empty: an empty drawing.
    std::wstring drawing;
    std::vector<Command> commands;
    bool help = false;
};

}  // namespace kvpalette
