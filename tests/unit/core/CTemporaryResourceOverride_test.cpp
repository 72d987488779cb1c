#include "core/CTemporaryResourceOverride.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/ModuleTexts.h"
#include "core/Satellite.h"
#include "framework/base/CString.h"
#include "framework/base/ModuleState.h"
#include "resources/Ids.h"

namespace {

class CTemporaryResourceOverrideTest : public ::testing::Test {
protected:
    ~CTemporaryResourceOverrideTest() override { Put(m_former); }

    static HINSTANCE Current() { return AfxGetModuleState()->m_hCurrentResourceHandle; }
    static void Put(HINSTANCE handle) { AfxGetModuleState()->m_hCurrentResourceHandle = handle; }

    const HINSTANCE m_former = Current();
    const HINSTANCE m_program = ::GetModuleHandleW(nullptr);
};

TEST_F(CTemporaryResourceOverrideTest, Scope_PutsTheSatelliteInAndTheFormerHandleBack) {
    Put(m_program);
    {
        const CTemporaryResourceOverride resources;
        EXPECT_EQ(Current(), KvPeSatellite());
        EXPECT_NE(Current(), m_program);
    }
    EXPECT_EQ(Current(), m_program);
}

TEST_F(CTemporaryResourceOverrideTest, NestedScope_RestoresTheHandleOfTheOuterOne) {
    Put(m_program);
    {
        const CTemporaryResourceOverride outer;
        {
            const CTemporaryResourceOverride inner;
            EXPECT_EQ(Current(), KvPeSatellite());
        }
        EXPECT_EQ(Current(), KvPeSatellite());
    }
    EXPECT_EQ(Current(), m_program);
}

TEST_F(CTemporaryResourceOverrideTest, HandleChangedWithin_IsPutBack) {
    Put(nullptr);
    {
        const CTemporaryResourceOverride resources;
        Put(m_program);
    }
    EXPECT_EQ(Current(), nullptr);
}

TEST_F(CTemporaryResourceOverrideTest, Scope_IsDestroyedThroughItsBase) {
    EXPECT_TRUE(std::has_virtual_destructor_v<CTemporaryResourceOverride>);
    struct Wider : CTemporaryResourceOverride {};
    Put(m_program);
    std::unique_ptr<CTemporaryResourceOverride> resources = std::make_unique<Wider>();
    resources.reset();
    EXPECT_EQ(Current(), m_program);
}

TEST_F(CTemporaryResourceOverrideTest, Satellite_HoldsTheTexts) {
    const CTemporaryResourceOverride resources;
    for (const int id :
         {IDS_DIALOG_CLASS_NOT_REGISTERED, IDS_UNDO_PROPERTY_CHANGE, IDS_VARIES_TEXT, IDS_UNSPECIFIED_TEXT}) {
        CString text;
        EXPECT_TRUE(text.LoadString(static_cast<UINT>(id))) << id;
        EXPECT_FALSE(text.IsEmpty()) << id;
    }
}

TEST_F(CTemporaryResourceOverrideTest, Satellite_LongTranslation_ComesWhole) {
    const CTemporaryResourceOverride resources;
    AfxGetModuleState()->m_textLanguage = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);
    CString text;
    text.LoadString(IDS_DIALOG_CLASS_NOT_REGISTERED);
    AfxGetModuleState()->m_textLanguage = 0;
    EXPECT_EQ(text,
              L"Der Dialog f\u00FCr diese Eigenschaft kann nicht angezeigt werden: Seine Klasse %s ist nicht "
              L"registriert.");
}

TEST_F(CTemporaryResourceOverrideTest, ModuleTexts_AreLoadedFromTheSatelliteWhateverIsCurrent) {
    Put(m_program);
    LoadValueTexts();
    EXPECT_EQ(VariesText(), L"*VARIES*");
    EXPECT_EQ(DefaultUnspecifiedText(), L"<Unspecified>");
    EXPECT_EQ(UndoPropertyChangeText(), L"Property change");
    EXPECT_EQ(Current(), m_program);
}

}  // namespace
