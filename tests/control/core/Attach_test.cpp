// Runs in a folder that holds the module and what it links to, but not its satellite.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/CTemporaryResourceOverride.h"
#include "core/ModuleTexts.h"
#include "core/Satellite.h"
#include "framework/base/Handles.h"
#include "framework/base/MessageBox.h"
#include "framework/base/ModuleState.h"
#include "resources/Ids.h"
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

// Texts stand in blocks of 16, each with its length before it. Gives the former length.
WORD SetLengthOfText(HINSTANCE library, UINT id, WORD length) {
    const HRSRC block = ::FindResourceW(library, MAKEINTRESOURCEW(id / 16 + 1), RT_STRING);
    auto* text = static_cast<WORD*>(::LockResource(::LoadResource(library, block)));
    for (UINT before = id % 16; before > 0; --before) {
        text += 1 + *text;
    }
    DWORD protection = 0;
    EXPECT_TRUE(::VirtualProtect(text, sizeof(WORD), PAGE_READWRITE, &protection));
    const WORD former = std::exchange(*text, length);
    EXPECT_TRUE(::VirtualProtect(text, sizeof(WORD), protection, &protection));
    return former;
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
    const WORD length = SetLengthOfText(KvPeSatellite(), IDS_UNSPECIFIED_TEXT, 0);
    LoadValueTexts();
    EXPECT_EQ(VariesText(), L"*VARIES*");
    EXPECT_TRUE(DefaultUnspecifiedText().IsEmpty());
    // One text that is empty is reason enough to load both again.
    SetLengthOfText(KvPeSatellite(), IDS_UNSPECIFIED_TEXT, length);
    LoadValueTexts();
    EXPECT_EQ(VariesText(), L"*VARIES*");
    EXPECT_EQ(DefaultUnspecifiedText(), L"<Unspecified>");
    EXPECT_EQ(UndoPropertyChangeText(), L"Property change");
}

}  // namespace
