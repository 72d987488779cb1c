// Runs in a folder that holds the module and what it links to, but not its satellite.

#include <gtest/gtest.h>

#include <string>

#include "framework/base/Handles.h"
#include "framework/base/MessageBox.h"
#include "tests/control/core/LoadedModule.h"

namespace {

std::wstring s_shown;

int NoteMessage(HWND, const wchar_t* text, const wchar_t*, UINT) {
    s_shown = text;
    return IDOK;
}

TEST(ModuleAttach, SatelliteMissing_TellsTheUserAndRefuses) {
    const fw::MessageBoxHook former = fw::SetMessageBoxHook(&NoteMessage);
    for (int attempt = 0; attempt < 2; ++attempt) {
        s_shown.clear();
        const fw::UniqueModule library(::LoadLibraryW(kvtest::BesideProgram(L"KvPEXCtl.qmx").c_str()));
        EXPECT_FALSE(library);
        EXPECT_EQ(s_shown, L"KvPEXCtl resource only DLL load failed");
    }
    fw::SetMessageBoxHook(former);
}

}  // namespace
