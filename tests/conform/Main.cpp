// kvpexctl-conform [--json] [--registration] [--complete] [--class NAME] [MODULE]: checks a module of
// property controls against what its clients rely on.

#include <exception>
#include <string>
#include <vector>

#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/rx/Modules.h"
#include "tests/conform/Checks.h"
#include "tests/control/support/RegisterProgram.h"

namespace kvconform {
namespace {

enum class ExitStatus { Conforms = 0, Broken = 1, BadUsage = 2, NoModule = 3, NotOffered = 4 };

constexpr char c_usage[] =
    "usage: kvpexctl-conform [--json] [--registration] [--complete] [--class NAME] [MODULE]\n"
    "Checks each class that the module offers, and the module itself.\n"
    "  MODULE          path of the module; without it, the one that is registered\n"
    "  --json          the report as JSON\n"
    "  --registration  also register the module for the current user and take it out again, by the\n"
    "                  kvpexctl-register beside this program\n"
    "  --complete      a class of the class table that is ready must be offered\n"
    "  --class NAME    this class alone, and nothing of the module itself\n"
    "Exit status: 0 every rule holds, 1 one is broken, 2 bad usage, 3 the module cannot be loaded, 4 no rule "
    "is "
    "broken, but the module does not offer the class, or none at all.\n";

struct Options {
    std::wstring module;
    std::wstring onlyClass;
    bool json = false;
    bool registration = false;
    bool complete = false;
};

bool Parse(const std::vector<std::wstring>& arguments, Options& options) {
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::wstring& argument = arguments[index];
        if (argument == L"--json") {
            options.json = true;
        } else if (argument == L"--registration") {
            options.registration = true;
        } else if (argument == L"--complete") {
            options.complete = true;
        } else if (argument == L"--class" && index + 1 < arguments.size()) {
            options.onlyClass = arguments[++index];
        } else if (argument.starts_with(L"-") || !options.module.empty()) {
            return false;
        } else {
            options.module = argument;
        }
    }
    return true;
}

using ClassCheck = void (*)(Report&, const TestedModule&, const kvtest::ClassRow&);
constexpr ClassCheck c_classChecks[] = {
    &CheckQuickActivation, &CheckClassicActivation, &CheckVerbs, &CheckAmbients,
    &CheckConnections,     &CheckDispatch,          &CheckInit};

void CheckClass(Report& report, TestedModule& module, const kvtest::ClassRow& row, bool mustBeOffered) {
    report.Begin(ToText(row.name));
    fw::ComPtr<IUnknown> control;
    const HRESULT made = module.Create(*row.id, IID_IUnknown, control.PutVoid());
    if (made == CLASS_E_CLASSNOTAVAILABLE) {
        report.SetUnavailable();
        if (mustBeOffered) {
            report.Expect("create: the class is offered", S_OK, made);
        }
        return;
    }
    if (!report.Expect("create: the class can be created", S_OK, made)) {
        return;
    }
    const bool isControl = report.Expect("create: it is a property control", true,
                                         static_cast<bool>(control.As<IKvPiPropertyEditControl2>()));
    control.Reset();
    if (isControl && CheckQueryRules(report, module, row)) {
        for (const ClassCheck check : c_classChecks) {
            check(report, module, row);
        }
        CheckCreation(report, module, row);
    }
}

void CheckModule(Report& report, const TestedModule& module, const Options& options) {
    report.Begin("the module");
    fw::ComPtr<IUnknown> factory;
    report.Expect("module: an id that is no class is refused", CLASS_E_CLASSNOTAVAILABLE,
                  module.GetClassObject(IID_IUnknown, IID_IClassFactory, factory.PutVoid()));
    CheckTypeLibrary(report, module);
    CheckManifest(report, module);
    if (options.module.empty()) {
        CheckRegisteredClasses(report, module);
    }
    if (options.registration) {
        CheckRegistration(report, module);
    }
}

void TellOfMissing(const TestedModule& module) {
    if (module.Path().empty()) {
        std::fputs(
            "kvpexctl-conform: no module is registered; name a module, or register one with "
            "kvpexctl-register\n",
            stderr);
        return;
    }
    std::fprintf(stderr, "kvpexctl-conform: %s cannot be loaded\n", ToText(module.Path()).c_str());
}

ExitStatus Run(const Options& options) {
    const kvhost::HostSession host;
    host->Documents().New();
    TestedModule module(options.module, *kvtest::s_classRows[0].id);
    if (!module.IsLoaded()) {
        TellOfMissing(module);
        return ExitStatus::NoModule;
    }
    Report report(module.Path());
    bool isKnown = options.onlyClass.empty();
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        if (options.onlyClass.empty() || options.onlyClass == row.name) {
            isKnown = true;
            CheckClass(report, module, row, options.complete && row.state == "READY");
        }
    }
    if (!isKnown) {
        std::fputs("kvpexctl-conform: there is no such class\n", stderr);
        return ExitStatus::BadUsage;
    }
    const bool isNoneOffered = report.CountOffered() == 0;
    if (options.onlyClass.empty()) {
        CheckModule(report, module, options);
    }
    kvhost::Modules::UnloadAll();
    std::fputs((options.json ? report.Json() : report.Text()).c_str(), stdout);
    return report.CountFindings() > 0 ? ExitStatus::Broken
           : isNoneOffered            ? ExitStatus::NotOffered
                                      : ExitStatus::Conforms;
}

bool HasRegisterProgram() {
    return ::GetFileAttributesW(kvtest::RegisterProgramPath().c_str()) != INVALID_FILE_ATTRIBUTES;
}

ExitStatus Start(const std::vector<std::wstring>& arguments) {
    Options options;
    if (!Parse(arguments, options)) {
        std::fputs(c_usage, stderr);
        return ExitStatus::BadUsage;
    }
    if (options.registration && !HasRegisterProgram()) {
        std::fputs("kvpexctl-conform: --registration needs kvpexctl-register.exe beside this program\n",
                   stderr);
        return ExitStatus::BadUsage;
    }
    if (FAILED(::OleInitialize(nullptr))) {
        return ExitStatus::NoModule;
    }
    const ExitStatus status = Run(options);
    ::OleUninitialize();
    return status;
}

}  // namespace
}  // namespace kvconform

int wmain(int count, wchar_t** arguments) {
    try {
        return static_cast<int>(kvconform::Start({arguments + 1, arguments + count}));
    } catch (const std::exception&) {
        std::fputs("kvpexctl-conform: out of memory\n", stderr);
        return static_cast<int>(kvconform::ExitStatus::NoModule);
    }
}
