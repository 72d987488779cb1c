#pragma once

#include "tests/conform/Report.h"
#include "tests/conform/TestedModule.h"
#include "tests/control/core/ClassRows.h"

namespace kvconform {

// Each checks one side of a class and reports every rule that does not hold.

void CheckCreation(Report& report, TestedModule& module, const kvtest::ClassRow& row);
/// False when an interface that the other checks go through is missing.
[[nodiscard]] bool CheckQueryRules(Report& report, const TestedModule& module, const kvtest::ClassRow& row);
void CheckQuickActivation(Report& report, const TestedModule& module, const kvtest::ClassRow& row);
void CheckClassicActivation(Report& report, const TestedModule& module, const kvtest::ClassRow& row);
void CheckVerbs(Report& report, const TestedModule& module, const kvtest::ClassRow& row);
void CheckAmbients(Report& report, const TestedModule& module, const kvtest::ClassRow& row);
void CheckConnections(Report& report, const TestedModule& module, const kvtest::ClassRow& row);
void CheckDispatch(Report& report, const TestedModule& module, const kvtest::ClassRow& row);
void CheckInit(Report& report, const TestedModule& module, const kvtest::ClassRow& row);

// The module as a whole.

void CheckTypeLibrary(Report& report, const TestedModule& module);
void CheckManifest(Report& report, const TestedModule& module);
/// What the registration of the current user tells of the classes.
void CheckRegisteredClasses(Report& report, const TestedModule& module);
/// Registers the module for the current user and takes it out again. Nothing is done when a class is
/// registered already, since that registration would be lost.
void CheckRegistration(Report& report, const TestedModule& module);

}  // namespace kvconform
