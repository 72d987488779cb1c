#include <exception>
#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "palette/commands/CommandParser.h"
#include "palette/commands/CommandRunner.h"
#include "palette/commands/Console.h"
#include "palette/commands/MessageLoop.h"
#include "palette/rows/ControlCatalogue.h"
#include "palette/window/MainWindow.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/Answers.h"

namespace kvpalette {

namespace {

/// The component library, initialised for the scope of the program.
class ComponentLibrary {
public:
    ComponentLibrary() : m_result(::OleInitialize(nullptr)) {}
    ~ComponentLibrary() {
        if (SUCCEEDED(m_result)) {
            ::OleUninitialize();
        }
    }
    ComponentLibrary(const ComponentLibrary&) = delete;
    ComponentLibrary& operator=(const ComponentLibrary&) = delete;

    bool IsReady() const { return SUCCEEDED(m_result); }

private:
    HRESULT m_result;
};

ExitStatus Fail(ExitStatus status, const std::wstring& reason) {
    PrintError(L"kvpalette: " + reason + L"\n");
    return status;
}

// A console that was opened for the program alone only stands about when there is a window.
void LeaveOwnConsole() {
    DWORD processes[2]{};
    if (::GetConsoleProcessList(processes, 2) == 1) {
        ::FreeConsole();
    }
}

ExitStatus RunProgram(const CommandLine& commandLine) {
    const ComponentLibrary components;
    ControlCatalogue catalogue;
    if (!components.IsReady() || FAILED(catalogue.Load())) {
        return Fail(ExitStatus::Failed, L"the control module KvPEXCtl.qmx is not there");
    }
    kvhost::HostSession host;
    MainWindow window(*host, catalogue);
    if (!window.Create()) {
        return Fail(ExitStatus::Failed, L"the window cannot be made");
    }
    std::wstring error;
    if (!commandLine.drawing.empty() && !window.OpenDrawing(commandLine.drawing, error)) {
        return Fail(ExitStatus::BadDrawing, error);
    }
    window.ShowWindow(SW_SHOW);
    PumpMessages();
    BringToFront(window.m_hWnd);
    if (!commandLine.commands.empty()) {
        return CommandRunner(window, catalogue).Run(commandLine.commands);
    }
    LeaveOwnConsole();
    kvhost::Answers::SetInteractive(true);
    return static_cast<ExitStatus>(RunMessageLoop());
}

ExitStatus Start(const std::vector<std::wstring>& arguments) {
    CommandLine commandLine;
    std::wstring message;
    if (!CommandParser(ReadTextFile).Parse(arguments, commandLine, message)) {
        return Fail(ExitStatus::BadUsage, message + L" (kvpalette --help tells the commands)");
    }
    if (commandLine.help) {
        PrintText(HelpText());
        return ExitStatus::Done;
    }
    return RunProgram(commandLine);
}

}  // namespace

}  // namespace kvpalette

// Exceptions end here: memory may run out anywhere.
int wmain(int count, wchar_t** arguments) {
    try {
        return static_cast<int>(kvpalette::Start({arguments + 1, arguments + count}));
    } catch (const std::exception&) {
        kvpalette::PrintError(L"kvpalette: out of memory\n");
        return static_cast<int>(kvpalette::ExitStatus::Failed);
    }
}
