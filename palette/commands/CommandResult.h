#pragma once

#include <string>
#include <utility>

#include "palette/commands/ExitStatus.h"

namespace kvpalette {

/// How a command ended; the reason is for the user.
struct CommandResult {
    ExitStatus status = ExitStatus::Done;
    std::wstring reason;

    explicit operator bool() const { return status == ExitStatus::Done; }

    static CommandResult Done() { return {}; }
    static CommandResult Refused(std::wstring reason) { return {ExitStatus::EditRefused, std::move(reason)}; }
    static CommandResult BadDrawing(std::wstring reason) {
        return {ExitStatus::BadDrawing, std::move(reason)};
    }
    static CommandResult Failed(std::wstring reason) { return {ExitStatus::Failed, std::move(reason)}; }
};

}  // namespace kvpalette
