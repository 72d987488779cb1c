#pragma once

#include <functional>
#include <span>
#include <string>

#include "palette/commands/Command.h"

namespace kvpalette {

/// Reads a text file; false when it cannot be read.
using TextFileReader = std::function<bool(const std::wstring& path, std::wstring& text)>;

/// Takes a command line apart. Batch files are read here, so that a mistake in one is told before anything
/// runs.
class CommandParser {
public:
    explicit CommandParser(TextFileReader readFile);

    /// False, with a message for the user, when the arguments are no valid command line.
    [[nodiscard]] bool Parse(std::span<const std::wstring> arguments, CommandLine& result,
                             std::wstring& message);

private:
    bool ParseCommands(std::span<const std::wstring> arguments, const std::wstring& origin,
                       CommandLine& result);
    bool ParseOne(std::span<const std::wstring> arguments, std::size_t& next, const std::wstring& origin,
                  CommandLine& result);
    bool ParseBatch(const std::wstring& path, const std::wstring& origin, CommandLine& result);
    bool Refuse(const std::wstring& origin, const std::wstring& reason);

    TextFileReader m_readFile;
    std::wstring m_message;
    int m_batchDepth = 0;
};

/// The word by which the command line knows a command.
[[nodiscard]] const wchar_t* CommandName(CommandKind kind);

/// The text that --help prints.
[[nodiscard]] const wchar_t* HelpText();

}  // namespace kvpalette
