// The platform's script host as a client: it knows a control by its registered name alone.

#include "framework/com/Registration.h"
#include "tests/control/clients/ClientTest.h"

namespace {

// What properties.js ends with when every expectation held; the script host itself never ends so.
constexpr DWORD c_success = 42;
constexpr DWORD c_failure = 1;

DWORD RunScript(const std::wstring& argument) {
    const std::wstring program = fw::ModulePath(nullptr);
    const std::wstring folder = program.substr(0, program.find_last_of(L'\\') + 1);
    return kvtest::RunProgram(L"cscript.exe //nologo \"" + folder + L"clients\\properties.js\" " + argument);
}

using ScriptHost = kvtest::ClientTest;

TEST_P(ScriptHost, RegisteredControl_GivesAndTakesItsProperties) {
    EXPECT_EQ(RunScript(GetParam().progId), c_success);
}

KV_FOR_EACH_AVAILABLE_CLASS(ScriptHost);

TEST(ScriptHostUnregistered, Control_IsNotFoundByName) {
    ASSERT_EQ(kvtest::RunRegister(L" /u"), 0U);
    EXPECT_EQ(RunScript(L"KvPEXCtl.KvPePropertyEditorText.16"), c_failure);
}

}  // namespace
