// Runs in a folder that holds the module and what it links to, but not its satellite.

#include <gtest/gtest.h>

#include <string>

#include "core/CTemporaryResourceOverride.h"
#include "core/ModuleTexts.h"
#include "core/Satellite.h"
#include "framework/base/Handles.h"
#include "framework/base/MessageBox.h"
#include "framework/base/ModuleState.h"
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

TEST(ModuleAttach, ResourceScopeWithoutSatellite_LeavesTheHandle) {
    ASSERT_EQ(KvPeSatellite(), nullptr);
    fw::ModuleState& state = *AfxGetModuleState();
    const HINSTANCE program = ::GetModuleHandleW(nullptr);
    const HINSTANCE former = state.m_hCurrentResourceHandle;
    for (const HINSTANCE handle : {HINSTANCE(nullptr), program}) {
        state.m_hCurrentResourceHandle = handle;
        {
            const CTemporaryResourceOverride resources;
            EXPECT_EQ(state.m_hCurrentResourceHandle, handle);
        }
        EXPECT_EQ(state.m_hCurrentResourceHandle, handle);
    }
    state.m_hCurrentResourceHandle = former;
}

// Stays the last one: a satellite that was found is kept until the program ends.
TEST(ModuleTexts, EmptyOnes_AreLoadedAgainOnceTheSatelliteIsThere) {
    ASSERT_EQ(KvPeSatellite(), nullptr);
    LoadValueTexts();
    EXPECT_TRUE(VariesText().IsEmpty());
    EXPECT_TRUE(DefaultUnspecifiedText().IsEmpty());
    EXPECT_TRUE(UndoPropertyChangeText().IsEmpty());

    // Loaded by its path, it is found by its name.
    const std::wstring path = kvtest::BesideProgram(L"..\\bin\\KvPEXCtlRes.dll");
    const fw::UniqueModule satellite(::LoadLibraryW(path.c_str()));
    ASSERT_TRUE(satellite);
    ASSERT_TRUE(LoadKvPeSatellite(::GetModuleHandleW(nullptr)));
    EXPECT_TRUE(VariesText().IsEmpty());
    LoadValueTexts();
    EXPECT_EQ(VariesText(), L"*VARIES*");
    EXPECT_EQ(DefaultUnspecifiedText(), L"<Unspecified>");
    EXPECT_EQ(UndoPropertyChangeText(), L"Property change");
}

}  // namespace
